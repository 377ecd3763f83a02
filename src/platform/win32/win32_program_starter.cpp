#include "platform/win32/win32_program_starter.h"

#include <algorithm>

#include "platform/win32/own_process.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {
namespace {

struct CommandLine {
    std::wstring program;
    std::wstring arguments;
};

// The program may stand in quotes.
CommandLine Split(const std::wstring& line) {
    const bool quoted = line.starts_with(L'"');
    const size_t start = quoted ? 1 : 0;
    const size_t end = std::min(line.find(quoted ? L'"' : L' ', start), line.size());
    const size_t rest = std::min(line.find_first_not_of(L' ', end + start), line.size());
    return {line.substr(start, end - start), line.substr(rest)};
}

} // namespace

void Win32ProgramStarter::StartMinimised(const std::wstring& commandLine) {
    std::wstring writable = commandLine; // Windows writes into it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process{};
    if (!create(nullptr, writable.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                nullptr, nullptr, &startup, &process)) {
        if (GetLastError() != ElevationRequired)
            ThrowLastError(Split(commandLine).program, Attempt::StartProgram);
        StartElevated(commandLine);
        return;
    }
    const UniqueHandle closesProcess(process.hProcess);
    const UniqueHandle closesThread(process.hThread);
}

// The shell asks the user. One who refuses knows why nothing starts: that is no error.
void Win32ProgramStarter::StartElevated(const std::wstring& commandLine) {
    const CommandLine command = Split(commandLine);
    SHELLEXECUTEINFOW execution{};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    execution.lpFile = command.program.c_str();
    execution.lpParameters = command.arguments.c_str();
    execution.nShow = SW_SHOWMINIMIZED;
    if (!execute(&execution) && GetLastError() != ERROR_CANCELLED)
        ThrowLastError(command.program, Attempt::StartProgram);
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
    execute(&execution);
}

} // namespace tamblin
