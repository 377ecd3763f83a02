// Installing the selected packages: stage, judge, ask, copy, tidy up.
#pragma once

#include <cstdint>

#include "base/selection_list.h"
#include "install/main_model.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// The confirmation window's contents.
struct InstallConfirmation {
    SelectionList toInstall;        // List1
    SelectionList cannotInstall;    // List2
    SelectionList alreadyInstalled; // List3
    bool installNowEnabled = true;

    // The note under the cannot-install list, and whether it is seen.
    static constexpr wchar_t Note[] =
        L"tambに対応した形式ではありませんでした。\r\n"
        L"これらをインストールする場合は手動で行ってください。";
    bool NoteVisible() const;
};

inline constexpr std::int16_t AnswerInstall = 1;
inline constexpr std::int16_t AnswerCancel = 2;

// What the install asks of the main window.
class InstallScreen {
  public:
    virtual ~InstallScreen() = default;

    // A window that is disabled shows the model first, its buttons included.
    virtual void SetMainWindowEnabled(bool enabled) = 0;
    // Shows the confirmation window until it is closed. Its buttons write AnswerInstall or
    // AnswerCancel; a window closed in any other way leaves the answer as it was.
    virtual void ShowConfirmation(const InstallConfirmation& lists,
                                  std::int16_t& InstallAnswer) = 0;
    // False once the main window is closed, as at the end of the session.
    virtual bool MainWindowIsOpen() const = 0;
    // Handle of the main window, as the owner of the progress window.
    virtual void* MainWindowHandle() = 0;
};

// Runs one install to its end. The main window is usable again afterwards, also when a RunTimeError
// ends it early.
void Install(MainModel& model, SettingsState& state, Platform& platform, InstallScreen& screen);

} // namespace tamblin
