// What a call of Windows on a file or folder has failed for.
#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/win32_error.h"

namespace tamblin {

// True for the codes of a file or folder that is not there. Names are well formed by the time that
// Windows sees them. When it calls one invalid all the same, a file stands where it wants a folder.
bool MeansNotThere(DWORD code);

// Windows reports a missing drive as a missing folder. Sees to it that the drive itself is there.
void CheckDrive(const std::wstring& fullPath, ErrorNumber missing, ErrorNumber notReady);

// For a call that has just failed on something at this path.
[[noreturn]] void ThrowFileError(const std::wstring& fullPath, Attempt attempt = Attempt::OnFile);

// The same for the two attempts that open a folder.
[[noreturn]] void ThrowFolderError(const std::wstring& fullPath, Attempt attempt);

} // namespace tamblin
