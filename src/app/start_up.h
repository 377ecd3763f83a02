// The steps from the splash window to the first working window, one per timer tick.
#pragma once

#include <cstdint>

#include "base/next_window.h"
#include "platform/earlier_copy.h"
#include "platform/platform.h"
#include "settings/settings_file.h"
#include "settings/settings_state.h"

namespace tamblin {

inline constexpr wchar_t AlreadyRunningText[] = L"すでに起動されています。";
inline constexpr unsigned StartUpTickMilliseconds = 200;

class StartUp {
  public:
    StartUp(Platform& surroundings, SettingsState& settings, SettingsFile& settingsFile,
            const EarlierCopy& earlierCopy)
        : platform(surroundings), state(settings), file(settingsFile), earlier(earlierCopy) {}

    // When the splash is loaded. False when another copy is running: the user has been told and
    // has that copy in front, and the process has to end.
    bool Load();

    // One tick of the splash's timer. Stay, but for the tick that ends the splash.
    NextWindow Tick();

    bool ProgressLineVisible() const { return progressLineVisible; }

  private:
    NextWindow Decide();

    Platform& platform;
    SettingsState& state;
    SettingsFile& file;
    const EarlierCopy& earlier;
    std::int16_t StartupTicker = 0;
    std::int16_t folderResult = 0;
    std::int16_t locationResult = 0;
    bool progressLineVisible = false;
};

} // namespace tamblin
