#include "support/temporary_folder.h"

#include <random>
#include <string_view>

#ifdef _WIN32
#include <windows.h>

#include "support/folder_link.h"
#endif

namespace tamblin {
namespace {

#ifdef _WIN32

constexpr std::wstring_view prefix = L"\\\\?\\"; // lifts the limit on the length of paths

template <typename Visitor>
void VisitEntries(const std::wstring& folder, const Visitor& visit) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..")
            visit(folder + L'\\' + found.cFileName, found.dwFileAttributes);
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

// Before anything else goes: Wine does not show a link that points to nothing.
void RemoveLinks(const std::wstring& folder) {
    VisitEntries(folder, [](const std::wstring& path, DWORD bits) {
        if ((bits & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            RemoveFolderLink(path.substr(prefix.size()));
        else if ((bits & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveLinks(path);
    });
}

// Unlike the standard library's, this takes read-only files and paths of any length along.
void RemoveTree(const std::wstring& folder) {
    VisitEntries(folder, [](const std::wstring& path, DWORD bits) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((bits & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveTree(path);
        else
            DeleteFileW(path.c_str());
    });
    RemoveDirectoryW(folder.c_str());
}

#endif

std::filesystem::path UnusedPath() {
    std::random_device random;
    std::filesystem::path path;
    do
        path = std::filesystem::temp_directory_path() / ("tamblin-" + std::to_string(random()));
    while (std::filesystem::exists(path));
    return path;
}

} // namespace

TemporaryFolder::TemporaryFolder()
    : previousFolder(std::filesystem::current_path()), path(UnusedPath()) {
    std::filesystem::create_directories(path);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::current_path(previousFolder, ignored);
#ifdef _WIN32
    const std::wstring longPath = std::wstring(prefix) + path.wstring();
    RemoveLinks(longPath);
    RemoveTree(longPath);
#else
    std::filesystem::remove_all(path, ignored);
#endif
}

} // namespace tamblin
