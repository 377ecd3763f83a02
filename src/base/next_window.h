// Where a window hands over to when it is done. Which window that is, the rules say; how it comes
// about, the application knows.
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

// The one way from a window to another one.
class HandOver {
  public:
    virtual ~HandOver() = default;
    virtual void Show(NextWindow next) = 0;
};

} // namespace tamblin
