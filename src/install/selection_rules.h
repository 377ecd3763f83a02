// Which commands the selections of the file list and the installed list enable.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Runs on every click in either list. May deselect program files in a multiple selection. Leaves
// the program folder current.
void ApplySelectionRules(MainModel& model, const SettingsState& state, Platform& platform);

// Once nothing is selected in the installed list any more, no command that needs a character can be
// used.
void DisableCharacterCommands(MainModel& model);

// The README documents that a character may carry, in the order in which they are shown: paths
// without regard to whether they exist.
std::vector<std::wstring> ReadmeCandidates(const std::wstring& hostFolder,
                                           const std::wstring& character);

bool HasReadme(const std::wstring& hostFolder, const std::wstring& character, Platform& platform);

// Where a character's own updates deliver its newer definition file.
std::wstring DeliveredDefinitionFile(const std::wstring& hostFolder, const std::wstring& character);

} // namespace tamblin
