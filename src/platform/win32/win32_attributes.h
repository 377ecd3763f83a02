// Windows' attribute bits and the program's.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace tamblin {

// Windows' bits of what stands at a full path; INVALID_FILE_ATTRIBUTES when nothing does.
DWORD BitsOf(const std::wstring& fullPath);
bool HasBits(const std::wstring& fullPath, DWORD wanted);

// What FindFirstFile tells of what stands at a full path; nothing when there is no such thing, and
// GetLastError() then tells why.
std::optional<WIN32_FIND_DATAW> FindAt(const std::wstring& fullPath);

// The attributes of something found by FindFirstFile.
FileAttributes AttributesOf(const WIN32_FIND_DATAW& found);

// True for a folder that is a symbolic link of the system under Wine, which follows it in every
// call: removing or renaming it would hit the folder that it points to.
bool IsUnixLink(const WIN32_FIND_DATAW& found);

// The bits with what `attributes` says in place of what the program can set.
DWORD WithAttributes(DWORD bits, const FileAttributes& attributes);

} // namespace tamblin
