// Where Windows looks for the libraries that this process loads.
#pragma once

namespace tamblin {

// From now on only in its own folder: neither beside the program, which may lie among downloads,
// nor in the current folder, which may hold an unpacked package. To be called first of all.
void LoadDllsFromSystemOnly();

} // namespace tamblin
