// Paths on their way into Windows' calls.
#pragma once

#include <string>
#include <string_view>

namespace tamblin {

// The absolute path without "." and ".." and, but for a root, without a trailing "\". An empty
// path is the current folder. Throws RunTimeError 52 for a malformed one.
std::wstring FullPath(const std::wstring& path);

// The form of a full path that Windows' calls take at any length.
std::wstring PathForWindows(const std::wstring& fullPath);

// "C:\" or "\\server\share\" of a full path.
std::wstring RootOf(const std::wstring& fullPath);
bool IsRoot(const std::wstring& fullPath);

bool EndsInSeparator(const std::wstring& path);

// What every listing of a folder has besides its entries: "." and "..".
bool IsDots(std::wstring_view name);

} // namespace tamblin
