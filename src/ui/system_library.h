// Libraries of Windows that are loaded when they are wanted.
#pragma once

#include "ui/windows_headers.h"

namespace tamblin {

// The library of that name from Windows' own folder and from nowhere else, loaded when it is not
// yet; null when Windows has none. It stays loaded.
HMODULE SystemLibrary(const wchar_t* name);

} // namespace tamblin
