// What the main window shows, without the window: the combo, the two selectable lists, the folder
// browser, and which commands can be used. Commands read and change it; the window mirrors it.
#pragma once

#include <string>
#include <vector>

#include "base/selection_list.h"
#include "install/command.h"
#include "install/folder_browser.h"
#include "settings/host_folder_list.h"
#include "settings/settings_state.h"

namespace tamblin {

// The characters of the current host folder, with the two listings that stand behind them.
struct InstalledList {
    SelectionList names;                       // List3
    std::wstring folder;                       // the folder listed (Dir2, File2)
    std::vector<std::wstring> subfolders;      // Dir2: names
    std::vector<std::wstring> definitionFiles; // File2: names with extension
    // The folder is no longer what was listed: its next list counts as that of another folder.
    bool outdated = false;
};

struct MainModel {
    MainModel(Platform& platform, SettingsState& state);
    MainModel(const MainModel&) = delete; // the browser's filter refers to this model
    MainModel& operator=(const MainModel&) = delete;

    HostFolderCombo combo;
    InstalledList installed;
    FolderBrowser browser;
    EnabledCommands enabled;
    bool definitionUpdateReady = false; // the update lies in the character's own folder
};

} // namespace tamblin
