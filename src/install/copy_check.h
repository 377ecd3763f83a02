// What can be known of a copy before its first file moves, so that as few installs as possible end
// half way.
#pragma once

#include <set>
#include <string>

#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Throws RunTimeError 61 when the host folder is not on the staging folder's drive and its own has
// too little room, 70 or 75 when a file that is to be replaced is in use, read-only, or a folder.
// Both folders end in "\". Returns the staged files, counted from the staging folder, that need not
// be copied: an install that broke off has left the same ones read-only in the host folder. No part
// of the work is done by that.
std::set<std::wstring> CheckCopyPossible(const std::wstring& stagingFolder,
                                         const std::wstring& hostFolder, const SettingsState& state,
                                         Platform& platform, WorkUnderWay& work);

} // namespace tamblin
