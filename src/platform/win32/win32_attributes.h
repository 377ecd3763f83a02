// Windows' attribute bits and the program's.
#pragma once

#include <windows.h>

#include "platform/file_system.h"

namespace tamblin {

// The attributes of something found by FindFirstFile.
FileAttributes AttributesOf(const WIN32_FIND_DATAW& found);

// True for a folder that is a symbolic link of the system under Wine. Wine follows it in every
// call: removing or renaming it would hit the folder that it points to.
bool IsHostLink(const WIN32_FIND_DATAW& found);

// The bits with what `attributes` says in place of what the program can set.
DWORD WithAttributes(DWORD bits, const FileAttributes& attributes);

} // namespace tamblin
