// Dots per inch, monitor by monitor where the system knows that and one value for all where it does
// not. 96 is the scale 1.
#pragma once

#include "ui/gdi_object.h"

namespace tamblin {

unsigned DpiOf(HWND window);

// The font in which the system writes message boxes, for a given density.
GdiObject<HFONT> CreateMessageFont(unsigned dpi);

// The window rectangle that surrounds a client area.
RECT AroundClientArea(const RECT& client, DWORD style, DWORD extendedStyle, unsigned dpi);

int SystemMetric(int index, unsigned dpi);

// The part of a window's monitor that is free of the task bar.
RECT WorkAreaOf(HWND window);

} // namespace tamblin
