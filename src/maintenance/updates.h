// Replacing the host program, or a character's definition file, with a newer copy. No backup is
// kept. A missing source ends either command silently. Both throw RunTimeError when the copy fails;
// the replaced file is then as it was.
#pragma once

#include "install/main_model.h"
#include "platform/platform.h"

namespace tamblin {

// From the folder that the browser shows.
void UpdateHostProgram(MainModel& model, Platform& platform);

// From the file selected in the browser, or, when the selection rules have found one there, from
// the character's own folder.
void UpdateDefinitionFile(MainModel& model, Platform& platform);

} // namespace tamblin
