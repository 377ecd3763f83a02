// The main window: mirrors MainScreen's model and turns clicks into its events.
#pragma once

#include "app/main_screen.h"
#include "base/next_window.h"
#include "install/install.h"
#include "ui/button.h"
#include "ui/combo_box.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/picture_button.h"
#include "ui/stacked_layout.h"
#include "ui/text_box.h"

namespace tamblin {

// Where the labels of buttons stand.
enum class LabelPlace { Beside, Below };

class Form1 : public Form, private InstallScreen {
  public:
    Form1(Application& owner, Platform& surroundings, SettingsState& settings,
          SettingsFile& settingsFile, HandOver& windows);

  private:
    void Load() override;
    void Activated() override;
    bool MayClose(CloseReason reason) override;
    void Closing() override;
    void PointerOver(Control* control) override;
    void FocusOn(const Control& control) override { Explain(control); }
    void MenuChosen(MenuItem item) override;
    bool KeyPressed(const KeyPress& press, const Control* focus) override;
    void FilesDropped(const std::vector<std::wstring>& paths) override;
    Size FirstSize() const override;

    void SetMainWindowEnabled(bool enabled) override;
    bool MainWindowIsOpen() const override { return IsOpen(); }
    void ShowConfirmation(const InstallConfirmation& lists, std::int16_t& InstallAnswer) override;
    void* MainWindowHandle() override { return Handle(); }

    // Runs an event of the screen between reading the selections and mirroring the model.
    void Run(const std::function<void()>& event);
    void ReadSelections();
    void ShowModel();
    void CheckFolders();
    void ShowCharacterMenu(POINT position, std::optional<size_t> row);
    void OpenFile(size_t row);
    void Explain(const Control& control);

    void ConnectCommands();
    void ConnectLists();
    void NameForScreenReaders();
    void SetAccessKeys();
    void PrepareCommands();
    std::unique_ptr<LayoutItem> MakeLayout();
    std::unique_ptr<LayoutItem> MakeLayout(LabelPlace labels);
    std::unique_ptr<LayoutItem> MakeInstalledSide(LabelPlace labels);
    std::unique_ptr<LayoutItem> MakeInstalledCommands(LabelPlace labels);
    std::unique_ptr<LayoutItem> MakeBrowserSide(LabelPlace labels);
    std::unique_ptr<LayoutItem> MakeBrowserCommands(LabelPlace labels);

    Platform& platform;
    SettingsState& state;
    HandOver& handOver;
    MainScreen screen;
    WidthGroup installedCommands;
    WidthGroup browserCommands;
    FirstFittingLayout* layouts = nullptr;

    // In tab order; a label precedes what it names.
    Label label1{*this, 1, L"Vimoraフォルダ：\r\n（↓VMRをインストールした場所）"};
    ComboBox combo1{*this, 1};
    PictureButton command6{*this, 6, L"設定", L"SETTINGS", PictureButton::Caption::Shown};
    Label label11{*this, 11, L"導入済オンブレル一覧↓"};
    ListBox list3{*this, 3, ListBox::Selecting::Several, 16, 7};
    Button command13{*this, 13, L"RUN"};
    Button command14{*this, 14, L"VIEW"};
    Label label9{*this, 9, L"README"};
    Button command11{*this, 11, L".rc"};
    Label label10{*this, 10, L".rc書換"};
    Button command12{*this, 12, L"CHK"};
    Label label12{*this, 12, L"VMRチェック"};
    Button command5{*this, 5, L"UnInstall"};
    Button command7{*this, 7, L"選択解除"};
    TextBox text1{*this, 1, TextBox::Access::ReadOnly};
    Label label3{*this, 3, L"すべてのフォルダ：\r\n（↓インストールするものを選択）"};
    ListBox list1{*this, 1, ListBox::Selecting::One, 24, 4};
    ListBox list2{*this, 2, ListBox::Selecting::Several, 24, 3};
    PictureButton command1{*this, 1, L"インストール", L"INSTALL", PictureButton::Caption::Hidden};
    Label label2{*this, 2, L"インストール"};
    Button command3{*this, 3, L"VMR"};
    Label label5{*this, 5, L"VMR Update"};
    Button command4{*this, 4, L"OBL"};
    Label label6{*this, 6, L"OBL Update"};
    PictureButton command2{*this, 2, L"Local Update", L"STAGING", PictureButton::Caption::Hidden};
    Label label4{*this, 4, L"Local Update"};
    Button command9{*this, 9, L"選択解除"};
    Label label7{*this, 7, L""};
    Label label8{*this, 8, L""};
    TextBox text2{*this, 2, TextBox::Access::Status};
    Button command10{*this, 10, L"QuickHelp"};
    PictureButton command8{*this, 8, L"終了", L"LEAVE", PictureButton::Caption::Shown};
};

} // namespace tamblin
