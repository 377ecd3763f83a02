// Push buttons as the system's visual style draws them.
#pragma once

#include "ui/windows_headers.h"

namespace tamblin {

// `state` is one of PBS_NORMAL, PBS_HOT ... False when visual styles are off.
bool DrawThemedButton(HWND button, HDC target, const RECT& area, int state);

} // namespace tamblin
