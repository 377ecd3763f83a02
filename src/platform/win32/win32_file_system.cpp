#include "platform/win32/win32_file_system.h"

#include <windows.h>

#include <algorithm>
#include <new>
#include <stdexcept>

#include "base/text.h"
#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

constexpr DWORD longestTransfer = 16U << 20;

// Names are well formed by the time that Windows sees them. When it calls one invalid all the same,
// a file stands where it wants a folder.
bool MeansNotThere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
           code == ERROR_DIRECTORY || code == ERROR_INVALID_NAME;
}

// Windows reports a missing drive as a missing folder. Sees to it that the drive itself is there.
void CheckDrive(const std::wstring& full, ErrorNumber missing, ErrorNumber notReady) {
    switch (StateOfDrive(full)) {
        case DriveState::Missing:
            throw RunTimeError(missing);
        case DriveState::NotReady:
            throw RunTimeError(notReady);
        case DriveState::Ready:
            break;
    }
}

// For a call that has just failed on something at this path. A missing drive is reported as a
// missing file by some, as a missing folder by others.
[[noreturn]] void ThrowFileError(const std::wstring& full, Attempt attempt = Attempt::OnFile) {
    const DWORD code = GetLastError();
    if (MeansNotThere(code))
        CheckDrive(full, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
    ThrowError(code, attempt);
}

// The same for the two attempts that open a folder.
[[noreturn]] void ThrowFolderError(const std::wstring& full, Attempt attempt) {
    const DWORD code = GetLastError();
    if (!MeansNotThere(code))
        ThrowError(code, attempt);
    CheckDrive(full, ErrorNumber::DeviceUnavailable, ErrorNumber::DeviceUnavailable);
    throw RunTimeError(ErrorNumber::PathNotFound);
}

// A path that can only name a folder ("C:\\", "a\\") is refused where a file is wanted.
std::wstring FullFilePath(const std::wstring& path) {
    std::wstring full = FullPath(path);
    if (EndsInSeparator(path) || IsRoot(full)) {
        CheckDrive(full, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
    return full;
}

// INVALID_FILE_ATTRIBUTES when nothing is there.
DWORD BitsOf(const std::wstring& full) {
    return GetFileAttributesW(PathForWindows(full).c_str());
}

bool HasBits(const std::wstring& full, DWORD wanted) {
    const DWORD bits = BitsOf(full);
    return bits != INVALID_FILE_ATTRIBUTES && (bits & wanted) != 0;
}

// Wine, run by root, lets programs replace files and remove folders that are read-only.
void CheckNotReadOnly(const std::wstring& full) {
    if (HasBits(full, FILE_ATTRIBUTE_READONLY))
        throw RunTimeError(ErrorNumber::PathFileAccess);
}

UniqueFindHandle FindFirst(const std::wstring& pattern, WIN32_FIND_DATAW& found, DWORD flags) {
    return UniqueFindHandle(NullIfInvalid(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found,
                                                           FindExSearchNameMatch, nullptr, flags)));
}

// What cannot be removed or renamed without hitting something else is refused.
void CheckNotHostLink(const std::wstring& full) {
    WIN32_FIND_DATAW found;
    if (HasBits(full, FILE_ATTRIBUTE_REPARSE_POINT) && FindFirst(PathForWindows(full), found, 0) &&
        IsHostLink(found))
        throw RunTimeError(ErrorNumber::PathFileAccess);
}

bool IsDots(const wchar_t* name) {
    return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

void SortByUpperCase(std::vector<FolderEntry>& entries) {
    struct Keyed {
        std::wstring key;
        FolderEntry entry;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(entries.size());
    for (FolderEntry& entry : entries)
        keyed.push_back({UpperCase(entry.name), std::move(entry)});
    std::sort(keyed.begin(), keyed.end(),
              [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    for (size_t index = 0; index < keyed.size(); ++index)
        entries[index] = std::move(keyed[index].entry);
}

UniqueHandle Open(const std::wstring& full, DWORD access, DWORD share, DWORD disposition) {
    UniqueHandle file(
        NullIfInvalid(CreateFileW(PathForWindows(full).c_str(), access, share, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr)));
    if (!file)
        ThrowFileError(full);
    return file;
}

void SetLength(HANDLE file, std::uint64_t length) {
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(length);
    if (!SetFilePointerEx(file, position, nullptr, FILE_BEGIN) || !SetEndOfFile(file))
        ThrowLastError();
    position.QuadPart = 0;
    if (!SetFilePointerEx(file, position, nullptr, FILE_BEGIN))
        ThrowLastError();
}

// A file that takes no more ends where the bytes end.
[[noreturn]] void GiveUpWriting(HANDLE file, DWORD code) {
    SetEndOfFile(file);
    ThrowError(code);
}

void WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<size_t>(bytes.size(), longestTransfer));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), wanted, &written, nullptr))
            GiveUpWriting(file, GetLastError());
        if (written == 0)
            GiveUpWriting(file, ERROR_DISK_FULL);
        bytes.remove_prefix(written);
    }
}

