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

// Whether a file stands at a path of which it is not known whether it can exist: one with a drive
// that is not there, or with characters that no name has, names no file.
bool ProbeFile(FileSystem& files, const std::wstring& path);

// The same for the commands that end silently when a file they need is missing: on a drive that is
// not ready none is there either.
std::optional<FolderEntry> FindNeededFile(FileSystem& files, const std::wstring& path);

} // namespace tamblin
