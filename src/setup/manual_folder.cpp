#include "setup/manual_folder.h"

#include "base/text.h"
#include "settings/host_folder_list.h"

namespace tamblin {
namespace {

bool IsHostFile(const std::wstring& name, const std::wstring&) {
    return EqualIgnoringCase(name, HostProgramName) || EqualIgnoringCase(name, HostStartUpFileName);
}

// A drive's row stands for its root.
std::wstring AsFolder(const std::wstring& path) {
    return path.size() == 2 ? path + L"\\" : WithoutBackslash(path);
}

} // namespace

ManualFolder::ManualFolder(Platform& surroundings, SettingsState& settings)
    : platform(surroundings), state(settings), browser(surroundings, treeFolder, IsHostFile) {}

void ManualFolder::Load() {
    moreEnabled = !state.EditMode && state.HostFolderCount < HostFolderLimit - 1;
    treeFolder = StartFolder();
    // A folder to be changed is proposed as it is registered, so that it counts as unchanged.
    folderText = state.EditMode ? treeFolder : WithoutBackslash(treeFolder);
    browser.RebuildBrowser();
    if (!browser.Rows().empty())
        return;
    // The folder to be changed is gone, as after a move: there must be a tree to find it in.
    treeFolder = platform.programFolder;
    browser.RebuildBrowser();
}

// The current folder of the drive that the program lies on.
std::wstring ManualFolder::StartFolder() {
    if (state.EditMode)
        return state.HostFolders[static_cast<size_t>(state.EditIndex)];
    std::wstring current = platform.files.CurrentFolder();
    const bool onOwnDrive =
        EqualIgnoringCase(current.substr(0, 2), platform.programFolder.substr(0, 2));
    return onOwnDrive ? current : platform.programFolder;
}

void ManualFolder::TreeRowClicked(size_t row) {
    if (row < browser.Paths().size() && !browser.Paths()[row].empty())
        folderText = AsFolder(browser.Paths()[row]);
}

void ManualFolder::TreeRowOpened(size_t row) {
    browser.OpenTreeRow(row);
    ShowTreeFolder();
}

void ManualFolder::TreeUpPressed() {
    browser.GoUp();
    ShowTreeFolder();
}

void ManualFolder::ShowTreeFolder() {
    if (!browser.ShownFolder().empty())
        folderText = WithoutBackslash(browser.ShownFolder());
}

std::wstring ManualFolder::StatusText() const {
    return WithoutBackslash(browser.ShownFolder());
}

NextWindow ManualFolder::OkPressed(const std::wstring& folder) {
    const Registration registration = RegisterHostFolder(state, folder, platform);
    if (registration == Registration::HostMissing)
        return NextWindow::Stay;
    if (state.EditMode) {
        state.ChangedSlot = state.EditIndex;
        return BackToManagement();
    }
    if (state.WizardFromManagement)
        return NextWindow::FolderManagement;
    if (state.HostFolderCount != 1)
        return ChooseDefault();
    state.DefaultFolder = state.HostFolders[1];
    return NextWindow::MainWindow;
}

NextWindow ManualFolder::MorePressed(const std::wstring& folder) {
    RegisterHostFolder(state, folder, platform);
    if (state.EditMode)
        return BackToManagement();
    if (state.IsFull())
        return ChooseDefault();
    return NextWindow::ManualFolder;
}

NextWindow ManualFolder::BackPressed() {
    if (state.EditMode)
        return BackToManagement();
    return NextWindow::SetUpWizard;
}

NextWindow ManualFolder::BackToManagement() {
    state.EditMode = false;
    return NextWindow::FolderManagement;
}

NextWindow ManualFolder::ChooseDefault() {
    state.ChoiceStage = 2;
    return NextWindow::FolderChoice;
}

} // namespace tamblin
