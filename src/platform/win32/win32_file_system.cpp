#include "platform/win32/win32_file_system.h"

#include <windows.h>

#include <algorithm>
#include <new>
#include <stdexcept>

#include "base/text.h"
#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_file_swap.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

// A path that can only name a folder ("C:\\", "a\\") is refused where a file is wanted.
std::wstring FullFilePath(const std::wstring& path) {
    std::wstring full = FullPath(path);
    if (EndsInSeparator(path) || IsRoot(full)) {
        CheckDrive(full, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
        throw RunTimeError(ErrorNumber::PathFileAccess, full);
    }
    return full;
}

// Wine, run by root, lets programs replace files and remove folders that are read-only.
void CheckNotReadOnly(const std::wstring& full) {
    if (HasBits(full, FILE_ATTRIBUTE_READONLY))
        throw RunTimeError(ErrorNumber::PathFileAccess, full);
}

// What cannot be removed or renamed without hitting something else is refused.
void CheckNotUnixLink(const std::wstring& full) {
    const auto found = HasBits(full, FILE_ATTRIBUTE_REPARSE_POINT) ? FindAt(full) : std::nullopt;
    if (found && IsUnixLink(*found))
        throw RunTimeError(ErrorNumber::PathFileAccess, full);
}

FolderEntry EntryOf(const WIN32_FIND_DATAW& found) {
    const std::uint64_t size = std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
    return {found.cFileName, AttributesOf(found), size};
}

void SortByUpperCase(std::vector<FolderEntry>& entries) {
    std::vector<std::pair<std::wstring, FolderEntry>> keyed;
    keyed.reserve(entries.size());
    for (FolderEntry& entry : entries)
        keyed.emplace_back(UpperCase(entry.name), std::move(entry));
    std::ranges::sort(
        keyed, {}, [](const auto& pair) -> const auto& { return pair.first; });
    for (size_t index = 0; index < keyed.size(); ++index)
        entries[index] = std::move(keyed[index].second);
}

// A file that may be replaced is none that is read-only or in use.
void CheckMayBeReplaced(const std::wstring& full, const Patience& patience) {
    CheckNotReadOnly(full);
    if (HasBits(full, FILE_ATTRIBUTE_DIRECTORY))
        throw RunTimeError(ErrorNumber::PathFileAccess, full);
    if (!OpenFile(full, {GENERIC_WRITE | DELETE, 0, OPEN_EXISTING}, patience))
        ThrowFileError(full);
}

void CheckNotTheSame(const std::wstring& source, const std::wstring& target) {
    if (EqualIgnoringCase(source, target))
        throw RunTimeError(BitsOf(source) == INVALID_FILE_ATTRIBUTES
                               ? ErrorNumber::FileNotFound
                               : ErrorNumber::PermissionDenied,
                           source);
}

bool IsBelow(const std::wstring& full, const std::wstring& folder) {
    const std::wstring start = WithBackslash(folder);
    return full.size() > start.size() &&
           EqualIgnoringCase(std::wstring_view(full).substr(0, start.size()), start);
}

bool HoldsCurrentFolder(const std::wstring& folder) {
    const std::wstring current = FullPath({});
    return EqualIgnoringCase(current, folder) || IsBelow(current, folder);
}

} // namespace

Win32FileSystem::Win32FileSystem(Patience waitsFor, std::function<void()> meanwhile)
    : patience(std::move(waitsFor)),
      busy(std::move(meanwhile)),
      previousErrorMode(SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX)) {}

Win32FileSystem::~Win32FileSystem() {
    SetErrorMode(previousErrorMode);
}

std::optional<FolderEntry> Win32FileSystem::Find(const std::wstring& path) {
    const std::wstring full = FullPath(path);
    if (IsRoot(full)) {
        CheckDrive(full, ErrorNumber::BadFileName, ErrorNumber::DiskNotReady);
        return FolderEntry{{}, {.folder = true}};
    }
    const auto found = FindAt(full);
    if (!found) {
        if (!MeansNotThere(GetLastError()))
            ThrowLastError(full, Attempt::Find);
        CheckDrive(full, ErrorNumber::BadFileName, ErrorNumber::DiskNotReady);
        return std::nullopt;
    }
    FolderEntry entry = EntryOf(*found);
    if (EndsInSeparator(path) && !entry.attributes.folder)
        return std::nullopt;
    return entry;
}

std::vector<FolderEntry> Win32FileSystem::List(const std::wstring& folder) try {
    const std::wstring full = FullPath(folder);
    std::vector<FolderEntry> entries;
    WIN32_FIND_DATAW found;
    const std::wstring all = PathForWindows(WithBackslash(full)) + L'*';
    const UniqueFindHandle search(
        NullIfInvalid(FindFirstFileExW(all.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                       nullptr, FIND_FIRST_EX_LARGE_FETCH)));
    if (!search) {
        // An empty root has not even the two dotted entries.
        if (GetLastError() == ERROR_FILE_NOT_FOUND && HasBits(full, FILE_ATTRIBUTE_DIRECTORY))
            return entries;
        ThrowFolderError(full, Attempt::List);
    }
    do {
        if (!IsDots(found.cFileName))
            entries.push_back(EntryOf(found));
    } while (FindNextFileW(search.get(), &found));
    if (GetLastError() != ERROR_NO_MORE_FILES)
        ThrowFolderError(full, Attempt::List);
    SortByUpperCase(entries);
    return entries;
} catch (const std::bad_alloc&) {
    throw RunTimeError(ErrorNumber::OutOfMemory, folder);
}

