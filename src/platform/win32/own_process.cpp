#include "platform/win32/own_process.h"

#include <windows.h>

#include "base/text.h"
#include "base/win32/function_of.h"
#include "platform/win32/win32_error.h"

namespace tamblin {
namespace {

constexpr DWORD searchSystemFolder = 0x800; // LOAD_LIBRARY_SEARCH_SYSTEM32

std::wstring ProgramFile() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(file.size());
        const DWORD length = GetModuleFileNameW(nullptr, file.data(), room);
        if (length == 0)
            ThrowLastError({});
        if (length < room) {
            file.resize(length);
            return file;
        }
        file.resize(file.size() * 2);
    }
}

} // namespace

std::wstring ProgramFolder() {
    std::wstring file = ProgramFile();
    if (file.starts_with(L"\\\\?\\") && file.size() > 5 && file[5] == L':')
        file.erase(0, 4);
    return WithoutBackslash(file.substr(0, file.rfind(L'\\') + 1));
}

// A Windows 7 without its updates lacks the function, and is kept from the current folder at least.
void LoadDllsFromSystemOnly() {
    SetDllDirectoryW(L"");
    if (auto* const set = FunctionOf<BOOL WINAPI(DWORD)>(GetModuleHandleW(L"kernel32.dll"),
                                                         "SetDefaultDllDirectories"))
        set(searchSystemFolder);
}

} // namespace tamblin
