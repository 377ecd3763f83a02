// Where the program's own file lies.
#pragma once

#include <string>

namespace tamblin {

// Without a trailing "\" unless it is a root.
std::wstring ProgramFolder();

} // namespace tamblin
