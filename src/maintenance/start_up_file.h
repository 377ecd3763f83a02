// The host's start-up file ombrel.rc: one line that names the character the host brings up. The
// program never reads it, it replaces it.
#pragma once

#include <string>

#include "install/main_model.h"
#include "platform/platform.h"

namespace tamblin {

// Makes the first selected character the one that the host starts with from now on; whatever else
// the file held is lost. Does nothing without a selection. A name that the code page cannot hold is
// a RunTimeError 52, here and at a launch; the file is then as it was.
void SetStartUpCharacter(const MainModel& model, Platform& platform);

// The start-up file while a character is launched: the current folder's ombrel.rc is set aside as
// ombrel_rc.bak and replaced. A failure leaves what was done: the former content is then found
// under one of the two names.
void ReplaceStartUpFile(const std::wstring& definitionFile, Platform& platform);
void RestoreStartUpFile(Platform& platform);

} // namespace tamblin
