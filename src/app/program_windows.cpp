#include "app/program_windows.h"

#include "app/main_window.h"
#include "app/splash_window.h"
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

void ProgramWindows::Show(NextWindow next) {
    switch (next) {
        case NextWindow::MainWindow:
            ShowMainWindow();
            break;
        case NextWindow::SetUpWizard:
            application.Open<Form2>(application, *this, platform.programFolder).Show();
            break;
        case NextWindow::EndProgram:
            application.CloseAll();
            break;
        case NextWindow::ManualFolder:
        case NextWindow::FolderChoice:
        case NextWindow::FolderManagement:
        case NextWindow::Stay:
            break;
    }
}

void ProgramWindows::ShowMainWindow() {
    if (!mainWindow)
        mainWindow = &application.Open<Form1>(application, platform, state, settingsFile, *this);
    mainWindow->Show();
}

} // namespace tamblin
