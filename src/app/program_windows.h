// Which window follows on which: the program's windows, made when they are first wanted.
#pragma once

#include <functional>

#include "app/start_up.h"
#include "platform/platform.h"
#include "settings/settings_file.h"
#include "settings/settings_state.h"
#include "ui/application.h"
#include "ui/hand_over.h"

namespace tamblin {

class Form1;

class ProgramWindows : public HandOver {
  public:
    ProgramWindows(Application& owner, Platform& surroundings,
                   std::function<bool()> anotherCopyIsRunning);

    void ShowSplash();
    void Show(NextWindow next) override;

  private:
    void ShowMainWindow();

    Application& application;
    Platform& platform;
    std::function<bool()> isAnotherCopyRunning;
    SettingsState state;
    SettingsFile settingsFile;
    StartUp startUp;
    Form1* mainWindow = nullptr; // it lives as long as the program has windows
};

} // namespace tamblin
