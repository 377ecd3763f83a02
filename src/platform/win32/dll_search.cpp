#include "platform/win32/dll_search.h"

#include <windows.h>

namespace tamblin {
namespace {

constexpr DWORD searchSystemFolder = 0x800; // LOAD_LIBRARY_SEARCH_SYSTEM32

} // namespace

// A Windows 7 without its updates lacks the function, and is kept from the current folder at least.
void LoadDllsFromSystemOnly() {
    SetDllDirectoryW(L"");
    const auto address =
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
    using SetDirectories = BOOL WINAPI(DWORD);
    if (auto* const set = reinterpret_cast<SetDirectories*>(reinterpret_cast<void*>(address)))
        set(searchSystemFolder);
}

} // namespace tamblin
