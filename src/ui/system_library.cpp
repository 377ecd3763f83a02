#include "ui/system_library.h"

#include <string>

namespace tamblin {

// A Windows 7 without its updates does not know the flag, and is given the whole path.
HMODULE SystemLibrary(const wchar_t* name) {
    const HMODULE library = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library || GetLastError() != ERROR_INVALID_PARAMETER)
        return library;
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        return nullptr;
    const std::wstring path = std::wstring(folder, length) + L'\\' + name;
    return LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

} // namespace tamblin
