// Merging a package's launcher entries into the host folder's kva.def.
#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// The host file's new contents: entries whose first two comma-separated fields a package entry
// starts with are replaced in place, unused package entries but the first are appended, the host
// file's comments and empty lines stay, the package's go.
std::string MergedKavaletDefinitions(std::string_view former, std::string_view package);

// True for a package's file that is to be merged: one inside a package's folder, counted from the
// staging folder, when the user allows it.
bool MergesDefinitions(const std::wstring& folder, const std::wstring& name,
                       const SettingsState& state);

// Throws RunTimeError when the host folder's kva.def could not be replaced by a merge.
void CheckDefinitionsReplaceable(const std::wstring& hostFolder, Platform& platform);

// Merges `packageFile` (the package's file as copied into the host folder) into kva.def, which
// takes `packageFileName` as its name (the same but for letter case); the former one stays as
// kva.tmp. Does nothing without a kva.def. `hostFolder` ends in "\". Throws RunTimeError. Whatever
// fails, there is always a kva.def, with the former contents or the merged ones.
void MergeKavaletDefinitions(const std::wstring& packageFileName, const std::wstring& packageFile,
                             const std::wstring& hostFolder, Platform& platform);

} // namespace tamblin
