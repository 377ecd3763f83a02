// Starting the host with a chosen character and showing a character's README, from the buttons and
// from the installed list's menu alike. Both act on the first selected character.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"

namespace tamblin {

// Ends silently when there is no selection or the host program, the definition file or the start-up
// file is missing. The definition file is the one at the selection's position in the host
// folder's listing. Leaves the program folder current.
void LaunchCharacter(const MainModel& model, Platform& platform);

// Opens every README document that the character has.
void ShowReadme(const MainModel& model, Platform& platform);

} // namespace tamblin
