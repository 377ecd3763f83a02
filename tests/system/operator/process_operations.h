// What the operator does about running programs.
#pragma once

#include <string>

namespace tamblin {

// The programs running: number and file name.
std::string Processes();

// Ends every program but this one and those of Windows itself, at once.
std::string EndPrograms();

} // namespace tamblin
