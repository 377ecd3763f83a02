// The folder structure check: folders of the host folder without a definition file, definition
// files without a folder, and what the result window can do about them.
#pragma once

#include <string>

#include "base/menu.h"
#include "base/selection_list.h"
#include "install/main_model.h"
#include "platform/platform.h"

namespace tamblin {

class FolderCheck {
  public:
    explicit FolderCheck(Platform& surroundings) : platform(surroundings) {}

    // Reads the current host folder anew, also for the main window, and compares.
    void RunCheck(MainModel& model);

    // Each time the result window becomes active: placeholders, notes, enabled states.
    void Activate();

    // "削除する（推奨）": deletes all listed definition files, after a question. Throws
    // RunTimeError when one cannot be deleted; those before it are gone, the list stays.
    void DeleteDefinitionFiles();

    // The folder list's menu, which opens only over a selection.
    Menu FolderMenu() const;
    // "ごみ箱へ移動": moves the selected folders to the recycle bin, after a question.
    void MoveFoldersToRecycleBin();

    SelectionList definitionFiles;      // List1
    SelectionList folders;              // List2
    bool definitionFilesEnabled = true; // the list and its note
    bool deleteEnabled = true;          // Command1
    bool foldersEnabled = true;         // the list and both its notes
    bool generalNoteVisible = false;

  private:
    Platform& platform;
    std::wstring hostFolder; // cannot change while the result window is shown, which is modal
};

} // namespace tamblin