// Not every file system can flush; what it then cannot report is not an error.
void FlushAndClose(UniqueHandle file) {
    if (!FlushFileBuffers(file.get()) && GetLastError() != ERROR_INVALID_FUNCTION &&
        GetLastError() != ERROR_NOT_SUPPORTED)
        ThrowLastError();
    if (!CloseHandle(file.release()))
        ThrowLastError();
}

// Room for the new contents is taken before the old ones are touched, so that most full disks
// leave the old contents whole.
void ReplaceContents(UniqueHandle file, std::string_view bytes) {
    LARGE_INTEGER oldSize;
    if (!GetFileSizeEx(file.get(), &oldSize))
        ThrowLastError();
    if (bytes.size() > static_cast<std::uint64_t>(oldSize.QuadPart))
        SetLength(file.get(), bytes.size());
    WriteAll(file.get(), bytes);
    SetLength(file.get(), bytes.size());
    FlushAndClose(std::move(file));
}

// Windows takes the part of a copy that fitted on a full disk away again, Wine leaves it.
[[noreturn]] void ThrowCopyError(const std::wstring& source, const std::wstring& target) {
    const DWORD code = GetLastError();
    if (ErrorNumberOf(code) == ErrorNumber::DiskFull)
        DeleteFileW(PathForWindows(target).c_str());
    if (MeansNotThere(code))
        CheckDrive(target, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
    SetLastError(code);
    ThrowFileError(source);
}

void CopyToNewFile(const std::wstring& source, const std::wstring& target) {
    if (!CopyFileW(PathForWindows(source).c_str(), PathForWindows(target).c_str(), TRUE))
        ThrowCopyError(source, target);
}

// A name beside the file that nothing has yet.
std::wstring FreeNameBeside(const std::wstring& full) {
    for (int number = 0;; ++number) {
        std::wstring name = full + L".new" + std::to_wstring(number);
        if (BitsOf(name) == INVALID_FILE_ATTRIBUTES)
            return name;
    }
}

// The file keeps standing until its successor is complete beside it.
void ReplaceByCopy(const std::wstring& source, const std::wstring& target) {
    Open(source, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    Open(target, GENERIC_WRITE, 0, OPEN_EXISTING); // fails as long as a program uses the file
    WIN32_FIND_DATAW found;
    std::wstring spelled = target;
    if (FindFirst(PathForWindows(target), found, 0))
        spelled = target.substr(0, target.rfind(L'\\') + 1) + found.cFileName;
    const std::wstring successor = FreeNameBeside(target);
    CopyToNewFile(source, successor);
    if (MoveFileExW(PathForWindows(successor).c_str(), PathForWindows(spelled).c_str(),
                    MOVEFILE_REPLACE_EXISTING))
        return;
    const DWORD code = GetLastError();
    DeleteFileW(PathForWindows(successor).c_str());
    SetLastError(code);
    ThrowFileError(target);
}

bool IsBelow(const std::wstring& full, const std::wstring& folder) {
    const std::wstring start = WithBackslash(folder);
    return full.size() > start.size() &&
           EqualIgnoringCase(std::wstring_view(full).substr(0, start.size()), start);
}

} // namespace

Win32FileSystem::Win32FileSystem()
    : previousErrorMode(SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX)) {}

Win32FileSystem::~Win32FileSystem() {
    SetErrorMode(previousErrorMode);
}

std::optional<FolderEntry> Win32FileSystem::Find(const std::wstring& path) {
    const std::wstring full = FullPath(path);
    if (IsRoot(full)) {
        CheckDrive(full, ErrorNumber::BadFileName, ErrorNumber::DiskNotReady);
        return FolderEntry{{}, {.folder = true}};
    }
    WIN32_FIND_DATAW found;
    if (!FindFirst(PathForWindows(full), found, 0)) {
        const DWORD code = GetLastError();
        if (!MeansNotThere(code))
            ThrowError(code, Attempt::Find);
        CheckDrive(full, ErrorNumber::BadFileName, ErrorNumber::DiskNotReady);
        return std::nullopt;
    }
    FolderEntry entry{found.cFileName, AttributesOf(found)};
    if (EndsInSeparator(path) && !entry.attributes.folder)
        return std::nullopt;
    return entry;
}

