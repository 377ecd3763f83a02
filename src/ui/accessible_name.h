// Tells screen readers the name of a window that shows none itself.
#pragma once

#include <string>

#include "ui/windows_headers.h"

namespace tamblin {

// The thread has COM initialised (apartment). Does nothing on a system without the service.
void AnnotateAccessibleName(HWND window, const std::wstring& name);

} // namespace tamblin
