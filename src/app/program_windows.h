// Which window follows on which: the program's windows, made when they are first wanted.
#pragma once

#include "app/start_up.h"
#include "platform/platform.h"
#include "settings/settings_file.h"
#include "settings/settings_state.h"
#include "ui/application.h"

namespace tamblin {

class ProgramWindows : public HandOver {
  public:
    ProgramWindows(Application& owner, Platform& surroundings, const EarlierCopy& earlier);

    void ShowSplash();
    void Show(NextWindow next) override;

  private:
    // Shows the open form of this kind, or a new one.
    template <class FormType, class... Arguments>
    void ShowOnly(Arguments&&... arguments);

    Application& application;
    Platform& platform;
    SettingsState state;
    SettingsFile settingsFile;
    StartUp startUp;
};

} // namespace tamblin
