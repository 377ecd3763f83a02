// Moving what is left in the staging folder into the host folder.
#pragma once

#include <string>

#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Definition files go straight into the host folder, every package folder is made there, unless it
// is there already, with all it holds; the staging folder is gone afterwards and the program folder
// current. Shows a package's "-X.txt" note and merges its KVA.DEF when the user allows it. Throws
// RunTimeError; what was moved by then stays, and the same install can complete it.
void CopyStagedTree(const std::wstring& hostFolder, const SettingsState& state, Platform& platform);

} // namespace tamblin
