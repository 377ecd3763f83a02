#include "settings/folder_management.h"

namespace tamblin {

void FolderManagement::Load() {
    openedFromMainWindow = state.OpenedFromMainWindow;
    kvaAllowed = state.KvaOption == L"ON";
}

void FolderManagement::Activate() {
    leaveEnabled = false;
    folders.Clear();
    for (const std::wstring& folder : state.Registered()) {
        folders.Add(folder);
        if (folder == state.DefaultFolder)
            folders.Select(folders.Size() - 1);
    }
    if (state.ChangedSlot > 0 && state.ChangedSlot <= state.HostFolderCount) {
        folders.DeselectAll();
        folders.Select(static_cast<size_t>(state.ChangedSlot) - 1);
    }
    state.ChangedSlot = 0;

    addEnabled = !state.IsFull();
    if (state.HostFolderCount == 0)
        leaveEnabled = true;
    if (folders.FirstSelected())
        SelectionChanged();
    else
        changeEnabled = deleteEnabled = false;
}

void FolderManagement::SelectionChanged() {
    if (folders.FirstSelected())
        changeEnabled = deleteEnabled = leaveEnabled = true;
}

NextWindow FolderManagement::AddPressed() {
    state.WizardFromManagement = true;
    return NextWindow::SetUpWizard;
}

NextWindow FolderManagement::ChangePressed() {
    const auto line = folders.FirstSelected();
    if (!line)
        return NextWindow::Stay;
    state.EditIndex = static_cast<std::int16_t>(*line + 1);
    state.EditMode = true;
    return NextWindow::ManualFolder;
}

// The list has one selection, which goes with its line: the default keeps the deleted path until
// another line is chosen. Slots above the count keep their old strings.
void FolderManagement::DeletePressed() {
    const auto deleted = folders.FirstSelected();
    if (!deleted)
        return;
    state.HostFolderCount = 0;
    for (size_t line = 0; line < folders.Size(); ++line)
        if (line != *deleted)
            state.Register(folders[line]);
    Activate();
}

NextWindow FolderManagement::LeavePressed() {
    if (openedFromMainWindow) {
        if (const auto line = folders.FirstSelected())
            state.DefaultFolder = folders[*line];
        state.KvaOption = kvaAllowed ? L"ON" : L"OFF";
    }
    return Closed();
}

NextWindow FolderManagement::Closed() const {
    return openedFromMainWindow ? NextWindow::MainWindow : NextWindow::EndProgram;
}

std::wstring FolderManagement::LeaveCaption() const {
    return openedFromMainWindow ? L"戻る" : L"終了";
}

} // namespace tamblin
