#include "install/installed_list.h"

#include "base/character_files.h"
#include "base/name_index.h"
#include "install/selection_rules.h"
#include "platform/file_lists.h"

namespace tamblin {

void RefreshInstalledList(MainModel& model, SettingsState& state, Platform& platform) {
    InstalledList& installed = model.installed;
    const std::wstring hostFolder = model.combo.Text();

    installed.names.Clear();
    DisableCharacterCommands(model);
    if (hostFolder != installed.folder || installed.outdated)
        ApplySelectionRules(model, state, platform);
    state.DefaultFolder = hostFolder;
    ListHostFolder(installed, hostFolder, platform);
    const NameIndex folders(installed.subfolders);
    for (const std::wstring& file : installed.definitionFiles)
        if (const std::wstring* folder = folders.Find(CharacterOf(file)))
            installed.names.Add(*folder);
}

void ListHostFolder(InstalledList& installed, const std::wstring& hostFolder, Platform& platform) {
    installed.folder = hostFolder;
    installed.outdated = false;
    installed.subfolders.clear();
    installed.definitionFiles.clear();
    if (hostFolder.empty())
        return;
    FolderListing listing = ListFolder(platform.files, hostFolder);
    std::erase_if(listing.files, [](const std::wstring& file) { return !IsDefinition(file); });
    installed.subfolders = std::move(listing.folders);
    installed.definitionFiles = std::move(listing.files);
}

} // namespace tamblin
