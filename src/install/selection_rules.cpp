#include "install/selection_rules.h"

#include <algorithm>

#include "base/character_files.h"
#include "base/text.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr const wchar_t* ReadmeEndings[] = {L".txt", L"-X.txt", L".htm", L".html"};

bool IsProgram(const std::wstring& file) {
    return EndsWithIgnoringCase(file, L".EXE");
}

void EnableForInstalledSelection(EnabledCommands& enabled, size_t installedCount) {
    if (installedCount >= 1)
        enabled.Set({Command::Uninstall, Command::DeselectInstalled});
    if (installedCount == 1)
        enabled.Set({Command::SetStartUpCharacter, Command::Launch});
}

void EnableForOneFile(MainModel& model, const std::wstring& file, size_t installedCount) {
    EnabledCommands& enabled = model.enabled;
    enabled[Command::DeselectFiles] = true;
    if (installedCount == 0) {
        enabled[Command::UpdateHost] = IsProgram(file);
        enabled[Command::Install] = IsArchive(file);
        return;
    }
    enabled[Command::Install] = true;
    EnableForInstalledSelection(enabled, installedCount);
    const std::wstring& character = model.installed.names[*model.installed.names.LastSelected()];
    if (IsDefinition(file) && EqualIgnoringCase(CharacterOf(file), character))
        enabled[Command::UpdateDefinition] = true;
}

// A program file never stays part of a multiple selection.
void DeselectPrograms(SelectionList& files) {
    for (size_t index = 0; index < files.Size(); ++index)
        if (IsProgram(files[index]))
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
        model.enabled.Set({Command::DeselectFiles, Command::Install});
    }
    EnableForInstalledSelection(model.enabled, installedCount);
}

void EnableForOneCharacter(MainModel& model, const std::wstring& hostFolder, Platform& platform) {
    const std::wstring& character = model.installed.names[*model.installed.names.LastSelected()];
    if (FindNeededFile(platform.files, DeliveredDefinitionFile(hostFolder, character)))
        model.enabled[Command::UpdateDefinition] = model.definitionUpdateReady = true;
    model.enabled[Command::ShowReadme] = HasReadme(model.installed.folder, character, platform);
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

bool HasReadme(const std::wstring& hostFolder, const std::wstring& character, Platform& platform) {
    const auto readmes = ReadmeCandidates(hostFolder, character);
    return std::any_of(readmes.begin(), readmes.end(), [&](const std::wstring& readme) {
        return FindNeededFile(platform.files, readme).has_value();
    });
}

std::wstring DeliveredDefinitionFile(const std::wstring& hostFolder,
                                     const std::wstring& character) {
    return WithBackslash(hostFolder) + character + L"\\dat\\obl\\" + DefinitionOf(character);
}

void DisableCharacterCommands(MainModel& model) {
    model.enabled.Set({Command::UpdateDefinition, Command::Uninstall, Command::DeselectInstalled,
                       Command::SetStartUpCharacter, Command::Launch, Command::ShowReadme},
                      false);
    model.definitionUpdateReady = false;
}

void ApplySelectionRules(MainModel& model, const SettingsState& state, Platform& platform) {
    model.enabled = {};
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
