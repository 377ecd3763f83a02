// The lists that the windows show of a folder, and the question whether a file is there.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tamblin {

// A folder's contents as shown: files that are hidden or system are left out, folders never are.
struct FolderListing {
    std::vector<std::wstring> folders; // names
    std::vector<std::wstring> files;   // names
};

FolderListing ListFolder(FileSystem& files, const std::wstring& folder);

// True when a file of any attributes stands at the path; a folder there is no file.
bool FileExists(FileSystem& files, const std::wstring& path);

// The file at a path of which it is not known whether it can exist: one with a drive that is not
// there, or with characters that no name has, names no file.
std::optional<FolderEntry> FindFile(FileSystem& files, const std::wstring& path);
bool ProbeFile(FileSystem& files, const std::wstring& path);

} // namespace tamblin
