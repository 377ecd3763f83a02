// The settings of this run, one instance for the whole program: filled at start-up, edited by the
// windows, written back when the user leaves.
#pragma once

#include <cstdint>
#include <string>

#include "settings/host_folder_slots.h"

namespace tamblin {

struct SettingsState : HostFolderSlots {
    std::wstring DefaultFolder;     // the current host folder; empty when there is none
    std::wstring ViewFolder;        // the browser's folder as the settings file had it
    std::wstring BrowseStartFolder; // the browser's folder now, with a trailing "\"
    std::wstring KvaOption;         // "ON" or "OFF"; empty until something has set it
    bool VersionKnown = false;

    bool EditMode = false;      // a registered folder is being changed, not added
    std::int16_t EditIndex = 0; // its slot

    std::int16_t ChangedSlot = 0; // just changed, to be shown as chosen; 0 when none

    bool OpenedFromMainWindow = false; // folder management was, at least once in this run

    // Set-up.
    bool SearchRunning = false;
    bool WizardFromManagement = false; // else the wizard belongs to the first run
    std::int16_t ChoiceStage = 1;      // 1 which folders to register, 2 which is the default
};

} // namespace tamblin
