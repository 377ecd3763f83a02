// Names that Windows takes for devices, in whichever folder they seem to be.
#pragma once

#include <string_view>

namespace tamblin {

// CON, NUL.txt, COM1, LPT¹ and the like, in any letter case.
bool IsDeviceName(std::wstring_view name);

} // namespace tamblin
