// The folder tree over all drives and the files of the folder it shows. The main window and the
// manual host folder window each have one, with a file filter of their own.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "base/selection_list.h"
#include "platform/file_lists.h"
#include "platform/platform.h"

namespace tamblin {

class FolderBrowser {
  public:
    // Says whether a file of the shown folder (given without a trailing "\" unless it is a root)
    // is offered.
    using FileFilter = std::function<bool(const std::wstring& name, const std::wstring& folder)>;

    // `startFolder` is the shared string that says which folder to show; it outlives the browser.
    FolderBrowser(Platform& surroundings, std::wstring& startFolder, FileFilter filter)
        : platform(surroundings), BrowseStartFolder(startFolder), isOffered(std::move(filter)) {}

    // Builds rows, paths, files and path text anew. Asks "retry or cancel" when a drive is not
    // ready; "cancel" and any other failure leave all as it was. Never throws.
    void RebuildBrowser();

    // A click on a row of the tree; rows that are not there are left alone.
    void SelectTreeRow(size_t row);
    // A double-click on a row of the tree. A folder that cannot be listed leaves the browser where
    // it is.
    void OpenTreeRow(size_t row);

    // Goes to a folder, as a double-click on its row would. False when it cannot be listed.
    bool ShowFolder(const std::wstring& folder);
    // Goes to the folder that holds the shown one; from a root there is no way up.
    void GoUp();
    // Reads everything anew and leaves the tree as the user has it: the same rows where the folders
    // are still there, the same one selected. The files' selections go.
    void Reread();

    // The name of the folder or drive in a row's text.
    static std::wstring NameInRow(const std::wstring& row);

    // The folder whose files are listed, with a trailing "\", as Text1 shows it; empty before the
    // first rebuild.
    const std::wstring& ShownFolder() const { return tree.folder; }
    const std::vector<std::wstring>& Rows() const { return tree.rows; }
    const std::vector<std::wstring>& Paths() const { return tree.TreePaths; }
    size_t SelectedRow() const { return tree.SelectedTreeRow; }
    SelectionList& Files() { return fileList; }
    const SelectionList& Files() const { return fileList; }

    // True once after a rebuild that has taken a selection away from the file list.
    bool TakeSelectionLost();

  private:
    struct Cancelled {};
    struct Tree {
        std::wstring folder; // the one whose files are listed
        FolderListing listing;
        std::vector<std::wstring> rows;
        std::vector<std::wstring> TreePaths; // parallel to the rows
        size_t SelectedTreeRow = 0;
        bool changed = false; // it was built with the flag
    };

    void Rebuild(bool treeChanged);
    void AddDesktopRows(bool treeChanged);
    void AddDriveRows();
    void AddAncestorRows(const std::wstring& folder, size_t matched, size_t depth);
    void AddChildRows(const std::wstring& folder, const std::vector<std::wstring>& names,
                      const std::wstring& indent);
    void AddRow(std::wstring text, std::wstring path);
    void FillFileList();
    FolderListing ListOrAsk(const std::wstring& folder);

    Platform& platform;
    std::wstring& BrowseStartFolder;
    FileFilter isOffered;

    // [0] the browse folder parked by the desktop rows, [1] the desktop row's caption, [2] the
    // desktop folder with a trailing "\".
    std::array<std::wstring, 3> SpecialEntries;
    Tree tree;
    bool treeChangedFlag = false;
    bool selectionLost = false;
    SelectionList fileList;
};

} // namespace tamblin
