#include "app/main_window.h"

#include "install/confirmation_window.h"
#include "maintenance/folder_check_window.h"
#include "maintenance/menus.h"
#include "ui/at_exit.h"
#include "ui/busy_pointer.h"

namespace tamblin {

Form1::Form1(Application& owner, Platform& surroundings, SettingsState& settings,
             SettingsFile& settingsFile, HandOver& windows)
    : Form(owner, 1, L"Tamblin Ver.0.61", FormFrame::Resizable),
      platform(surroundings),
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
    const auto press = [this](Button& button, void (MainScreen::*event)()) {
        button.onClick = [this, event] {
            Run([this, event] { (screen.*event)(); });
        };
    };
    command1.onClick = [this] {
        Run([this] { screen.InstallPressed(*this); });
    };
    press(command2, &MainScreen::PrepareStagingPressed);
    press(command3, &MainScreen::UpdateHostPressed);
    press(command4, &MainScreen::UpdateDefinitionPressed);
    press(command7, &MainScreen::DeselectInstalledPressed);
    command8.onClick = [this] {
        bool leave = false;
        Run([&] { leave = screen.ExitPressed(); });
        if (leave)
            Close();
    };
    press(command9, &MainScreen::DeselectFilesPressed);
    press(command11, &MainScreen::SetStartUpCharacterPressed);
    press(command13, &MainScreen::LaunchPressed);
    press(command14, &MainScreen::ShowReadmePressed);
    command5.onClick = [this] {
        const Held held(*this);
        Run([this] { screen.UninstallPressed(); });
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
    list2.onSelect = [this] {
        Run([this] { screen.FileListClicked(); });
    };
    list3.onSelect = [this] {
        Run([this] { screen.InstalledListClicked(); });
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
    Run([&] { screen.CheckPressed(check); });
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
    std::optional<CharacterMenu> items;
    Run([&] { items = screen.InstalledListMenu(row); });
    if (items)
        Form10::ShowCharacterMenu(*this, position, *items);
}

void Form1::MenuChosen(int item) {
    if (item == Form10::mnrun)
        Run([this] { screen.LaunchPressed(); });
    else if (item == Form10::mnview)
        Run([this] { screen.ShowReadmePressed(); });
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
    if (const auto text = MainScreen::StatusText(static_cast<size_t>(control.Name().number)))
        text2.SetText(*text);
}

// The install asks

void Form1::SetMainWindowEnabled(bool enabled) {
    if (enabled == !installHolds)
        return;
    installHolds = !enabled;
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
            control->SetEnabled(model.buttons[static_cast<size_t>(control->Name().number)]);
}

} // namespace tamblin
