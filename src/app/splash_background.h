// What lies behind the splash window's labels.
#pragma once

#include "ui/windows_headers.h"

namespace tamblin {

// A pattern for an area of that size in pixels, with lines as wide as the font's dialog unit asks
// for. The caller's to delete.
HBRUSH MakeSplashBackground(SIZE size, int unit);

} // namespace tamblin
