#include "process_operations.h"

#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>
#include <iterator>
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

// What the system itself is made of. A program that comes with it, such as an editor, is none of
// it.
bool IsSystem(const PROCESSENTRY32W& entry) {
    constexpr const wchar_t* names[] = {L"conhost.exe",   L"explorer.exe", L"plugplay.exe",
                                        L"rpcss.exe",     L"services.exe", L"svchost.exe",
                                        L"winedevice.exe"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](const wchar_t* name) { return lstrcmpiW(entry.szExeFile, name) == 0; });
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
        if (IsSystem(entry) || entry.th32ProcessID == GetCurrentProcessId())
            continue;
        const Handle process(
            OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, entry.th32ProcessID), CloseHandle);
        if (process != nullptr) {
            TerminateProcess(process.get(), 1);
            WaitForSingleObject(process.get(), INFINITE);
        }
    }
    return "true";
}

} // namespace tamblin
