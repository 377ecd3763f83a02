// Choosing among the host folders after a search: first which to register, then which is the
// default. Without its window (Form5).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/next_window.h"
#include "settings/settings_state.h"

namespace tamblin {

class FolderChoice {
  public:
    explicit FolderChoice(SettingsState& settings) : state(settings) {}

    // Shows the stage that the state asks for.
    void Load();

    void TickChanged(size_t line, bool ticked);
    void DefaultChosen(size_t line);

    // Stay when the second stage follows; the window shows it then.
    NextWindow OkPressed();
    // The close box: nothing more is registered or chosen.
    NextWindow Closed() const;

    std::wstring Question() const;
    bool InFirstStage() const { return stage == 1; }

    std::vector<std::wstring> folders; // List1 in the first stage, Combo1 in the second
    std::vector<bool> ticks;
    std::optional<size_t> chosen; // the combo's choice
    bool okEnabled = false;

  private:
    void LoadFirstStage();
    void LoadSecondStage();
    void DropUnticked(const std::wstring& folder);
    NextWindow Finish();

    SettingsState& state;
    int stage = 1;
};

} // namespace tamblin
