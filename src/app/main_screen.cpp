#include "app/main_screen.h"

#include <utility>

#include "base/character_files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/version.h"
#include "install/installed_list.h"
#include "install/package_staging.h"
#include "install/selection_rules.h"
#include "maintenance/character_menu.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t ExitQuestion[] = L"Tamblin を終了してもよろしいですか？";
constexpr wchar_t CloseQuestion[] = L"終了してもよろしいですか？";
constexpr wchar_t NoPackageText[] = L"ドロップされたものの中に、パッケージ（.lzh）がありません。";
constexpr wchar_t SeveralFoldersText[] =
    L"パッケージが、いくつかのフォルダに分かれています。\r\n"
    L"１つのフォルダにあるものだけをドロップしてください。";
// Their folder cannot be listed, or lists none of them, as when they are hidden.
constexpr wchar_t CannotBeShownText[] = L"ドロップされたパッケージを、一覧に表示できませんでした。";

constexpr std::pair<Command, const wchar_t*> StatusTexts[] = {
    {Command::Install, L"選択しているパッケージをインストールします。"},
    {Command::UpdateHost, L"ombrel.exeをアップデートします。"},
    {Command::UpdateDefinition, L"該当オンブレルのオンブレル定義ファイルをアップデートします。"},
    {Command::Uninstall, L"選択されているオンブレルをアンインストールします。"},
    {Command::ManageFolders, L"ヴィモラフォルダの設定を行います。"},
    {Command::DeselectInstalled, L"「導入済オンブレル一覧」のファイル選択を解除します。"},
    {Command::Leave, L"Tamblinを終了します。"},
    {Command::DeselectFiles, L"「すべてのフォルダ」のファイル選択を解除します。"},
    {Command::ShowHelp, L"Tamblinの簡単な操作説明です。"},
    {Command::SetStartUpCharacter,
     L"選択しているオンブレルを、通常起動時のオンブレルに設定します。"},
    {Command::CheckFolders, L"ヴィモラフォルダの不具合を検出します。"},
    {Command::Launch, L"選択されているオンブレルを呼び出します。"},
    {Command::ShowReadme, L"選択されているオンブレルの README ファイルを表示します。"},
};

} // namespace

void MainScreen::Load() {
    state.BrowseStartFolder =
        state.ViewFolder.empty() ? platform.files.CurrentFolder() : state.ViewFolder;
    Activate();
}

// A host folder that cannot be listed must not keep the browser from being built.
void MainScreen::Activate() {
    const auto failure = RereadHostFolder();
    model.browser.RebuildBrowser();
    if (model.browser.TakeSelectionLost())
        ApplySelectionRules(model, state, platform);
    if (failure)
        throw *failure;
}

// What is to be reported. The user is told once: this runs whenever the window comes to the front.
std::optional<RunTimeError> MainScreen::RereadHostFolder() {
    FillHostFolderCombo(model.combo, state);
    const std::wstring knownToBeUnreadable = std::exchange(unreadableFolder, {});
    try {
        RefreshInstalledList(model, state, platform);
    } catch (const RunTimeError& error) {
        unreadableFolder = model.combo.Text();
        if (unreadableFolder != knownToBeUnreadable)
            return error;
    }
    return std::nullopt;
}

void MainScreen::RefreshPressed() {
    SelectionList& names = model.installed.names;
    const std::vector<std::wstring> characters = names.Selected();
    const std::vector<std::wstring> packages = model.browser.Files().Selected();
    unreadableFolder.clear(); // who asks again is told again
    const auto failure = RereadHostFolder();
    model.browser.Reread();
    names.SelectNamed(characters);
    model.browser.Files().SelectNamed(packages);
    model.browser.TakeSelectionLost();
    if (!characters.empty() || !packages.empty())
        ApplySelectionRules(model, state, platform);
    if (failure)
        throw *failure;
}

