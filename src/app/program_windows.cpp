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
                               const EarlierCopy& earlier)
    : application(owner),
      platform(surroundings),
      settingsFile(platform, state),
      startUp(platform, state, settingsFile, earlier) {}

void ProgramWindows::ShowSplash() {
    application.Open<Form6>(application, startUp, *this).Show();
}

template <class FormType, class... Arguments>
void ProgramWindows::ShowOnly(Arguments&&... arguments) {
    FormType* form = application.FindOpen<FormType>();
    if (!form)
        form = &application.Open<FormType>(application, std::forward<Arguments>(arguments)...);
    form->Show();
}

// From        By                                To
// ----------  --------------------------------  --------------------------------------------------
// splash      a second copy is running          the end
//             its last tick                     main window, or wizard without usable settings
// main        Command6                          management (the main window hides itself)
//             Command10                         quick help, beside it
//             Command8, close box               the end
// management  Command1 (add)                    wizard
//             Command2 (change)                 manual
//             Command4, close box               main window; before there was one: the end
// wizard      Command2 (search), once it ends   main window, management, choice, or wizard again
//             Command1 (by hand)                manual
//             Command3, close box               the end; opened from management: management
// manual      Command1 (OK)                     first run: main window, or choice among several
//                                               opened from management, or a change: management
//             Command3 (More)                   manual anew; choice when ten are registered;
//                                               a change: management
//             Command2 (Back), close box        wizard; a change: management
// choice      Command1 (OK), last question      main window; opened from management: management
//             close box, first question         wizard
//             close box, last question          as OK
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
