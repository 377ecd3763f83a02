#include "platform/win32/win32_attributes.h"

#include "platform/win32/win32_handle.h"

namespace tamblin {
namespace {

constexpr DWORD unixLinkTag = 0; // what Wine says of a symbolic link

bool IsReparsePoint(DWORD bits) {
    constexpr DWORD both = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return (bits & both) == both;
}

// Reparse points serve many ends (files kept in a cloud are some); only these lead elsewhere.
bool LeadsElsewhere(DWORD tag) {
    return tag == IO_REPARSE_TAG_MOUNT_POINT || tag == IO_REPARSE_TAG_SYMLINK || tag == unixLinkTag;
}

} // namespace

DWORD BitsOf(const std::wstring& fullPath) {
    return GetFileAttributesW(PathForWindows(fullPath).c_str());
}

bool HasBits(const std::wstring& fullPath, DWORD wanted) {
    const DWORD bits = BitsOf(fullPath);
    return bits != INVALID_FILE_ATTRIBUTES && (bits & wanted) != 0;
}

std::optional<WIN32_FIND_DATAW> FindAt(const std::wstring& fullPath) {
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(
        NullIfInvalid(FindFirstFileExW(PathForWindows(fullPath).c_str(), FindExInfoBasic, &found,
                                       FindExSearchNameMatch, nullptr, 0)));
    return search ? std::optional(found) : std::nullopt;
}

FileAttributes AttributesOf(const WIN32_FIND_DATAW& found) {
    const DWORD bits = found.dwFileAttributes;
    return {.readOnly = (bits & FILE_ATTRIBUTE_READONLY) != 0,
            .hidden = (bits & FILE_ATTRIBUTE_HIDDEN) != 0,
            .system = (bits & FILE_ATTRIBUTE_SYSTEM) != 0,
            .folder = (bits & FILE_ATTRIBUTE_DIRECTORY) != 0,
            .archive = (bits & FILE_ATTRIBUTE_ARCHIVE) != 0,
            .link = IsReparsePoint(bits) && LeadsElsewhere(found.dwReserved0)};
}

bool IsUnixLink(const WIN32_FIND_DATAW& found) {
    return IsReparsePoint(found.dwFileAttributes) && found.dwReserved0 == unixLinkTag;
}

DWORD WithAttributes(DWORD bits, const FileAttributes& attributes) {
    bits &= FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_TEMPORARY;
    bits |= (attributes.readOnly ? FILE_ATTRIBUTE_READONLY : 0) |
            (attributes.hidden ? FILE_ATTRIBUTE_HIDDEN : 0) |
            (attributes.system ? FILE_ATTRIBUTE_SYSTEM : 0) |
            (attributes.archive ? FILE_ATTRIBUTE_ARCHIVE : 0);
    return bits == 0 ? DWORD{FILE_ATTRIBUTE_NORMAL} : bits;
}

} // namespace tamblin
