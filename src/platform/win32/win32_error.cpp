#include "platform/win32/win32_error.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

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
    {ERROR_INVALID_DRIVE, PathNotFound},
    {ERROR_DIRECTORY, PathNotFound}, // a file where a folder is wanted
    {ERROR_BAD_NETPATH, PathNotFound},
    {ERROR_BAD_NET_NAME, PathNotFound},
    {ERROR_DEV_NOT_EXIST, PathNotFound},
    {ERROR_NETWORK_UNREACHABLE, PathNotFound},
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
    {Attempt::Find, ERROR_INVALID_DRIVE, BadFileName},
    {Attempt::Find, ERROR_BAD_NETPATH, BadFileName},
    {Attempt::Find, ERROR_BAD_NET_NAME, BadFileName},
    {Attempt::Find, ERROR_DEV_NOT_EXIST, BadFileName},
    {Attempt::Find, ERROR_NETWORK_UNREACHABLE, BadFileName},
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

// For the two attempts that open a folder, all that is wrong with its drive is one error.
ErrorNumber ForOpeningAFolder(DWORD code, ErrorNumber number) {
    switch (code) {
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_DEV_NOT_EXIST:
        case ERROR_NETWORK_UNREACHABLE:
            return DeviceUnavailable;
        default:
            break;
    }
    if (number == DiskNotReady)
        return DeviceUnavailable;
    return number == FileNotFound ? PathNotFound : number;
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

ErrorNumber ErrorNumberOf(unsigned long code, Attempt attempt) {
    for (const SpecialTranslation& special : specialTranslations)
        if (special.attempt == attempt && special.code == code)
            return special.number;
    const ErrorNumber number = Translate(code);
    const bool opensFolder = attempt == Attempt::List || attempt == Attempt::EnterFolder;
    return opensFolder ? ForOpeningAFolder(code, number) : number;
}

void ThrowError(unsigned long code, Attempt attempt) {
    throw RunTimeError(ErrorNumberOf(code, attempt));
}

void ThrowLastError(Attempt attempt) {
    ThrowError(GetLastError(), attempt);
}

} // namespace tamblin
