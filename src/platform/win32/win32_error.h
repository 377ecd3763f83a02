// What a call of Windows has failed for: its error codes in the program's numbering, and the file
// or folder. The one place where they are translated.
#pragma once

#include <windows.h>

#include <string>

#include "base/run_time_error.h"

namespace tamblin {

// ERROR_ELEVATION_REQUIRED, for which not every set of Windows headers has a name.
inline constexpr DWORD ElevationRequired = 740;

// What was attempted: a few codes mean different things by it.
enum class Attempt { OnFile, Find, List, EnterFolder, MakeFolder, RemoveFolder, StartProgram };

ErrorNumber ErrorNumberOf(DWORD code, Attempt attempt = Attempt::OnFile);

// True for the codes of a file or folder that is not there. Names are well formed by the time that
// Windows sees them. When it calls one invalid all the same, a file stands where it wants a folder.
bool MeansNotThere(DWORD code);

// Windows reports a missing drive as a missing folder. Sees to it that the drive itself is there.
void CheckDrive(const std::wstring& fullPath, ErrorNumber missing, ErrorNumber notReady);

// For a call that has just failed on something at this path, whose drive is there.
[[noreturn]] void ThrowLastError(const std::wstring& fullPath, Attempt attempt = Attempt::OnFile);
// Where it may not be.
[[noreturn]] void ThrowFileError(const std::wstring& fullPath, Attempt attempt = Attempt::OnFile);
// The same for the two attempts that open a folder.
[[noreturn]] void ThrowFolderError(const std::wstring& fullPath, Attempt attempt);

} // namespace tamblin
