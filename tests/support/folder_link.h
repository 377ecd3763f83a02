// Links to folders on a real Windows disk, or on what Wine shows as one.
#pragma once

#ifdef _WIN32

#include <string>

namespace tamblin {

bool RunsUnderWine();

// A symbolic link, on Windows and under Wine. Both paths are absolute. False where the user may not
// make links.
bool MakeFolderLink(const std::wstring& path, const std::wstring& target);

// A junction, by setting a reparse point. False where the system has none.
bool MakeJunction(const std::wstring& path, const std::wstring& target);

// Removes the link, not what it points to.
void RemoveFolderLink(const std::wstring& path);

} // namespace tamblin

#endif