std::vector<FolderEntry> Win32FileSystem::List(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    std::vector<FolderEntry> entries;
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search =
        FindFirst(PathForWindows(WithBackslash(full)) + L'*', found, FIND_FIRST_EX_LARGE_FETCH);
    if (!search) {
        // An empty root has not even the two dotted entries.
        if (GetLastError() == ERROR_FILE_NOT_FOUND && HasBits(full, FILE_ATTRIBUTE_DIRECTORY))
            return entries;
        ThrowFolderError(full, Attempt::List);
    }
    do {
        if (!IsDots(found.cFileName))
            entries.push_back({found.cFileName, AttributesOf(found)});
    } while (FindNextFileW(search.get(), &found));
    if (GetLastError() != ERROR_NO_MORE_FILES)
        ThrowFolderError(full, Attempt::List);
    SortByUpperCase(entries);
    return entries;
}

std::string Win32FileSystem::Read(const std::wstring& file) try {
    const UniqueHandle handle =
        Open(FullFilePath(file), GENERIC_READ,
             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle.get(), &size))
        ThrowLastError();
    std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
    size_t done = 0;
    while (done < bytes.size()) {
        const auto wanted =
            static_cast<DWORD>(std::min<size_t>(bytes.size() - done, longestTransfer));
        DWORD count = 0;
        if (!ReadFile(handle.get(), bytes.data() + done, wanted, &count, nullptr))
            ThrowLastError();
        if (count == 0)
            break;
        done += count;
    }
    bytes.resize(done);
    return bytes;
} catch (const std::bad_alloc&) {
    throw RunTimeError(ErrorNumber::OutOfMemory);
} catch (const std::length_error&) {
    throw RunTimeError(ErrorNumber::OutOfMemory);
}

void Win32FileSystem::Write(const std::wstring& file, std::string_view bytes) {
    const std::wstring full = FullFilePath(file);
    CheckNotReadOnly(full);
    const bool isNew = BitsOf(full) == INVALID_FILE_ATTRIBUTES;
    UniqueHandle handle = Open(full, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    try {
        ReplaceContents(std::move(handle), bytes);
    } catch (const RunTimeError&) {
        if (isNew)
            DeleteFileW(PathForWindows(full).c_str());
        throw;
    }
}

void Win32FileSystem::Copy(const std::wstring& from, const std::wstring& to) {
    const std::wstring source = FullFilePath(from);
    const std::wstring target = FullFilePath(to);
    CheckNotReadOnly(target);
    if (EqualIgnoringCase(source, target))
        throw RunTimeError(BitsOf(source) == INVALID_FILE_ATTRIBUTES
                               ? ErrorNumber::FileNotFound
                               : ErrorNumber::PermissionDenied);
    const DWORD bits = BitsOf(target);
    if (bits == INVALID_FILE_ATTRIBUTES)
        CopyToNewFile(source, target);
    else if ((bits & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw RunTimeError(ErrorNumber::PathFileAccess);
    else
        ReplaceByCopy(source, target);
}

void Win32FileSystem::Rename(const std::wstring& from, const std::wstring& to) {
    const std::wstring source = FullPath(from);
    const std::wstring target = FullPath(to);
    const DWORD bits = BitsOf(source);
    if (bits == INVALID_FILE_ATTRIBUTES)
        ThrowFileError(source);
    CheckDrive(target, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
    const bool leavesDrive = !EqualIgnoringCase(RootOf(source), RootOf(target));
    if (IsRoot(source) || leavesDrive || IsBelow(target, source))
        throw RunTimeError(ErrorNumber::PathFileAccess);
    CheckNotHostLink(source);
    if (MoveFileExW(PathForWindows(source).c_str(), PathForWindows(target).c_str(), 0))
        return;
    // A folder is held by the process whose current folder it is.
    const bool isFolder = (bits & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder && GetLastError() == ERROR_SHARING_VIOLATION)
        throw RunTimeError(ErrorNumber::PathFileAccess);
    ThrowFileError(target);
}

void Win32FileSystem::Delete(const std::wstring& file) {
    const std::wstring full = FullFilePath(file);
    if (!DeleteFileW(PathForWindows(full).c_str()))
        ThrowFileError(full);
}

void Win32FileSystem::MakeFolder(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    if (!CreateDirectoryW(PathForWindows(full).c_str(), nullptr))
        ThrowFileError(full, Attempt::MakeFolder);
}

void Win32FileSystem::RemoveFolder(const std::wstring& folder) {
    const std::wstring full = FullPath(folder);
    if (IsRoot(full)) {
        CheckDrive(full, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
        throw RunTimeError(ErrorNumber::PathFileAccess);
    }
    if (HasBits(full, FILE_ATTRIBUTE_DIRECTORY))
        CheckNotReadOnly(full);
    CheckNotHostLink(full);
    if (!RemoveDirectoryW(PathForWindows(full).c_str()))
        ThrowFileError(full, Attempt::RemoveFolder);
}

void Win32FileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    const std::wstring full = FullPath(path);
    const DWORD bits = BitsOf(full);
    if (bits == INVALID_FILE_ATTRIBUTES ||
        !SetFileAttributesW(PathForWindows(full).c_str(), WithAttributes(bits, attributes)))
        ThrowFileError(full);
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

} // namespace tamblin
