// Which texts can be paths at all, on every drive and every version of Windows.
#pragma once

#include <string_view>

namespace tamblin {

// False for what no drive accepts (wildcards, < > | ", control characters, a colon that does not
// follow a drive letter, names of more than 255 characters) and for what reaches something other
// than a file on a drive: devices (CON, NUL.txt), streams (a:b), the \\?\ and \\.\ name spaces.
// An empty path is well formed; it is the current folder.
bool IsWellFormedPath(std::wstring_view path);

// True for a path that means the same whatever the current drive and folder: "C:\a", "\\server\a",
// but not "C:", "\a" or "a".
bool IsFullPath(std::wstring_view path);

} // namespace tamblin
