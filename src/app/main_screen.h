// What happens in the main window itself, without the window: each method is one event. The window
// reads the selections into Model() before an event and mirrors Model() afterwards, also after a
// failure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/menu.h"
#include "base/run_time_error.h"
#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_file.h"
#include "settings/settings_state.h"

namespace tamblin {

class MainScreen {
  public:
    MainScreen(Platform& surroundings, SettingsState& settings, SettingsFile& settingsFile)
        : platform(surroundings), state(settings), file(settingsFile), model(platform, state) {}

    MainModel& Model() { return model; }

    // All events may throw RunTimeError.
    void Load();
    void Activate(); // a host folder that is gone fails only the first time
    void ComboSelected(size_t entry);
    void SelectionChanged(); // by a click in either list
    void TreeRowOpened(size_t row);
    void TreeUpPressed(); // Backspace in the tree
    // F5: reads host folder, tree and files anew; what is selected stays selected, by its name.
    void RefreshPressed();
    // Files dropped on the window: shows and selects the archives among them, which have to be of
    // one folder, ready to install. True unless the user has been told why not.
    bool FilesDropped(const std::vector<std::wstring>& paths);
    // Whether Return or a double-click on a row of the file list installs: where it is a selected
    // archive, and the install button can be pressed.
    bool InstallsFile(size_t row) const;

    void PrepareStagingPressed();
    void SettingsPressed(); // before folder management is shown
    void DeselectInstalledPressed();
    void DeselectFilesPressed();
    // The right button over a row, beside all rows, or the keyboard.
    Menu InstalledListMenu(std::optional<size_t> row);

    // Leaving: both save, then ask. True when the window has to be closed.
    bool ExitPressed();
    bool CloseBoxPressed(); // close box or system menu

    // What the status line says while the pointer is over a button; nothing when it stays as it is.
    static std::optional<std::wstring> StatusText(Command command);
    static std::wstring InitialStatusText();

  private:
    std::optional<RunTimeError> RereadHostFolder();
    // What the user has to be told instead, or null.
    const wchar_t* ShowDropped(const std::vector<std::wstring>& paths);

    Platform& platform;
    SettingsState& state;
    SettingsFile& file;
    MainModel model;
    std::wstring unreadableFolder; // the host folder that the last refresh could not list
};

} // namespace tamblin
