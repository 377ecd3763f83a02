// Merging a package's launcher entries into the host folder's kva.def.
#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"

namespace tamblin {

// The host file's new contents: entries whose first two comma-separated fields a package entry
// starts with are replaced in place, unused package entries but the first are appended, the host
// file's comments and empty lines stay, the package's go.
std::string MergedKavaletDefinitions(std::string_view former, std::string_view package);

// Merges `packageFile` (the package's file as copied into the host folder) into kva.def, which
// takes `packageFileName` as its name; the former one stays as kva.tmp. Does nothing without a
// kva.def. `hostFolder` ends in "\". Throws RunTimeError; the former content then still exists
// under one of the two names.
void MergeKavaletDefinitions(const std::wstring& packageFileName, const std::wstring& packageFile,
                             const std::wstring& hostFolder, Platform& platform);

} // namespace tamblin
