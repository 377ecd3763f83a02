#include "app/program_windows.h"

#include "app/main_window.h"
#include "app/splash_window.h"
#include "settings/folder_management_window.h"
#include "setup/choice_window.h"
#include "setup/manual_folder_window.h"
#include "setup/quick_help_window.h"
#include "setup/wizard_window.h"

namespace tamblin {

ProgramWindows::ProgramWindows(Application& owner, Platform& surroundings,
                               std::function<bool()> anotherCopyIsRunning)
    : application(owner),
      platform(surroundings),
      isAnotherCopyRunning(std::move(anotherCopyIsRunning)),
      settingsFile(platform, state),
      startUp(platform, state, settingsFile) {}

void ProgramWindows::ShowSplash() {
    application.Open<Form6>(application, startUp, *this, isAnotherCopyRunning).Show();
}

template <class FormType, class... Arguments>
void ProgramWindows::ShowOnly(Arguments&&... arguments) {
    FormType* form = application.FindOpen<FormType>();
    if (!form)
        form = &application.Open<FormType>(application, std::forward<Arguments>(arguments)...);
    form->Show();
}

// Who asks for what: the splash for the main window or the wizard; the main window (which hides
// itself) for folder management, and for quick help beside it; folder management for the main
// window, the wizard (add) or the manual window (change); the wizard for the manual window, and
// after a search for the choice, the main window or folder management; the manual window and the
// choice for those two again, or back for the wizard.
void ProgramWindows::Show(NextWindow next) {
    switch (next) {
        case NextWindow::MainWindow:
            ShowOnly<Form1>(platform, state, settingsFile, *this);
            break;
        case NextWindow::SetUpWizard:
            ShowOnly<Form2>(platform, state, *this);
            break;
        case NextWindow::ManualFolder:
            // Always a new one: it may be asked for by the one that is about to close.
            application.Open<Form3>(application, platform, state, *this).Show();
            break;
        case NextWindow::FolderChoice:
            ShowOnly<Form5>(state, *this);
            break;
        case NextWindow::FolderManagement:
            ShowOnly<Form8>(state, *this);
            break;
        case NextWindow::QuickHelp:
            ShowOnly<Form9>(platform, application.FindOpen<Form1>()->Handle());
            break;
        case NextWindow::EndProgram:
            application.CloseAll();
            break;
        case NextWindow::Stay:
            break;
    }
}

} // namespace tamblin
