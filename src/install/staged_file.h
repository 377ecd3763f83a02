// What happens to single files of the staging folder.
#pragma once

#include <string>

#include "platform/file_system.h"

namespace tamblin {

// Deletes a file of the staging folder. Archives carry read-only files; that they are read-only
// protects the installed file, not its staged copy.
void DeleteStagedFile(const std::wstring& file, FileSystem& files);

} // namespace tamblin
