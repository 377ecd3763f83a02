// What the operator does about running programs.
#pragma once

#include <string>

namespace tamblin {

// The programs running: number and file name.
std::string Processes();

// Ends every program but this one and what the system is made of, at once.
std::string EndPrograms();

} // namespace tamblin
