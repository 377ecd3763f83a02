#include "platform/win32/win32_unlha.h"

#include <windows.h>

#include <atomic>
#include <exception>
#include <memory>
#include <thread>

#include "base/text.h"
#include "base/win32/busy_pointer.h"
#include "platform/lzh/unlha_command.h"
#include "platform/win32/busy_wait.h"
#include "platform/win32/lzh_extraction.h"
#include "platform/win32/progress_window.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {

using lzh::ExtractionResult;
using lzh::LzhFailure;

namespace {

constexpr wchar_t unpackingText[] = L"パッケージを展開しています...";

// An extraction on a thread of its own.
class BackgroundExtraction {
  public:
    explicit BackgroundExtraction(const std::wstring& archive)
        : done(CreateEventW(nullptr, TRUE, FALSE, nullptr)), thread([this, archive] {
              result = ExtractIntoCurrentFolder(
                  archive, lzh::HiddenFiles::Visible,
                  [this](auto unpacked, auto total) { Advance(unpacked, total); });
              SetEvent(done.get());
          }) {}
    ~BackgroundExtraction() { thread.join(); }
    BackgroundExtraction(const BackgroundExtraction&) = delete;
    BackgroundExtraction& operator=(const BackgroundExtraction&) = delete;

    HANDLE Done() const { return done.get(); }
    int Part() const { return part; }
    const ExtractionResult& Result() const { return result; } // once it is done

  private:
    void Advance(std::uint64_t unpacked, std::uint64_t total) {
        if (total > 0)
            part = static_cast<int>(static_cast<double>(unpacked) / static_cast<double>(total) *
                                    ProgressWindow::fullBar);
    }

    std::atomic<int> part = 0; // written by the thread, read by the window's
    ExtractionResult result;
    UniqueHandle done;
    std::thread thread; // last: the others exist before it starts
};

void WaitFor(const BackgroundExtraction& extraction, HWND owner, const std::wstring& archive) {
    const ULONGLONG start = GetTickCount64();
    std::unique_ptr<ProgressWindow> window;
    while (!PaintUntil(extraction.Done(), ProgressWindow::betweenPictures)) {
        if (!window && GetTickCount64() - start >= ProgressWindow::patience)
            window = std::make_unique<ProgressWindow>(owner, unpackingText,
                                                      std::wstring(NameOf(archive)));
        if (window)
            window->Show(extraction.Part());
    }
}

ExtractionResult Extract(HWND owner, const std::wstring& archive) {
    const BusyPointer busy;
    const BackgroundExtraction extraction(archive);
    WaitFor(extraction, owner, archive);
    return extraction.Result();
}

} // namespace

std::int16_t Win32Unlha::Run(void* window, const std::wstring& command, const std::wstring&,
                             unsigned) {
    LzhFailure failure = LzhFailure::BadCommand;
    try {
        if (const auto archive = lzh::ArchiveOfCommand(command))
            failure = Extract(static_cast<HWND>(window), *archive).failure;
    } catch (const std::exception&) {
        failure = LzhFailure::OutOfMemory; // not even a thread could be had
    }
    return static_cast<std::int16_t>(failure);
}

} // namespace tamblin
