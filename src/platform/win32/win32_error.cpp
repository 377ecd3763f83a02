#include "platform/win32/win32_error.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

using enum ErrorNumber;

// Codes for which not every set of Windows headers has a name.
constexpr DWORD errorVirusInfected = 225;
constexpr DWORD errorVirusDeleted = 226;
constexpr DWORD errorDiskQuotaExceeded = 1295;
constexpr DWORD errorFirstOfCloudFiles = 358; // placeholders of files kept elsewhere
constexpr DWORD errorLastOfCloudFiles = 404;
constexpr DWORD errorLockedVolume = 0x80310000; // encrypted, and the key has not been given

struct Translation {
    DWORD code;
    ErrorNumber number;
};

struct SpecialTranslation {
    Attempt attempt;
    DWORD code;
    ErrorNumber number;
};

constexpr Translation translations[] = {
    {ERROR_FILE_NOT_FOUND, FileNotFound},
    {ERROR_PATH_NOT_FOUND, PathNotFound},
    {ERROR_DIRECTORY, PathNotFound}, // a file where a folder is wanted
    {ERROR_INVALID_NAME, BadFileName},
    {ERROR_BAD_PATHNAME, BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, BadFileName},
    {ERROR_TOO_MANY_OPEN_FILES, TooManyFiles},
    {ERROR_NOT_ENOUGH_MEMORY, OutOfMemory},
    {ERROR_OUTOFMEMORY, OutOfMemory},
    {ERROR_NO_SYSTEM_RESOURCES, OutOfMemory},
    {ERROR_ACCESS_DENIED, PathFileAccess},
    {ERROR_WRITE_PROTECT, PathFileAccess},
    {ERROR_CURRENT_DIRECTORY, PathFileAccess},
    {ERROR_NOT_SAME_DEVICE, PathFileAccess},
    {ERROR_CANNOT_MAKE, PathFileAccess},
    {ERROR_DIR_NOT_EMPTY, PathFileAccess},
    {ERROR_PRIVILEGE_NOT_HELD, PathFileAccess},
    {ERROR_CANT_ACCESS_FILE, PathFileAccess},
    {ERROR_CANT_RESOLVE_FILENAME, PathFileAccess},
    {ERROR_INVALID_REPARSE_DATA, PathFileAccess},
    {ERROR_REPARSE_TAG_INVALID, PathFileAccess},
    {errorVirusInfected, PathFileAccess},
    {errorVirusDeleted, PathFileAccess},
    {ERROR_SHARING_VIOLATION, PermissionDenied},
    {ERROR_LOCK_VIOLATION, PermissionDenied},
    {ERROR_USER_MAPPED_FILE, PermissionDenied},
    {ERROR_DELETE_PENDING, PermissionDenied},
    {ERROR_FILE_EXISTS, FileAlreadyExists},
    {ERROR_ALREADY_EXISTS, FileAlreadyExists},
    {ERROR_HANDLE_DISK_FULL, DiskFull},
    {ERROR_DISK_FULL, DiskFull},
    {errorDiskQuotaExceeded, DiskFull},
    {ERROR_NOT_READY, DiskNotReady},
    {ERROR_BAD_UNIT, DiskNotReady},
    {ERROR_WRONG_DISK, DiskNotReady},
    {ERROR_UNRECOGNIZED_VOLUME, DiskNotReady},
    {ERROR_MEDIA_CHANGED, DiskNotReady},
    {ERROR_NO_MEDIA_IN_DRIVE, DiskNotReady},
    {errorLockedVolume, DiskNotReady},
};

constexpr SpecialTranslation specialTranslations[] = {
    {Attempt::MakeFolder, ERROR_FILE_EXISTS, PathFileAccess},
    {Attempt::MakeFolder, ERROR_ALREADY_EXISTS, PathFileAccess},
    {Attempt::RemoveFolder, ERROR_FILE_NOT_FOUND, PathNotFound},
    // A folder is held by the process whose current folder it is.
    {Attempt::RemoveFolder, ERROR_SHARING_VIOLATION, PathFileAccess},
    {Attempt::StartProgram, ERROR_PATH_NOT_FOUND, FileNotFound},
    {Attempt::StartProgram, ERROR_BAD_EXE_FORMAT, PathFileAccess},
    {Attempt::StartProgram, ERROR_EXE_MACHINE_TYPE_MISMATCH, PathFileAccess},
    {Attempt::StartProgram, ElevationRequired, PathFileAccess},
};

// All that is wrong with its drive is one error for what opens a folder.
bool OpensFolder(Attempt attempt) {
    return attempt == Attempt::List || attempt == Attempt::EnterFolder;
}

bool MeansMissingDrive(DWORD code) {
    return code == ERROR_INVALID_DRIVE || code == ERROR_BAD_NETPATH || code == ERROR_BAD_NET_NAME ||
           code == ERROR_DEV_NOT_EXIST || code == ERROR_NETWORK_UNREACHABLE;
}

ErrorNumber ForMissingDrive(Attempt attempt) {
    if (attempt == Attempt::Find)
        return BadFileName;
    return OpensFolder(attempt) ? DeviceUnavailable : PathNotFound;
}

ErrorNumber Translate(DWORD code) {
    if (code >= errorFirstOfCloudFiles && code <= errorLastOfCloudFiles)
        return PathFileAccess;
    const auto* const found =
        std::find_if(std::begin(translations), std::end(translations),
                     [&](const Translation& entry) { return entry.code == code; });
    return found == std::end(translations) ? DeviceIo : found->number;
}

} // namespace

ErrorNumber ErrorNumberOf(DWORD code, Attempt attempt) {
    for (const SpecialTranslation& special : specialTranslations)
        if (special.attempt == attempt && special.code == code)
            return special.number;
    if (MeansMissingDrive(code))
        return ForMissingDrive(attempt);
    const ErrorNumber number = Translate(code);
    if (OpensFolder(attempt) && number == DiskNotReady)
        return DeviceUnavailable;
    return OpensFolder(attempt) && number == FileNotFound ? PathNotFound : number;
}

void ThrowLastError(const std::wstring& fullPath, Attempt attempt) {
    const DWORD code = GetLastError();
    throw RunTimeError(ErrorNumberOf(code, attempt), fullPath);
}

bool MeansNotThere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
           code == ERROR_DIRECTORY || code == ERROR_INVALID_NAME;
}

void CheckDrive(const std::wstring& fullPath, ErrorNumber missing, ErrorNumber notReady) {
    const std::wstring root = RootOf(fullPath);
    if (GetDriveTypeW(root.c_str()) == DRIVE_NO_ROOT_DIR)
        throw RunTimeError(missing, fullPath);
    if (GetFileAttributesW(root.c_str()) == INVALID_FILE_ATTRIBUTES)
        throw RunTimeError(notReady, fullPath);
}

// A missing drive is reported as a missing file by some calls, as a missing folder by others.
void ThrowFileError(const std::wstring& fullPath, Attempt attempt) {
    const DWORD code = GetLastError();
    if (MeansNotThere(code))
        CheckDrive(fullPath, PathNotFound, DiskNotReady);
    throw RunTimeError(ErrorNumberOf(code, attempt), fullPath);
}

void ThrowFolderError(const std::wstring& fullPath, Attempt attempt) {
    if (!MeansNotThere(GetLastError()))
        ThrowLastError(fullPath, attempt);
    CheckDrive(fullPath, DeviceUnavailable, DeviceUnavailable);
    throw RunTimeError(PathNotFound, fullPath);
}

} // namespace tamblin
