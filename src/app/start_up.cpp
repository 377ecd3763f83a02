#include "app/start_up.h"

#include "base/run_time_error.h"

namespace tamblin {

bool StartUp::Load() {
    if (earlier.IsRunning()) {
        platform.messages.Inform(AlreadyRunningText);
        earlier.BringToFront();
        return false;
    }
    try {
        platform.files.SetCurrentFolder(platform.programFolder);
    } catch (const RunTimeError& error) {
        throw error.AsFatal();
    }
    return true;
}

NextWindow StartUp::Tick() {
    ++StartupTicker;
    switch (StartupTicker) {
        case 3:
            progressLineVisible = true;
            break;
        case 4:
            folderResult = file.ReadSetting(setting_keys::Version);
            break;
        case 5:
            if (state.VersionKnown)
                folderResult = file.ReadSetting(setting_keys::VmrFolder);
            break;
        case 7:
            if (state.VersionKnown)
                locationResult = file.ReadSetting(setting_keys::Default);
            break;
        case 9:
            if (state.VersionKnown && file.ReadSetting(setting_keys::ViewFolder))
                ++locationResult;
            break;
        case 11:
            progressLineVisible = false;
            break;
        case 12:
            file.ReadSetting(setting_keys::KvaOption);
            return Decide();
        default: // pacing
            break;
    }
    return NextWindow::Stay;
}

NextWindow StartUp::Decide() {
    if (folderResult != 0 || locationResult != 0)
        return NextWindow::MainWindow;
    state.BrowseStartFolder = platform.programFolder;
    return NextWindow::SetUpWizard;
}

} // namespace tamblin
