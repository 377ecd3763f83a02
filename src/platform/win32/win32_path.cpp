#include "platform/win32/win32_path.h"

#include <windows.h>

#include <algorithm>

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "platform/path_form.h"
#include "platform/win32/win32_error.h"

namespace tamblin {
namespace {

std::wstring ExpandPath(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(full.size());
        const DWORD length = GetFullPathNameW(path.c_str(), room, full.data(), nullptr);
        if (length == 0)
            ThrowLastError(path);
        full.resize(length);
        if (length < room)
            return full;
    }
}

} // namespace

std::wstring FullPath(const std::wstring& path) {
    if (!IsWellFormedPath(path))
        throw RunTimeError(ErrorNumber::BadFileName, path);
    std::wstring full = ExpandPath(path.empty() ? L"." : path);
    while (full.ends_with(L'\\') && !IsRoot(full))
        full.pop_back();
    return full;
}

std::wstring PathForWindows(const std::wstring& fullPath) {
    if (fullPath.size() <= LongestFolder)
        return fullPath;
    if (fullPath.starts_with(L"\\\\"))
        return L"\\\\?\\UNC" + fullPath.substr(1);
    return L"\\\\?\\" + fullPath;
}

std::wstring RootOf(const std::wstring& fullPath) {
    if (!fullPath.starts_with(L"\\\\"))
        return fullPath.substr(0, 3);
    const size_t serverEnd = std::min(fullPath.find(L'\\', 2), fullPath.size());
    const size_t shareEnd = std::min(fullPath.find(L'\\', serverEnd + 1), fullPath.size());
    return WithBackslash(fullPath.substr(0, shareEnd));
}

bool IsRoot(const std::wstring& fullPath) {
    return WithBackslash(fullPath) == RootOf(fullPath);
}

bool EndsInSeparator(const std::wstring& path) {
    return path.ends_with(L'\\') || path.ends_with(L'/');
}

bool IsDots(std::wstring_view name) {
    return name == L"." || name == L"..";
}

} // namespace tamblin
