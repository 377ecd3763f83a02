#include "process_operations.h"

#include <windows.h>

#include <tlhelp32.h>

#include <memory>
#include <vector>

#include "json.h"

namespace tamblin {

namespace {

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

std::vector<PROCESSENTRY32W> RunningProcesses() {
    const Handle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0), CloseHandle);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    std::vector<PROCESSENTRY32W> processes;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more != 0;
         more = Process32NextW(snapshot.get(), &entry)) {
        processes.push_back(entry);
    }
    return processes;
}

bool IsOfWindows(HANDLE process) {
    wchar_t program[MAX_PATH];
    DWORD length = MAX_PATH;
    wchar_t windows[MAX_PATH];
    const UINT prefix = GetWindowsDirectoryW(windows, MAX_PATH);
    return QueryFullProcessImageNameW(process, 0, program, &length) != 0 && length > prefix &&
           CompareStringOrdinal(program, static_cast<int>(prefix), windows,
                                static_cast<int>(prefix), TRUE) == CSTR_EQUAL;
}

} // namespace

std::string Processes() {
    std::vector<std::string> processes;
    for (const PROCESSENTRY32W& entry : RunningProcesses()) {
        processes.push_back(JsonObject(
            {{"process", JsonNumber(entry.th32ProcessID)}, {"name", JsonText(entry.szExeFile)}}));
    }
    return JsonArray(processes);
}

std::string EndPrograms() {
    for (const PROCESSENTRY32W& entry : RunningProcesses()) {
        const Handle process(
            OpenProcess(PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                        entry.th32ProcessID),
            CloseHandle);
        if (process != nullptr && entry.th32ProcessID != GetCurrentProcessId() &&
            !IsOfWindows(process.get())) {
            TerminateProcess(process.get(), 1);
            WaitForSingleObject(process.get(), INFINITE);
        }
    }
    return "true";
}

} // namespace tamblin
