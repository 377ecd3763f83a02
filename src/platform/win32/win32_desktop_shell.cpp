#include "platform/win32/win32_desktop_shell.h"

#include <windows.h>
// After <windows.h>, which it needs.
#include <objbase.h>
#include <shlobj.h>

#include <memory>
#include <utility>
#include <vector>

#include "base/run_time_error.h"
#include "base/text.h"
#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

// Windows drops dots and blanks at the end of a name: "abc." would be taken for its neighbour
// "abc".
bool NamesTheSame(const std::wstring& path, const std::wstring& fullPath) {
    const std::wstring plain = WithoutBackslash(path);
    return fullPath.ends_with(plain.substr(plain.find_last_of(L"\\/:") + 1));
}

// The full path of something that may be deleted, or nothing. The shell would take an empty path
// for the current folder, a wildcard for many files, and would empty a whole drive. A path that
// ends in a separator is one to which a name was to be added.
std::optional<std::wstring> DeletablePath(const std::wstring& path) {
    if (path.empty() || EndsInSeparator(path))
        return std::nullopt;
    try {
        std::wstring full = FullPath(path);
        if (IsRoot(full) || !NamesTheSame(path, full))
            return std::nullopt;
        return full;
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

// False when the link stays. What it points to always does.
bool RemoveLink(const std::wstring& fullPath, const WIN32_FIND_DATAW& link) {
    return !IsUnixLink(link) && RemoveDirectoryW(PathForWindows(fullPath).c_str());
}

// What keeps the shell from deleting a tree: another program, or a link that it would follow.
enum class Obstacle { None, Holder, Link };

// However deep the tree is: no call for each level, for which the stack has no room.
Obstacle ObstacleBelow(const std::wstring& tree) {
    std::vector<std::wstring> folders{tree};
    while (!folders.empty()) {
        const std::wstring folder = std::move(folders.back()) + L'\\';
        folders.pop_back();
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(
            NullIfInvalid(FindFirstFileW((PathForWindows(folder) + L'*').c_str(), &found)));
        for (bool more = search != nullptr; more; more = FindNextFileW(search.get(), &found)) {
            if (IsDots(found.cFileName))
                continue;
            const FileAttributes attributes = AttributesOf(found);
            const std::wstring path = folder + found.cFileName;
            if (IsUnixLink(found))
                return Obstacle::Link;
            if (IsHeld(path))
                return Obstacle::Holder;
            if (attributes.folder && !attributes.link)
                folders.push_back(path);
        }
    }
    return Obstacle::None;
}

struct TaskMemory {
    void operator()(wchar_t* memory) const { CoTaskMemFree(memory); }
};

} // namespace

// The shell gives up at the first file that another program holds. False for a tree that it must
// not be given.
bool Win32DesktopShell::WaitUntilFree(const std::wstring& tree, bool isFile) {
    auto obstacle = Obstacle::None;
    patience.Outwait([&] {
        obstacle = isFile && IsHeld(tree) ? Obstacle::Holder : ObstacleBelow(tree);
        return obstacle == Obstacle::Holder;
    });
    return obstacle != Obstacle::Link;
}

// Neither the result nor whether the user broke it off is looked at.
void Win32DesktopShell::DeleteByShell(const std::wstring& fullPath, FILEOP_FLAGS flags) {
    const std::wstring source = fullPath + L'\0'; // a list of one, ended by an empty string
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = source.c_str();
    operation.fFlags = flags;
    fileOperation(&operation);
}

void Win32DesktopShell::DeleteTree(const std::wstring& path) {
    Delete(path, FOF_NOCONFIRMATION);
}

// Where there is no recycle bin the user is asked before anything goes for good.
void Win32DesktopShell::MoveToRecycleBin(const std::wstring& path) {
    Delete(path, FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_WANTNUKEWARNING);
}

// Links below the tree are the shell's to remove, together with what holds them. Those that it
// would follow keep the tree whole. The path itself is never followed.
void Win32DesktopShell::Delete(const std::wstring& path, FILEOP_FLAGS flags) {
    const auto full = DeletablePath(path);
    const auto found = full ? FindAt(*full) : std::nullopt;
    if (!found)
        return;
    if (AttributesOf(*found).link)
        RemoveLink(*full, *found);
    else if (WaitUntilFree(*full, !AttributesOf(*found).folder))
        DeleteByShell(*full, flags);
}

void Win32DesktopShell::Open(const std::wstring& document, const std::wstring& workingFolder) {
    ShellExecuteW(nullptr, L"open", document.c_str(), nullptr,
                  workingFolder.empty() ? nullptr : workingFolder.c_str(), SW_SHOWNORMAL);
}

std::optional<std::wstring> Win32DesktopShell::DesktopFolder() {
    wchar_t* found = nullptr;
    const HRESULT result =
        SHGetKnownFolderPath(FOLDERID_Desktop, KF_FLAG_DONT_VERIFY, nullptr, &found);
    const std::unique_ptr<wchar_t, TaskMemory> path(found);
    if (FAILED(result) || !path || *path == L'\0')
        return std::nullopt;
    return WithoutBackslash(path.get());
}

} // namespace tamblin
