#include "platform/win32/win32_file_error.h"

#include "platform/win32/win32_path.h"

namespace tamblin {

bool MeansNotThere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
           code == ERROR_DIRECTORY || code == ERROR_INVALID_NAME;
}

void CheckDrive(const std::wstring& fullPath, ErrorNumber missing, ErrorNumber notReady) {
    switch (StateOfDrive(fullPath)) {
        case DriveState::Missing:
            throw RunTimeError(missing);
        case DriveState::NotReady:
            throw RunTimeError(notReady);
        case DriveState::Ready:
            break;
    }
}

// A missing drive is reported as a missing file by some calls, as a missing folder by others.
void ThrowFileError(const std::wstring& fullPath, Attempt attempt) {
    const DWORD code = GetLastError();
    if (MeansNotThere(code))
        CheckDrive(fullPath, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
    throw RunTimeError(ErrorNumberOf(code, attempt), fullPath);
}

void ThrowFolderError(const std::wstring& fullPath, Attempt attempt) {
    const DWORD code = GetLastError();
    if (!MeansNotThere(code))
        ThrowError(code, attempt);
    CheckDrive(fullPath, ErrorNumber::DeviceUnavailable, ErrorNumber::DeviceUnavailable);
    throw RunTimeError(ErrorNumber::PathNotFound);
}

} // namespace tamblin
