// Naming a host folder by hand, or changing a registered one. Without its window (Form3).
#pragma once

#include <string>

#include "base/next_window.h"
#include "install/folder_browser.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

class ManualFolder {
  public:
    ManualFolder(Platform& surroundings, SettingsState& settings);
    ManualFolder(const ManualFolder&) = delete; // the browser refers to the tree folder
    ManualFolder& operator=(const ManualFolder&) = delete;

    void Load();
    void TreeRowClicked(size_t row);
    void TreeRowOpened(size_t row);
    void TreeUpPressed(); // Backspace in the tree

    // `folder` is what stands in the folder text. Both may throw RunTimeError.
    NextWindow OkPressed(const std::wstring& folder);
    // Command3. ManualFolder as the answer asks for the window once more.
    NextWindow MorePressed(const std::wstring& folder);
    // Command2 and the close box.
    NextWindow BackPressed();

    FolderBrowser& Browser() { return browser; }                  // List1, List2
    const std::wstring& FolderText() const { return folderText; } // Text1, until the user edits it
    std::wstring StatusText() const;                              // Label10
    bool MoreEnabled() const { return moreEnabled; }

  private:
    NextWindow BackToManagement();
    NextWindow ChooseDefault();
    std::wstring StartFolder();
    void ShowTreeFolder();

    Platform& platform;
    SettingsState& state;
    std::wstring treeFolder;
    FolderBrowser browser;
    std::wstring folderText;
    bool moreEnabled = true;
};

} // namespace tamblin
