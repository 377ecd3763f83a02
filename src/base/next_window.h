// Where a window hands over to when it is done. The hand-over itself is the application's.
#pragma once

namespace tamblin {

enum class NextWindow {
    Stay, // the window goes on
    MainWindow,
    SetUpWizard,
    ManualFolder,
    FolderChoice,
    FolderManagement,
    QuickHelp,  // beside the window that it was opened from
    EndProgram, // at once, without saving
};

} // namespace tamblin
