#include "install/selection_rules.h"

#include <algorithm>
#include <array>

#include "base/character_files.h"
#include "base/text.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr std::array<size_t, 10> GovernedButtons = {1, 2, 3, 4, 5, 7, 9, 11, 13, 14};
constexpr const wchar_t* ReadmeEndings[] = {L".txt", L"-X.txt", L".htm", L".html"};

bool IsProgram(const std::wstring& file) {
    return EndsWithIgnoringCase(file, L".EXE");
}

void EnableForInstalledSelection(ActionButtons& buttons, size_t installedCount) {
    if (installedCount == 0)
        return;
    buttons[5] = buttons[7] = true;
    if (installedCount == 1)
        buttons[11] = buttons[13] = true;
}

void EnableForOneFile(MainModel& model, const std::wstring& file, size_t installedCount) {
    ActionButtons& buttons = model.buttons;
    buttons[9] = true;
    if (installedCount == 0) {
        buttons[3] = IsProgram(file);
        buttons[1] = IsArchive(file);
        return;
    }
    buttons[1] = true;
    EnableForInstalledSelection(buttons, installedCount);
    const std::wstring& character = model.installed.names[*model.installed.names.LastSelected()];
    if (IsDefinition(file) && EqualIgnoringCase(CharacterOf(file), character))
        buttons[4] = true;
}

// A program file never stays part of a multiple selection.
void DeselectPrograms(SelectionList& files) {
    for (size_t index = 0; index < files.Size(); ++index)
        if (files.IsSelected(index) && IsProgram(files[index]))
            files.Select(index, false);
}

void EnableForFiles(MainModel& model, size_t installedCount) {
    SelectionList& files = model.browser.Files();
    const size_t fileCount = files.SelectedCount();
    if (fileCount == 1) {
        EnableForOneFile(model, files[*files.LastSelected()], installedCount);
        return;
    }
    if (fileCount >= 2) {
        DeselectPrograms(files);
        model.buttons[9] = model.buttons[1] = true;
    }
    EnableForInstalledSelection(model.buttons, installedCount);
}

void EnableForOneCharacter(MainModel& model, const std::wstring& hostFolder, Platform& platform) {
    const auto exists = [&](const std::wstring& path) {
        return FindNeededFile(platform.files, path).has_value();
    };
    const std::wstring& character = model.installed.names[*model.installed.names.LastSelected()];
    if (exists(DeliveredDefinitionFile(hostFolder, character)))
        model.buttons[4] = model.definitionUpdateReady = true;
    const auto readmes = ReadmeCandidates(model.installed.folder, character);
    model.buttons[14] = std::any_of(readmes.begin(), readmes.end(), exists);
}

} // namespace

std::vector<std::wstring> ReadmeCandidates(const std::wstring& hostFolder,
                                           const std::wstring& character) {
    const std::wstring stem = WithBackslash(hostFolder) + character + L"\\" + character;
    std::vector<std::wstring> candidates;
    for (const wchar_t* ending : ReadmeEndings)
        candidates.push_back(stem + ending);
    return candidates;
}

std::wstring DeliveredDefinitionFile(const std::wstring& hostFolder,
                                     const std::wstring& character) {
    return WithBackslash(hostFolder) + character + L"\\dat\\obl\\" + DefinitionOf(character);
}

void DisableCharacterButtons(MainModel& model) {
    for (const size_t command : {4U, 5U, 7U, 11U, 13U, 14U})
        model.buttons[command] = false;
    model.definitionUpdateReady = false;
}

void ApplySelectionRules(MainModel& model, const SettingsState& state, Platform& platform) {
    for (const size_t command : GovernedButtons)
        model.buttons[command] = false;
    if (state.DefaultFolder.empty())
        return;

    const size_t installedCount = model.installed.names.SelectedCount();
    EnableForFiles(model, installedCount);
    model.definitionUpdateReady = false;
    if (installedCount == 1)
        EnableForOneCharacter(model, model.combo.Text(), platform);
    platform.files.SetCurrentFolder(platform.programFolder);
}

} // namespace tamblin
