#include "platform/win32/win32_desktop_shell.h"

#include <windows.h>
// After <windows.h>, which it needs.
#include <objbase.h>
#include <shlobj.h>

#include <memory>
#include <string_view>

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
// for the current folder, a wildcard for many files, and would empty a whole drive.
std::optional<std::wstring> DeletablePath(const std::wstring& path) {
    if (path.empty())
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

bool IsDots(std::wstring_view name) {
    return name == L"." || name == L"..";
}

// Nothing when there is no such thing.
std::optional<WIN32_FIND_DATAW> FindAt(const std::wstring& fullPath) {
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(
        NullIfInvalid(FindFirstFileW(PathForWindows(fullPath).c_str(), &found)));
    if (!search)
        return std::nullopt;
    return found;
}

// False when the link stays. What it points to always does.
bool RemoveLink(const std::wstring& fullPath, const WIN32_FIND_DATAW& link) {
    return !IsHostLink(link) && RemoveDirectoryW(PathForWindows(fullPath).c_str());
}

// Calls visit(path, found) for every link below a folder, until one returns false.
template <typename Visitor>
bool VisitLinks(const std::wstring& folder, const Visitor& visit) {
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(
        NullIfInvalid(FindFirstFileW((PathForWindows(folder) + L"\\*").c_str(), &found)));
    if (!search)
        return true;
    do {
        const FileAttributes attributes = AttributesOf(found);
        if (!attributes.folder || IsDots(found.cFileName))
            continue;
        const std::wstring path = folder + L'\\' + found.cFileName;
        if (attributes.link ? !visit(path, found) : !VisitLinks(path, visit))
            return false;
    } while (FindNextFileW(search.get(), &found));
    return true;
}

struct TaskMemory {
    void operator()(wchar_t* memory) const { CoTaskMemFree(memory); }
};

} // namespace

// Neither the result nor whether the user broke it off is looked at.
void Win32DesktopShell::DeleteByShell(const std::wstring& fullPath, FILEOP_FLAGS flags) {
    const std::wstring source = fullPath + L'\0'; // a list of one, ended by an empty string
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = source.c_str();
    operation.fFlags = flags;
    fileOperation(&operation);
}

// Not every shell stops at a link when it deletes a tree, so that none is left for it to find. A
// tree with a link that does not go stays whole.
void Win32DesktopShell::DeleteTree(const std::wstring& path) {
    Delete(path, FOF_NOCONFIRMATION, RemoveLink);
}

// Links go into the bin with their tree, so that the user gets back what there was. Those that the
// shell would follow, should it have no bin, keep the tree from being touched.
void Win32DesktopShell::MoveToRecycleBin(const std::wstring& path) {
    Delete(path, FOF_ALLOWUNDO | FOF_NOCONFIRMATION,
           [](const std::wstring&, const WIN32_FIND_DATAW& link) { return !IsHostLink(link); });
}

// `visitLink` does with a link below the tree what has to be done before the shell comes; false
// keeps the tree. The path itself is never followed.
template <typename Visitor>
void Win32DesktopShell::Delete(const std::wstring& path, FILEOP_FLAGS flags,
                               const Visitor& visitLink) {
    const auto full = DeletablePath(path);
    const auto found = full ? FindAt(*full) : std::nullopt;
    if (!found)
        return;
    if (AttributesOf(*found).link)
        RemoveLink(*full, *found);
    else if (VisitLinks(*full, visitLink))
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
