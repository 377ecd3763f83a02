#include "setup/folder_choice.h"

#include <algorithm>

namespace tamblin {

void FolderChoice::Load() {
    stage = state.ChoiceStage;
    if (InFirstStage())
        LoadFirstStage();
    else
        LoadSecondStage();
}

void FolderChoice::LoadFirstStage() {
    const auto all = state.RegisteredAndFound();
    folders.assign(all.begin(), all.end());
    ticks.assign(folders.size(), false);
    std::fill_n(ticks.begin(), state.HostFolderCount, true);
    okEnabled = state.HostFolderCount > 0;
}

void FolderChoice::LoadSecondStage() {
    const auto registered = state.Registered();
    folders.assign(registered.begin(), registered.end());
    okEnabled = false;
    if (folders.size() == 1)
        DefaultChosen(0);
}

void FolderChoice::TickChanged(size_t line, bool ticked) {
    ticks[line] = ticked;
    okEnabled = std::find(ticks.begin(), ticks.end(), true) != ticks.end();
}

void FolderChoice::DefaultChosen(size_t line) {
    chosen = line;
    if (folders[line].empty())
        return;
    state.DefaultFolder = folders[line];
    okEnabled = true;
}

NextWindow FolderChoice::OkPressed() {
    if (!InFirstStage())
        return Finish();
    for (size_t line = 0; line < folders.size(); ++line) {
        if (!ticks[line])
            DropUnticked(folders[line]);
        else if (!state.IsRegistered(folders[line]))
            state.Register(folders[line]);
    }
    if (state.HostFolderCount < 2)
        return Finish();
    state.ChoiceStage = 2;
    Load();
    return NextWindow::Stay;
}

// The slots compared are 0 to count - 1: the last registered folder is never found. Moving the
// folders behind it down lowers the count each time, so the count ends at the slot dropped.
void FolderChoice::DropUnticked(const std::wstring& folder) {
    const auto first = state.HostFolders.begin();
    const auto last = first + state.HostFolderCount;
    const auto found = std::find(first, last, folder);
    if (found == last)
        return;
    const std::int16_t countBefore = state.HostFolderCount;
    for (auto slot = found - first + 1; slot <= countBefore; ++slot) {
        state.HostFolders[static_cast<size_t>(slot - 1)] =
            state.HostFolders[static_cast<size_t>(slot)];
        --state.HostFolderCount;
    }
}

// The one folder of a first run is its default: there is nothing to choose.
NextWindow FolderChoice::Finish() {
    if (state.WizardFromManagement)
        return NextWindow::FolderManagement;
    if (state.HostFolderCount == 1 && state.DefaultFolder.empty())
        state.DefaultFolder = state.HostFolders[1];
    return NextWindow::MainWindow;
}

NextWindow FolderChoice::Closed() const {
    if (InFirstStage())
        return NextWindow::SetUpWizard;
    return state.WizardFromManagement ? NextWindow::FolderManagement : NextWindow::MainWindow;
}

std::wstring FolderChoice::Question() const {
    return InFirstStage()
               ? L"検出されたフォルダのうち、登録するフォルダにチェックをつけてください。"
               : L"デフォルトに設定するフォルダを選択してください。";
}

} // namespace tamblin
