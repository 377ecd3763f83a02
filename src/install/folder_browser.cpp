#include "install/folder_browser.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/run_time_error.h"
#include "base/text.h"

namespace tamblin {
namespace {

constexpr wchar_t DesktopCaption[] = L"ﾃﾞｽｸﾄｯﾌﾟ";
constexpr wchar_t DriveNotReadyText[] = L"ドライブの準備ができていません。";
constexpr wchar_t FolderMark[] = L"+ ";
constexpr wchar_t LevelIndent[] = L"  ";

std::wstring DriveOf(const std::wstring& path) {
    return UpperCase(path.substr(0, 2));
}

} // namespace

void FolderBrowser::RebuildBrowser() {
    const bool treeChanged = std::exchange(treeChangedFlag, false);
    Tree former = std::exchange(tree, {});
    try {
        Rebuild(treeChanged);
        return;
    } catch (const Cancelled&) {
        treeChangedFlag = true;
    } catch (const RunTimeError&) {
        // Nobody is told.
    }
    // A failure leaves the tree as it was. Before there is one, what could be listed is shown.
    if (!former.rows.empty())
        tree = std::move(former);
}

void FolderBrowser::SelectTreeRow(size_t row) {
    if (row < tree.rows.size())
        tree.SelectedTreeRow = row;
}

void FolderBrowser::OpenTreeRow(size_t row) {
    if (row >= tree.rows.size())
        return;
    const std::wstring& folder = tree.TreePaths[row];
    if (!folder.empty())
        ShowFolder(folder);
}

bool FolderBrowser::ShowFolder(const std::wstring& folder) {
    const std::wstring opened = WithBackslash(folder);
    const std::wstring former = std::exchange(BrowseStartFolder, opened);
    treeChangedFlag = true;
    RebuildBrowser();
    if (tree.folder == opened)
        return true;
    BrowseStartFolder = former;
    return false;
}

void FolderBrowser::GoUp() {
    const std::wstring folder = WithoutBackslash(tree.folder);
    const size_t end = folder.find_last_of(L'\\');
    if (end != std::wstring::npos && end + 1 < folder.size())
        ShowFolder(folder.substr(0, end + 1));
}

void FolderBrowser::Reread() {
    const std::wstring selected = tree.SelectedTreeRow < tree.TreePaths.size()
                                      ? tree.TreePaths[tree.SelectedTreeRow]
                                      : std::wstring();
    treeChangedFlag = treeChangedFlag || tree.changed;
    RebuildBrowser();
    const auto found = std::find(tree.TreePaths.begin(), tree.TreePaths.end(), selected);
    if (found != tree.TreePaths.end())
        SelectTreeRow(static_cast<size_t>(found - tree.TreePaths.begin()));
}

std::wstring FolderBrowser::NameInRow(const std::wstring& row) {
    const std::wstring marked = row.substr(std::min(row.find_first_not_of(L' '), row.size()));
    return marked.starts_with(FolderMark) ? marked.substr(std::size(FolderMark) - 1) : marked;
}

bool FolderBrowser::TakeSelectionLost() {
    return std::exchange(selectionLost, false);
}

void FolderBrowser::Rebuild(bool treeChanged) {
    if (BrowseStartFolder.empty())
        BrowseStartFolder = SpecialEntries[0];
    BrowseStartFolder = WithBackslash(BrowseStartFolder);

    tree.listing = ListOrAsk(BrowseStartFolder);
    tree.folder = BrowseStartFolder;
    tree.changed = treeChanged;
    AddDesktopRows(treeChanged);
    AddDriveRows();
    FillFileList();
}

void FolderBrowser::AddDesktopRows(bool treeChanged) {
    SpecialEntries[1] = DesktopCaption;
    if (const auto found = platform.shell.DesktopFolder())
        SpecialEntries[2] = WithBackslash(*found);
    AddRow(SpecialEntries[1], SpecialEntries[2]);
    const std::wstring& desktop = SpecialEntries[2];
    if (treeChanged || desktop.empty() || !BrowseStartFolder.starts_with(desktop))
        return;

    const std::wstring folder = WithoutBackslash(desktop);
    AddChildRows(folder, ListOrAsk(folder).folders, L"");
    for (size_t row = 1; row < tree.rows.size(); ++row)
        if (BrowseStartFolder.starts_with(tree.TreePaths[row] + L"\\"))
            tree.SelectedTreeRow = row;
    SpecialEntries[0] = BrowseStartFolder;
    BrowseStartFolder.clear();
}

void FolderBrowser::AddDriveRows() {
    for (const Drive& drive : platform.files.Drives()) {
        const std::wstring name = DriveOf(drive.name);
        AddRow(name, name);
        if (name != DriveOf(BrowseStartFolder))
            continue;
        tree.SelectedTreeRow = tree.rows.size() - 1;
        if (BrowseStartFolder.size() < 4)
            AddChildRows(name, tree.listing.folders, L"");
        else
            AddAncestorRows(name, name.size() + 1, 1);
    }
}

// `matched` characters of BrowseStartFolder, its "\" included, have led to `folder`.
void FolderBrowser::AddAncestorRows(const std::wstring& folder, size_t matched, size_t depth) {
    const size_t end = BrowseStartFolder.find(L'\\', matched);
    if (end == std::wstring::npos)
        return;
    const std::wstring wanted = BrowseStartFolder.substr(matched, end - matched);
    const auto names = ListOrAsk(WithBackslash(folder)).folders;
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::wstring& name) {
        return EqualIgnoringCase(name, wanted);
    });
    if (found == names.end())
        return;

    std::wstring indent;
    for (size_t level = 0; level < depth; ++level)
        indent += LevelIndent;
    const std::wstring path = folder + L"\\" + *found;
    AddRow(indent + FolderMark + *found, path);
    tree.SelectedTreeRow = tree.rows.size() - 1;
    if (end + 1 == BrowseStartFolder.size())
        AddChildRows(path, tree.listing.folders, indent);
    else
        AddAncestorRows(path, end + 1, depth + 1);
}

void FolderBrowser::AddChildRows(const std::wstring& folder, const std::vector<std::wstring>& names,
                                 const std::wstring& indent) {
    for (const std::wstring& name : names)
        AddRow(indent + LevelIndent + FolderMark + name, folder + L"\\" + name);
}

void FolderBrowser::AddRow(std::wstring text, std::wstring path) {
    tree.rows.push_back(std::move(text));
    tree.TreePaths.push_back(std::move(path));
}

void FolderBrowser::FillFileList() {
    selectionLost = selectionLost || fileList.FirstSelected().has_value();
    fileList.Clear();
    const std::wstring folder = WithoutBackslash(tree.folder);
    for (const std::wstring& name : tree.listing.files)
        if (isOffered(name, folder))
            fileList.Add(name);
}

FolderListing FolderBrowser::ListOrAsk(const std::wstring& folder) {
    for (;;) {
        try {
            return ListFolder(platform.files, folder);
        } catch (const RunTimeError& error) {
            if (error.Number() != ErrorNumber::DeviceUnavailable)
                throw;
            if (!platform.messages.AskRetryCancel(DriveNotReadyText))
                throw Cancelled();
        }
    }
}

} // namespace tamblin