void MainScreen::ComboSelected(size_t entry) {
    model.combo.selected = entry;
    try {
        RefreshInstalledList(model, state, platform);
    } catch (const RunTimeError&) {
        unreadableFolder = model.combo.Text();
        throw;
    }
}

void MainScreen::SelectionChanged() {
    ApplySelectionRules(model, state, platform);
}

void MainScreen::TreeRowOpened(size_t row) {
    model.browser.OpenTreeRow(row);
    if (model.browser.TakeSelectionLost())
        ApplySelectionRules(model, state, platform);
}

void MainScreen::TreeUpPressed() {
    model.browser.GoUp();
    if (model.browser.TakeSelectionLost())
        ApplySelectionRules(model, state, platform);
}

bool MainScreen::FilesDropped(const std::vector<std::wstring>& paths) {
    const wchar_t* const fault = ShowDropped(paths);
    if (fault)
        platform.messages.Inform(fault);
    return !fault;
}

const wchar_t* MainScreen::ShowDropped(const std::vector<std::wstring>& paths) {
    std::vector<std::wstring> archives = paths;
    std::erase_if(archives, [this](const std::wstring& path) {
        return !IsArchive(path) || !ProbeFile(platform.files, path);
    });
    if (archives.empty())
        return NoPackageText;
    const std::wstring& first = archives.front();
    const std::wstring folder(WithoutLast(first, NameOf(first).size()));
    std::vector<std::wstring> names;
    for (const std::wstring& path : archives) {
        names.emplace_back(NameOf(path));
        if (!EqualIgnoringCase(WithoutLast(path, names.back().size()), folder))
            return SeveralFoldersText;
    }
    const bool shown = model.browser.ShowFolder(folder);
    if (shown)
        model.browser.Files().SelectNamed(names);
    model.browser.TakeSelectionLost();
    ApplySelectionRules(model, state, platform);
    return shown && model.browser.Files().FirstSelected() ? nullptr : CannotBeShownText;
}

bool MainScreen::InstallsFile(size_t row) const {
    const SelectionList& files = model.browser.Files();
    return row < files.Size() && files.IsSelected(row) && IsArchive(files[row]) &&
           model.enabled[Command::Install];
}

void MainScreen::PrepareStagingPressed() {
    const std::wstring hostFolder = model.combo.Text();
    if (!OutsideStagingFolder({hostFolder, platform.programFolder}, hostFolder, platform))
        return;
    if (PrepareStagingFolder(hostFolder, platform))
        platform.files.ReleaseFolder();
    else
        LeaveStagingFolder(platform);
}

void MainScreen::SettingsPressed() {
    state.OpenedFromMainWindow = true;
}

void MainScreen::DeselectInstalledPressed() {
    model.installed.names.DeselectAll();
    DisableCharacterCommands(model);
}

void MainScreen::DeselectFilesPressed() {
    model.browser.Files().DeselectAll();
    model.enabled[Command::DeselectFiles] = false;
}

Menu MainScreen::InstalledListMenu(std::optional<size_t> row) {
    if (row && model.installed.names.MoveSelectionOfOneTo(*row))
        ApplySelectionRules(model, state, platform);
    return CharacterMenu(model, platform);
}

bool MainScreen::ExitPressed() {
    file.SaveSettings(model.combo, model.browser.ShownFolder());
    return platform.messages.AskOkCancel(ExitQuestion);
}

bool MainScreen::CloseBoxPressed() {
    file.SaveSettings(model.combo, model.browser.ShownFolder());
    return platform.messages.AskYesNo(CloseQuestion);
}

std::optional<std::wstring> MainScreen::StatusText(Command command) {
    for (const auto& [explained, text] : StatusTexts)
        if (explained == command)
            return text;
    return std::nullopt;
}

std::wstring MainScreen::InitialStatusText() {
    return L"Tamblin Ver." TAMBLIN_VERSION L"  - Vimoraのオンブレルを管理します -";
}

} // namespace tamblin
