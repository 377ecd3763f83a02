#include "platform/win32/win32_unlha.h"

#include <windows.h>

#include <atomic>
#include <exception>

#include "base/text.h"
#include "platform/lzh/unlha_command.h"
#include "platform/win32/busy_wait.h"
#include "platform/win32/lzh_extraction.h"
#include "platform/win32/win32_work_progress.h"

namespace tamblin {

using lzh::ExtractionResult;
using lzh::LzhFailure;

namespace {

constexpr wchar_t unpackingText[] = L"パッケージを展開しています...";

ExtractionResult Extract(HWND owner, const std::wstring& archive) {
    Win32WorkProgress progress([owner] { return owner; });
    WorkUnderWay work(progress, unpackingText, std::wstring(NameOf(archive)));
    std::atomic<double> part = 0; // written by the reader's thread, read by the window's
    ExtractionResult result;
    BusyWatch([&] { work.Advance(part); }).During([&] {
        result = ExtractIntoCurrentFolder(
            archive, lzh::HiddenFiles::Visible, [&](std::uint64_t unpacked, std::uint64_t total) {
                if (total > 0)
                    part = static_cast<double>(unpacked) / static_cast<double>(total);
            });
        return true;
    });
    return result;
}

} // namespace

std::int16_t Win32Unlha::Run(void* window, const std::wstring& command, const std::wstring&,
                             unsigned) {
    LzhFailure failure = LzhFailure::BadCommand;
    try {
        if (const auto archive = lzh::ArchiveOfCommand(command))
            failure = Extract(static_cast<HWND>(window), *archive).failure;
    } catch (const std::exception&) {
        failure = LzhFailure::OutOfMemory;
    }
    return static_cast<std::int16_t>(failure);
}

} // namespace tamblin
