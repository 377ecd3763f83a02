#include "platform/win32/win32_program_starter.h"

#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

#include "platform/win32/program_folder.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {

void Win32ProgramStarter::StartMinimised(const std::wstring& commandLine) {
    std::wstring writable = commandLine; // Windows writes into it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &process))
        ThrowLastError(Attempt::StartProgram);
    const UniqueHandle closesProcess(process.hProcess);
    const UniqueHandle closesThread(process.hThread);
}

void Win32ProgramStarter::ShowMinimised(const std::wstring& document) {
    SHELLEXECUTEINFOW execution{};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_FLAG_NO_UI;
    execution.lpFile = document.c_str();
    // Not the current folder, which the program that shows the document would keep in use.
    const std::wstring folder = ProgramFolder();
    execution.lpDirectory = folder.c_str();
    execution.nShow = SW_SHOWMINIMIZED;
    ShellExecuteExW(&execution);
}

} // namespace tamblin
