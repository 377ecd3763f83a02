// Reading the installed characters from the host folder.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Runs whenever the combo's choice may have changed: makes it the current host folder and lists
// the characters that have both a definition file and a folder. Throws RunTimeError when the
// folder cannot be listed; the list is then empty.
void RefreshInstalledList(MainModel& model, SettingsState& state, Platform& platform);

// Reads the listings behind the list anew, not the list itself. An empty folder name has nothing.
void ListHostFolder(InstalledList& installed, const std::wstring& hostFolder, Platform& platform);

} // namespace tamblin
