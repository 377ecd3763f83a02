// A window that owns progress windows and counts what reaches it, and looks at the progress window
// as another program would take them.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace tamblin {

class ProgressOwner {
  public:
    ProgressOwner();
    ~ProgressOwner();
    ProgressOwner(const ProgressOwner&) = delete;
    ProgressOwner& operator=(const ProgressOwner&) = delete;

    HWND Handle() const { return window; }
    void Invalidate() const { InvalidateRect(window, nullptr, TRUE); }
    void SendClick() const { PostMessageW(window, WM_LBUTTONDOWN, 0, 0); }

    static inline std::atomic<int> paintings = 0;
    static inline std::atomic<int> clicks = 0;
    static inline HFONT font = nullptr; // in which it says that it writes

  private:
    HWND window;
};

// Looks at the screen from another thread.
class Watcher {
  public:
    explicit Watcher(std::function<void()> atEachLook);
    ~Watcher();
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

  private:
    std::function<void()> look;
    std::atomic<bool> ended = false;
    std::thread thread;
};

// The one that is there, or null.
HWND ShownProgressWindow();
// Its bar, or null while it is not seen.
HWND ShownProgressBar();
// Whether one of the window's labels says so.
bool Says(HWND window, const std::wstring& wanted);

} // namespace tamblin
