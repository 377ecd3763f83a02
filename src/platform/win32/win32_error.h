// Windows' error codes in the program's numbering; the one place where they are translated.
#pragma once

#include "base/run_time_error.h"

namespace tamblin {

// ERROR_ELEVATION_REQUIRED, for which not every set of Windows headers has a name.
inline constexpr unsigned long ElevationRequired = 740;

// What was attempted: a few codes mean different things by it.
enum class Attempt { OnFile, Find, List, EnterFolder, MakeFolder, RemoveFolder, StartProgram };

ErrorNumber ErrorNumberOf(unsigned long code, Attempt attempt = Attempt::OnFile);

[[noreturn]] void ThrowError(unsigned long code, Attempt attempt = Attempt::OnFile);
// For the code of the Windows call that has just failed.
[[noreturn]] void ThrowLastError(Attempt attempt = Attempt::OnFile);

} // namespace tamblin
