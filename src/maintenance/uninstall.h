// Removing installed characters for good.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// Asks, then deletes the folder of every selected character and the definition file of the last of
// them, unless that one's folder could not be deleted. Throws RunTimeError 53 when that file is not
// there; the folders are gone by then.
void Uninstall(MainModel& model, SettingsState& state, Platform& platform);

} // namespace tamblin
