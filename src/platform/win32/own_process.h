// The process that the program runs in.
#pragma once

#include <string>

namespace tamblin {

// Where the program's own file lies. Without a trailing "\" unless it is a root.
std::wstring ProgramFolder();

// From now on Windows looks for the libraries that this process loads in its own folder only:
// neither beside the program, which may lie among downloads, nor in the current folder, which may
// hold an unpacked package. To be called first of all.
void LoadDllsFromSystemOnly();

} // namespace tamblin
