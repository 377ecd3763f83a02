// Which buttons the selections of the file list and the installed list enable.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Runs on every click in either list. May deselect program files in a multiple selection. Leaves
// the program folder current.
void ApplySelectionRules(MainModel& model, const SettingsState& state, Platform& platform);

// What the buttons show once nothing is selected in the installed list any more: none of those that
// need a character can be pressed.
void DisableCharacterButtons(MainModel& model);

// The README documents that a character may carry, in the order in which they are shown: paths
// without regard to whether they exist.
std::vector<std::wstring> ReadmeCandidates(const std::wstring& hostFolder,
                                           const std::wstring& character);

// Where a character's own updates deliver its newer definition file.
std::wstring DeliveredDefinitionFile(const std::wstring& hostFolder, const std::wstring& character);

} // namespace tamblin