std::string Win32FileSystem::Read(const std::wstring& file) try {
    const std::wstring full = FullFilePath(file);
    const UniqueHandle handle = OpenFile(full, {GENERIC_READ, ShareAll, OPEN_EXISTING}, patience);
    if (!handle)
        ThrowFileError(full);
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle.get(), &size))
        ThrowLastError(full);
    std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
    size_t done = 0;
    while (done < bytes.size()) {
        const auto wanted =
            static_cast<DWORD>(std::min<size_t>(bytes.size() - done, LongestTransfer));
        DWORD count = 0;
        const bool read = Persist(patience, full, [&] {
            return ReadFile(handle.get(), bytes.data() + done, wanted, &count, nullptr);
        });
        if (!read)
            ThrowLastError(full);
        if (count == 0)
            break;
        done += count;
    }
    bytes.resize(done);
    return bytes;
} catch (const std::bad_alloc&) {
    throw RunTimeError(ErrorNumber::OutOfMemory, file);
} catch (const std::length_error&) {
    throw RunTimeError(ErrorNumber::OutOfMemory, file);
}

void Win32FileSystem::Write(const std::wstring& file, std::string_view bytes) {
    const std::wstring full = FullFilePath(file);
    if (BitsOf(full) == INVALID_FILE_ATTRIBUTES) {
        WriteNewFile(full, bytes, patience);
    } else {
        CheckMayBeReplaced(full, patience);
        SwapInBytes(full, bytes, patience);
    }
}

void Win32FileSystem::Copy(const std::wstring& from, const std::wstring& to) {
    busy.Tick();
    const std::wstring source = FullFilePath(from);
    const std::wstring target = FullFilePath(to);
    CheckNotTheSame(source, target);
    if (BitsOf(target) == INVALID_FILE_ATTRIBUTES) {
        CopyToNewFile(source, target, patience, busy);
    } else {
        CheckMayBeReplaced(target, patience);
        SwapInCopy(source, target, patience, busy);
    }
}

// Nothing has to be replaced mostly, so that this is tried first.
void Win32FileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    busy.Tick();
    const std::wstring source = FullFilePath(from);
    const std::wstring target = FullFilePath(to);
    CheckNotTheSame(source, target);
    if (HasBits(source, FILE_ATTRIBUTE_DIRECTORY))
        throw RunTimeError(ErrorNumber::PathFileAccess, source);
    bool taken = false;
    const bool tried = Persist(patience, source, [&] {
        if (MoveFileExW(PathForWindows(source).c_str(), PathForWindows(target).c_str(), 0))
            return true;
        taken = GetLastError() == ERROR_ALREADY_EXISTS || GetLastError() == ERROR_FILE_EXISTS;
        return taken;
    });
    if (taken) {
        CheckMayBeReplaced(target, patience);
        SwapInFile(source, target, patience);
    } else if (!tried && GetLastError() == ERROR_NOT_SAME_DEVICE) {
        Copy(source, target);
        SetFileAttributesW(PathForWindows(source).c_str(), FILE_ATTRIBUTE_NORMAL);
        Delete(source);
    } else if (!tried) {
        ThrowFileError(GetLastError() == ERROR_SHARING_VIOLATION ? source : target);
    }
}

void Win32FileSystem::CheckReplaceable(const std::wstring& file) {
    CheckMayBeReplaced(FullFilePath(file), patience);
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
        throw RunTimeError(ErrorNumber::PathFileAccess, source);
    CheckNotUnixLink(source);
    const auto move = [&] {
        return MoveFileExW(PathForWindows(source).c_str(), PathForWindows(target).c_str(), 0);
    };
    const bool isFolder = (bits & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder ? move() : Persist(patience, target, move))
        return;
    // A folder is held by the process whose current folder it is.
    if (isFolder && GetLastError() == ERROR_SHARING_VIOLATION)
        throw RunTimeError(ErrorNumber::PathFileAccess, source);
    ThrowFileError(GetLastError() == ERROR_SHARING_VIOLATION ? source : target);
}

void Win32FileSystem::Delete(const std::wstring& file) {
    busy.Tick();
    const std::wstring full = FullFilePath(file);
    if (!Persist(patience, full, [&] { return DeleteFileW(PathForWindows(full).c_str()); }))
        ThrowFileError(full);
}

void Win32FileSystem::RemoveFolder(const std::wstring& folder) {
    busy.Tick();
    const std::wstring full = FullPath(folder);
    if (heldFolder && EqualIgnoringCase(full, heldFolderPath))
        ReleaseFolder();
    if (IsRoot(full)) {
        CheckDrive(full, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
        throw RunTimeError(ErrorNumber::PathFileAccess, full);
    }
    if (HasBits(full, FILE_ATTRIBUTE_DIRECTORY))
        CheckNotReadOnly(full);
    CheckNotUnixLink(full);
    const auto remove = [&] {
        return RemoveDirectoryW(PathForWindows(full).c_str());
    };
    // What the program itself holds does not pass.
    if (HoldsCurrentFolder(full) ? !remove() : !Persist(patience, full, remove))
        ThrowFileError(full, Attempt::RemoveFolder);
}

void Win32FileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    const std::wstring full = FullPath(path);
    const DWORD bits = BitsOf(full);
    if (bits == INVALID_FILE_ATTRIBUTES)
        ThrowFileError(full);
    const DWORD wanted = WithAttributes(bits, attributes);
    if (!Persist(patience, full,
                 [&] { return SetFileAttributesW(PathForWindows(full).c_str(), wanted); }))
        ThrowFileError(full);
}

} // namespace tamblin
