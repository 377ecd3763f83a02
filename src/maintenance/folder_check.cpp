#include "maintenance/folder_check.h"

#include "base/character_files.h"
#include "base/name_index.h"
#include "base/text.h"
#include "install/installed_list.h"

namespace tamblin {
namespace {

constexpr wchar_t NothingText[] = L"（該当なし）";
constexpr wchar_t DeleteQuestion[] = L"使用可能状態にないオンブレルの定義ファイルを削除します。";
constexpr wchar_t RecycleQuestion[] =
    L"VMRフォルダ内にある、オンブレルとは直接関係のないフォルダをごみ箱へ移動します。";

} // namespace

void FolderCheck::RunCheck(MainModel& model) {
    hostFolder = model.combo.Text();
    ListHostFolder(model.installed, hostFolder, platform);

    definitionFiles.Clear();
    folders.Clear();
    const NameIndex knownFiles(model.installed.definitionFiles);
    const NameIndex knownFolders(model.installed.subfolders);
    for (const std::wstring& folder : model.installed.subfolders)
        if (knownFiles.Find(DefinitionOf(folder)) == nullptr)
            folders.Add(folder);
    for (const std::wstring& file : model.installed.definitionFiles)
        if (knownFolders.Find(CharacterOf(file)) == nullptr)
            definitionFiles.Add(file);
}

void FolderCheck::Activate() {
    if (definitionFiles.Empty() && folders.Empty())
        generalNoteVisible = true;
    if (definitionFiles.Empty()) {
        definitionFiles.Add(NothingText);
        definitionFilesEnabled = deleteEnabled = false;
    }
    if (folders.Empty()) {
        folders.Add(NothingText);
        foldersEnabled = false;
    }
}

void FolderCheck::DeleteDefinitionFiles() {
    if (!platform.messages.AskOkCancel(DeleteQuestion))
        return;
    for (const std::wstring& file : definitionFiles.Entries())
        platform.files.Delete(WithBackslash(hostFolder) + file);
    definitionFiles.Clear();
    definitionFilesEnabled = deleteEnabled = false;
}

Menu FolderCheck::FolderMenu() const {
    if (!folders.FirstSelected())
        return {};
    return {{MenuItem::mnmv, L"ごみ箱へ移動"}, {}, {MenuItem::mncan, L"キャンセル"}};
}

// From the last entry to the first: that is the order in which the shell is told of them. The rows
// go together at the end.
void FolderCheck::MoveFoldersToRecycleBin() {
    if (!platform.messages.AskOkCancel(RecycleQuestion))
        return;
    for (size_t index = folders.Size(); index > 0; --index)
        if (folders.IsSelected(index - 1))
            platform.shell.MoveToRecycleBin(WithBackslash(hostFolder) + folders[index - 1]);
    folders.RemoveSelected();
    if (folders.Empty())
        foldersEnabled = false;
}

} // namespace tamblin
