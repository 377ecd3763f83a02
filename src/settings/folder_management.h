// Reviewing the registered host folders: choosing the default, adding, changing, deleting, and the
// permission to write into the Kavalet definition file. Without its window (Form8).
#pragma once

#include <string>

#include "base/next_window.h"
#include "base/selection_list.h"
#include "settings/settings_state.h"

namespace tamblin {

class FolderManagement {
  public:
    explicit FolderManagement(SettingsState& settings) : state(settings) {}

    void Load();
    void Activate();
    void SelectionChanged();

    NextWindow AddPressed();    // Command1
    NextWindow ChangePressed(); // Command2
    void DeletePressed();       // Command3
    // Command4. As "戻る" it applies the choice of default and the permission.
    NextWindow LeavePressed();
    // The close box and Escape lead to the same place and apply nothing.
    NextWindow Closed() const;

    std::wstring LeaveCaption() const;

    SelectionList folders;   // List1, in slot order
    bool kvaAllowed = false; // Option1: "許可する", else "禁止する（デフォルト）"
    bool addEnabled = true;
    bool changeEnabled = false;
    bool deleteEnabled = false;
    bool leaveEnabled = true;

  private:
    SettingsState& state;
    bool openedFromMainWindow = false;
};

} // namespace tamblin
