#include "app/main_window.h"

#include "base/at_exit.h"
#include "base/version.h"
#include "base/win32/busy_pointer.h"
#include "install/confirmation_window.h"
#include "maintenance/character_menu.h"
#include "maintenance/folder_check_window.h"
#include "maintenance/launch.h"
#include "maintenance/start_up_file.h"
#include "maintenance/uninstall.h"
#include "maintenance/updates.h"

namespace tamblin {

Form1::Form1(Application& owner, Platform& surroundings, SettingsState& settings,
             SettingsFile& settingsFile, HandOver& windows)
    : Form(owner, 1, L"Tamblin Ver." TAMBLIN_VERSION, FormFrame::Resizable),
      platform(surroundings),
      state(settings),
      handOver(windows),
      screen(surroundings, settings, settingsFile) {
    text2.SetText(MainScreen::InitialStatusText());
    text2.AnnounceChanges();
    NameForScreenReaders();
    ConnectCommands();
    ConnectLists();
    SetAccessKeys();
    AcceptFiles();
    list1.nameOf = FolderBrowser::NameInRow;
    SetFirstFocus(list1);
    SetLayout(MakeLayout());
    ShowModel();
}

void Form1::NameForScreenReaders() {
    combo1.SetAccessibleName(L"Vimoraフォルダ");
    list3.SetAccessibleName(L"導入済オンブレル一覧");
    text1.SetAccessibleName(L"表示中のフォルダ");
    list1.SetAccessibleName(L"すべてのフォルダ");
    list2.SetAccessibleName(L"表示中のフォルダのファイル");
    text2.SetAccessibleName(L"説明");
}

// Where a text has a Latin letter.
void Form1::SetAccessKeys() {
    label1.SetAccessKey(L'A', combo1);
    command13.SetAccessKey(L'R');
    command14.SetAccessKey(L'V');
    command11.SetAccessKey(L'C');
    command12.SetAccessKey(L'K');
    command5.SetAccessKey(L'U');
    command3.SetAccessKey(L'M');
    command4.SetAccessKey(L'O');
    label4.SetAccessKey(L'L', command2);
    command10.SetAccessKey(L'Q');
}

// Events

void Form1::ConnectCommands() {
    const auto connect = [this](Button& button, auto event) {
        button.onClick = [this, event] {
            Run(event);
        };
    };
    // What needs the model and the platform alone.
    const auto connectRule = [&](Button& button, auto rule) {
        connect(button, [this, rule] { rule(screen.Model(), platform); });
    };
    connect(command1, [this] { Install(screen.Model(), state, platform, *this); });
    connect(command2, [this] { screen.PrepareStagingPressed(); });
    connectRule(command3, UpdateHostProgram);
    connectRule(command4, UpdateDefinitionFile);
    connect(command7, [this] { screen.DeselectInstalledPressed(); });
    command8.onClick = [this] {
        bool leave = false;
        Run([&] { leave = screen.ExitPressed(); });
        if (leave)
            Close();
    };
    connect(command9, [this] { screen.DeselectFilesPressed(); });
    connectRule(command11, SetStartUpCharacter);
    connectRule(command13, LaunchCharacter);
    connectRule(command14, ShowReadme);
    command5.onClick = [this] {
        const auto held = HoldMeanwhile();
        Run([this] { Uninstall(screen.Model(), state, platform); });
    };
    command6.onClick = [this] {
        screen.SettingsPressed();
        handOver.Show(NextWindow::FolderManagement);
        Hide();
    };
    command10.onClick = [this] {
        handOver.Show(NextWindow::QuickHelp);
    };
    command12.onClick = [this] {
        CheckFolders();
    };
}

void Form1::ConnectLists() {
    combo1.onSelect = [this](size_t entry) {
        Run([&] { screen.ComboSelected(entry); });
    };
    list1.onOpen = [this](size_t row) {
        Run([&] { screen.TreeRowOpened(row); });
    };
    list2.onSelect = list3.onSelect = [this] {
        Run([this] { screen.SelectionChanged(); });
    };
    list2.onOpen = [this](size_t row) {
        OpenFile(row);
    };
    list3.onMenu = [this](POINT position, std::optional<size_t> row) {
        ShowCharacterMenu(position, row);
    };
}

void Form1::CheckFolders() {
    FolderCheck check(platform);
    Run([&] { check.RunCheck(screen.Model()); });
    Form11(App(), check, Handle()).ShowModal();
}

void Form1::OpenFile(size_t row) {
    ReadSelections();
    if (screen.InstallsFile(row))
        command1.Press();
}

bool Form1::KeyPressed(const KeyPress& press, const Control* focus) {
    if (press == KeyPress{VK_F1})
        command10.Press();
    else if (press == KeyPress{VK_F5})
        Run([this] { screen.RefreshPressed(); });
    else if (press == KeyPress{VK_DELETE} && focus == &list3)
        command5.Press();
    else if (press == KeyPress{VK_BACK} && focus == &list1)
        Run([this] { screen.TreeUpPressed(); });
    else
        return false;
    return true;
}

void Form1::FilesDropped(const std::vector<std::wstring>& paths) {
    bool ready = false;
    Run([&] { ready = screen.FilesDropped(paths); });
    if (ready)
        list2.Focus();
}

void Form1::ShowCharacterMenu(POINT position, std::optional<size_t> row) {
    Menu menu;
    Run([&] { menu = screen.InstalledListMenu(row); });
    ShowMenu(menu, position);
}

void Form1::MenuChosen(MenuItem item) {
    Run([&] { ChooseFromCharacterMenu(item, screen.Model(), platform); });
}

void Form1::Load() {
    Run([this] { screen.Load(); });
}

void Form1::Activated() {
    Run([this] { screen.Activate(); });
}

bool Form1::MayClose(CloseReason reason) {
    if (reason == CloseReason::Program)
        return true;
    bool leave = false;
    Run([&] { leave = screen.CloseBoxPressed(); });
    return leave;
}

void Form1::Closing() {
    App().CloseAll();
}

void Form1::PointerOver(Control* control) {
    if (!control) {
        text2.SetText(L"");
        return;
    }
    Explain(*control);
}

void Form1::Explain(const Control& control) {
    if (control.Name().kind != ControlKind::Command)
        return;
    if (const auto text = MainScreen::StatusText(static_cast<Command>(control.Name().number)))
        text2.SetText(*text);
}

// The install asks

void Form1::SetMainWindowEnabled(bool enabled) {
    if (enabled) {
        Release();
        return;
    }
    Hold();
    ShowModel();
    PaintNow();
}

void Form1::ShowConfirmation(const InstallConfirmation& lists, std::int16_t& InstallAnswer) {
    ShowModel();
    Form7 confirmation(App(), lists, InstallAnswer, Handle());
    confirmation.ShowModal();
}

// Mirroring

void Form1::Run(const std::function<void()>& event) {
    ReadSelections();
    const BusyPointer busy;
    const AtExit mirror([this] {
        if (IsOpen())
            ShowModel();
    });
    event();
}

void Form1::ReadSelections() {
    list2.ReadSelections(screen.Model().browser.Files());
    list3.ReadSelections(screen.Model().installed.names);
    if (const auto row = list1.SelectedRow())
        screen.Model().browser.SelectTreeRow(*row);
}

void Form1::ShowModel() {
    const MainModel& model = screen.Model();
    combo1.Show(model.combo.entries, model.combo.selected);
    list3.Show(model.installed.names);
    text1.SetText(model.browser.ShownFolder());
    list1.Show(model.browser.Rows(), model.browser.SelectedRow());
    list2.Show(model.browser.Files());
    for (Control* control : Controls())
        if (control->Name().kind == ControlKind::Command)
            control->SetEnabled(model.enabled[static_cast<Command>(control->Name().number)]);
}

} // namespace tamblin
