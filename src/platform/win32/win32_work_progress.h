// Shows long work in a window of its own, as extractions are shown, with the busy pointer.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "base/win32/busy_pointer.h"
#include "platform/win32/busy_wait.h"
#include "platform/win32/progress_window.h"
#include "platform/work_progress.h"

namespace tamblin {

class Win32WorkProgress : public WorkProgress {
  public:
    // `ownerOfWindow` tells which window the progress window belongs to, or null.
    explicit Win32WorkProgress(std::function<HWND()> ownerOfWindow)
        : owner(std::move(ownerOfWindow)) {}

    void Begin(const std::wstring& text, const std::wstring& folder) override;
    void Advance(double part) override;
    void End() noexcept override;

    // Shows the window if it is time for it. To be called also while no part of the work gets done,
    // as when a file is waited for.
    void ShowIfLong();

  private:
    struct Work {
        std::wstring text;
        std::wstring folder;
        ULONGLONG begin = 0;
        ULONGLONG painted = 0;
        BusyPointer pointer;
        std::unique_ptr<ProgressWindow> window;
    };

    std::function<HWND()> owner;
    std::unique_ptr<Work> work; // null while none is under way
};

} // namespace tamblin
