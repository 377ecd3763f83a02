// Folders that are made, held, current or asked for their volume, and drives.
#include <windows.h>

#include "base/text.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"
#include "platform/win32/win32_permissions.h"

namespace tamblin {
namespace {

UniqueHandle OpenFolder(const std::wstring& folder) {
    return OpenAt(folder, FILE_READ_ATTRIBUTES, ShareAll, OPEN_EXISTING,
                  FILE_FLAG_BACKUP_SEMANTICS);
}

DWORD VolumeOf(const std::wstring& folder) {
    const UniqueHandle handle = OpenFolder(folder);
    BY_HANDLE_FILE_INFORMATION information;
    if (!handle || !GetFileInformationByHandle(handle.get(), &information))
        ThrowFolderError(folder, Attempt::EnterFolder);
    return information.dwVolumeSerialNumber;
}

bool TakesNewFiles(const std::wstring& folder) {
    return OpenAt(folder + L"\\new", GENERIC_WRITE | DELETE, 0, CREATE_NEW,
                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE) != nullptr;
}

} // namespace

void Win32FileSystem::MakeFolder(const std::wstring& folder) {
    busy.Tick();
    const std::wstring full = FullPath(folder);
    if (!Persist(patience, full,
                 [&] { return CreateDirectoryW(PathForWindows(full).c_str(), nullptr); }))
        ThrowFileError(full, Attempt::MakeFolder);
}

void Win32FileSystem::MakeFolderLike(const std::wstring& folder, const std::wstring& model) {
    const std::wstring full = FullPath(folder);
    const InheritedPermissions permissions(FullPath(model));
    const std::wstring path = PathForWindows(full);
    if (permissions.Attributes() && CreateDirectoryW(path.c_str(), permissions.Attributes())) {
        if (TakesNewFiles(full))
            return;
        RemoveDirectoryW(path.c_str());
    }
    MakeFolder(full);
}

// With write access to the folder, which no other program asks for, and which is not shared.
bool Win32FileSystem::HoldFolder(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    if (heldFolder && EqualIgnoringCase(full, heldFolderPath))
        return true;
    UniqueHandle handle =
        OpenAt(full, FILE_ADD_FILE, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING,
               FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
    if (!handle && GetLastError() == ERROR_SHARING_VIOLATION)
        return false;
    if (!handle)
        ThrowFolderError(full, Attempt::EnterFolder);
    heldFolder = std::move(handle);
    heldFolderPath = full;
    return true;
}

void Win32FileSystem::ReleaseFolder() {
    heldFolder.reset();
}

std::wstring Win32FileSystem::CurrentFolder() {
    return FullPath({});
}

// Windows remembers the folders of drives other than the current one in environment variables of
// this odd form, but leaves writing them to the programs.
void Win32FileSystem::SetCurrentFolder(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    if (!SetCurrentDirectoryW(full.c_str()))
        ThrowFolderError(full, Attempt::EnterFolder);
    if (full[1] == L':')
        SetEnvironmentVariableW((L'=' + UpperCase(full.substr(0, 2))).c_str(), full.c_str());
}

// A folder can be a link to another drive, and a drive be mounted into a folder.
bool Win32FileSystem::OnOneDrive(const std::wstring& folder, const std::wstring& other) {
    return VolumeOf(FullPath(folder)) == VolumeOf(FullPath(other));
}

std::wstring Win32FileSystem::RealPath(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    const UniqueHandle handle = OpenFolder(full);
    const DWORD room = handle ? GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0) : 0;
    std::wstring path(room, L'\0');
    const DWORD length =
        room > 0 ? GetFinalPathNameByHandleW(handle.get(), path.data(), room, 0) : 0;
    path.resize(length < room ? length : 0);
    return path.empty() ? full : path;
}

std::uint64_t Win32FileSystem::FreeBytes(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    ULARGE_INTEGER free{};
    if (!GetDiskFreeSpaceExW(WithBackslash(PathForWindows(full)).c_str(), &free, nullptr, nullptr))
        ThrowFolderError(full, Attempt::EnterFolder);
    return free.QuadPart;
}

std::vector<Drive> Win32FileSystem::Drives() {
    std::vector<Drive> drives;
    const DWORD present = GetLogicalDrives();
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter) {
        if ((present >> (letter - L'a') & 1U) == 0)
            continue;
        const std::wstring name{letter, L':'};
        drives.push_back({name, static_cast<DriveType>(GetDriveTypeW((name + L'\\').c_str()))});
    }
    return drives;
}

// Windows tells a mounted volume from a junction: it knows no volume by the latter's target.
std::optional<std::wstring> Win32FileSystem::FixedVolumeAt(const std::wstring& folder) {
    const std::wstring root = WithBackslash(FullPath(folder));
    wchar_t name[MAX_PATH];
    if (!GetVolumeNameForVolumeMountPointW(root.c_str(), name, MAX_PATH) ||
        GetDriveTypeW(root.c_str()) != DRIVE_FIXED)
        return std::nullopt;
    return name;
}

} // namespace tamblin
