// Moving what is left in the staging folder into the host folder.
#pragma once

#include <string>

#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Definition files go straight into the host folder, every package folder is made there, unless it
// is there already, with all it holds; the staging folder is gone afterwards and the program folder
// current. Shows a package's "-X.txt" note and merges its KVA.DEF when the user allows it.
//
// Throws RunTimeError. Before anything moves: 61 when the host folder is not on the staging
// folder's drive and its own has too little room, 70 or 75 when a file that is to be replaced is in
// use, read-only, or a folder. What was moved by a later one stays, and the same install can
// complete it.
void CopyStagedTree(const std::wstring& hostFolder, const SettingsState& state, Platform& platform);

} // namespace tamblin
