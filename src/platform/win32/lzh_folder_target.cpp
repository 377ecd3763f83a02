#include "platform/win32/lzh_folder_target.h"

#include <windows.h>

#include <optional>

#include "base/text.h"
#include "platform/lzh/lzh_error.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"

namespace tamblin {

using lzh::EntryPath;
using lzh::EntryTimes;
using lzh::LzhError;
using lzh::LzhFailure;

namespace {

constexpr DWORD missing = INVALID_FILE_ATTRIBUTES;

[[noreturn]] void ThrowWindowsError(DWORD code) {
    const bool isFull = code == ERROR_DISK_FULL || code == ERROR_HANDLE_DISK_FULL;
    throw LzhError(isFull ? LzhFailure::DiskFull : LzhFailure::CannotWrite,
                   L"Windows error " + std::to_wstring(code));
}

// The attributes of what stands at the path, or `missing`.
DWORD AttributesOf(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != missing && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        throw LzhError(LzhFailure::LinkInTheWay);
    return attributes;
}

void EnterFolder(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    if (attributes == missing) {
        if (!CreateDirectoryW(path.c_str(), nullptr))
            ThrowWindowsError(GetLastError());
    } else if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        ThrowWindowsError(ERROR_DIRECTORY);
    }
}

// What stands at the file's path gives way. A new file is made rather than the old one emptied: the
// old one may have a second name elsewhere.
void RemoveOldFile(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    if (attributes == missing)
        return;
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!DeleteFileW(path.c_str()))
        ThrowWindowsError(GetLastError());
}

LARGE_INTEGER ForWindows(std::optional<std::uint64_t> time) {
    LARGE_INTEGER value{};
    value.QuadPart = static_cast<LONGLONG>(time.value_or(0)); // 0 leaves what is there
    return value;
}

std::optional<std::uint64_t> FromLocalTime(std::uint32_t dosTime) {
    FILETIME local{};
    FILETIME utc{};
    SYSTEMTIME localParts{};
    SYSTEMTIME utcParts{};
    if (!DosDateTimeToFileTime(static_cast<WORD>(dosTime >> 16),
                               static_cast<WORD>(dosTime & 0xFFFF), &local) ||
        !FileTimeToSystemTime(&local, &localParts) ||
        !TzSpecificLocalTimeToSystemTime(nullptr, &localParts, &utcParts) ||
        !SystemTimeToFileTime(&utcParts, &utc))
        return std::nullopt;
    return static_cast<std::uint64_t>(utc.dwHighDateTime) << 32 | utc.dwLowDateTime;
}

DWORD ForWindows(lzh::EntryAttributes attributes) {
    return FILE_ATTRIBUTE_ARCHIVE | (attributes.readOnly ? FILE_ATTRIBUTE_READONLY : 0) |
           (attributes.hidden ? FILE_ATTRIBUTE_HIDDEN : 0) |
           (attributes.system ? FILE_ATTRIBUTE_SYSTEM : 0);
}

// Null when something stands there, be it a link that leads nowhere.
UniqueHandle CreateNewFile(const std::wstring& path) {
    return UniqueHandle(
        NullIfInvalid(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr)));
}

// Mostly nothing stands there, so that is found out by trying.
UniqueHandle CreateInPlaceOfOldFile(const std::wstring& path) {
    if (auto file = CreateNewFile(path))
        return file;
    RemoveOldFile(path);
    return CreateNewFile(path);
}

class FolderTargetFile : public lzh::TargetFile {
  public:
    explicit FolderTargetFile(std::wstring filePath)
        : path(std::move(filePath)), file(CreateInPlaceOfOldFile(path)) {
        if (!file)
            ThrowWindowsError(GetLastError());
    }
    ~FolderTargetFile() override {
        if (file) {
            file.reset();
            DeleteFileW(path.c_str());
        }
    }

    void Write(const std::uint8_t* bytes, std::size_t size) override {
        DWORD written = 0;
        if (!WriteFile(file.get(), bytes, static_cast<DWORD>(size), &written, nullptr))
            ThrowWindowsError(GetLastError());
        if (written < size)
            ThrowWindowsError(ERROR_DISK_FULL);
    }

    // That a file system keeps no such times or attributes is no failure.
    void Finish(const EntryTimes& times, lzh::EntryAttributes attributes) override {
        FILE_BASIC_INFO info{};
        info.CreationTime = ForWindows(times.created);
        info.LastAccessTime = ForWindows(times.accessed);
        info.LastWriteTime =
            ForWindows(times.modifiedLocal ? FromLocalTime(*times.modifiedLocal) : times.modified);
        // Not every system lets a file be hidden that is read-only already.
        const DWORD bits = ForWindows(attributes);
        info.FileAttributes = bits & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
        SetFileInformationByHandle(file.get(), FileBasicInfo, &info, sizeof info);
        file.reset();
        if (attributes.readOnly)
            SetFileAttributesW(path.c_str(), bits);
    }

  private:
    std::wstring path;
    UniqueHandle file;
};

} // namespace

LzhFolderTarget::LzhFolderTarget(const std::wstring& folder)
    : root(WithBackslash(FullPath(folder))), entered(root) {}

// Makes and checks the folders on the way. Neighbouring entries lie in the same folder mostly, and
// nothing in an archive can turn a folder into a link.
std::wstring LzhFolderTarget::EnterFolders(EntryPath::const_iterator first,
                                           EntryPath::const_iterator last) {
    std::wstring path = root;
    for (; first != last; ++first) {
        path += *first;
        if (!entered.starts_with(path + L'\\'))
            EnterFolder(PathForWindows(path));
        path += L'\\';
    }
    entered = path;
    return path;
}

void LzhFolderTarget::MakeFolders(const EntryPath& folder) {
    EnterFolders(folder.begin(), folder.end());
}

std::unique_ptr<lzh::TargetFile> LzhFolderTarget::NewFile(const EntryPath& file) {
    const std::wstring path = EnterFolders(file.begin(), file.end() - 1) + file.back();
    return std::make_unique<FolderTargetFile>(PathForWindows(path));
}

} // namespace tamblin
