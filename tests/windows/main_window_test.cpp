// The main window: its elements, what it mirrors, its status line, its ways out, an install through
// it.
#include "app/main_window.h"

#include <shlobj.h>

#include <cstring>

#include "base/version.h"
#include "support/commands.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

constexpr Element Elements[] = {
    {ControlKind::Combo, 1, L"ComboBox", nullptr},
    {ControlKind::List, 1, L"ListBox", nullptr},
    {ControlKind::List, 2, L"ListBox", nullptr},
    {ControlKind::List, 3, L"ListBox", nullptr},
    {ControlKind::Text, 1, L"Edit", nullptr},
    {ControlKind::Text, 2, L"Edit", nullptr},
    {ControlKind::Command, 1, L"Button", nullptr},
    {ControlKind::Command, 2, L"Button", nullptr},
    {ControlKind::Command, 3, L"Button", L"VMR"},
    {ControlKind::Command, 4, L"Button", L"OBL"},
    {ControlKind::Command, 5, L"Button", L"UnInstall"},
    {ControlKind::Command, 6, L"Button", nullptr},
    {ControlKind::Command, 7, L"Button", L"選択解除"},
    {ControlKind::Command, 8, L"Button", nullptr},
    {ControlKind::Command, 9, L"Button", L"選択解除"},
    {ControlKind::Command, 10, L"Button", L"QuickHelp"},
    {ControlKind::Command, 11, L"Button", L".rc"},
    {ControlKind::Command, 12, L"Button", L"CHK"},
    {ControlKind::Command, 13, L"Button", L"RUN"},
    {ControlKind::Command, 14, L"Button", L"VIEW"},
    {ControlKind::Label, 1, L"Static", L"Vimoraフォルダ：\r\n（↓VMRをインストールした場所）"},
    {ControlKind::Label, 2, L"Static", L"インストール"},
    {ControlKind::Label, 3, L"Static", L"すべてのフォルダ：\r\n（↓インストールするものを選択）"},
    {ControlKind::Label, 4, L"Static", L"Local Update"},
    {ControlKind::Label, 5, L"Static", L"VMR Update"},
    {ControlKind::Label, 6, L"Static", L"OBL Update"},
    {ControlKind::Label, 7, L"Static", L""},
    {ControlKind::Label, 8, L"Static", L""},
    {ControlKind::Label, 9, L"Static", L"README"},
    {ControlKind::Label, 10, L"Static", L".rc書換"},
    {ControlKind::Label, 11, L"Static", L"導入済オンブレル一覧↓"},
    {ControlKind::Label, 12, L"Static", L"VMRチェック"},
};

class MainWindowTest : public WindowScene {
  protected:
    void SetUp() override {
        for (const wchar_t* host : {L"C:\\Vimora\\", L"C:\\Second\\"}) {
            fake.files.AddFile(std::wstring(host) + L"ombrel.exe");
            fake.files.AddFile(std::wstring(host) + L"ombrel.rc");
        }
        for (const wchar_t* name : {L"Alpha", L"Beta", L"表ソ能"}) {
            fake.files.AddFile(std::wstring(L"C:\\Vimora\\") + name + L".obl");
            fake.files.AddFolder(std::wstring(L"C:\\Vimora\\") + name);
        }
        for (const wchar_t* package : {L"a.lzh", L"abc.obl", L"ombrel.exe", L"new.lzh"})
            fake.files.AddFile(std::wstring(L"C:\\packages\\") + package);
        fake.files.AddFolder(L"C:\\packages\\inner");
        state.HostFolders[1] = L"C:\\Vimora";
        state.HostFolders[2] = L"C:\\Second";
        state.HostFolderCount = 2;
        state.DefaultFolder = L"C:\\Vimora";
        state.ViewFolder = L"C:\\packages";
        state.KvaOption = L"OFF";
        fake.messages.answer = false;
    }

    Form1& Open() {
        form = &application.Open<Form1>(application, fake.platform, state, file, handOver);
        form->Show();
        Pump();
        return *form;
    }
    HWND Button(Command command) const {
        return Find(*form, ControlKind::Command, static_cast<int>(command));
    }
    HWND List(int number) const { return Find(*form, ControlKind::List, number); }
    std::wstring Status() const { return TextOf(Find(*form, ControlKind::Text, 2)); }
    Commands Enabled() const {
        return CommandsWhere([&](Command command) { return IsEnabled(Button(command)); });
    }
    int RowOf(HWND list, const std::wstring& entry) const {
        const auto entries = EntriesOf(list);
        return static_cast<int>(std::find(entries.begin(), entries.end(), entry) - entries.begin());
    }

    SettingsState state;
    SettingsFile file{fake.platform, state};
    HandOverFake handOver;
    Form1* form = nullptr;
};

TEST_F(MainWindowTest, HasEveryElementUnderItsNameWithItsCaptionAndReadsWell) {
    Open();
    EXPECT_EQ(TextOf(form->Handle()), L"Tamblin Ver." TAMBLIN_VERSION);
    EXPECT_EQ(WrongElements(*form, Elements), "");
    EXPECT_EQ(FaultsOf(*form), "");
}

TEST_F(MainWindowTest, FitsASmallScreenAtEveryDensityWithRoomForEveryStatus) {
    Open();
    for (const unsigned dpi : Densities) {
        MoveToDensity(*form, dpi);
        MINMAXINFO info{};
        SendMessageW(form->Handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
        EXPECT_LE(info.ptMinTrackSize.x, MulDiv(800, static_cast<int>(dpi), 96));
        EXPECT_LE(info.ptMinTrackSize.y, MulDiv(480, static_cast<int>(dpi), 96));
        ShrinkToMinimum(*form);
        const RECT line = ClientAreaOf(Find(*form, ControlKind::Text, 2));
        for (const Command command : CommandsWhere(MainScreen::StatusText))
            EXPECT_LE(form->Measure().Width(*MainScreen::StatusText(command)) + 4, line.right)
                << static_cast<int>(command);
    }
}

// As on 800 pixels at 144 dpi, in proportion.
TEST_F(MainWindowTest, ListsAreWideEnoughForNamesOnANarrowScreen) {
    Open();
    const HWND label = Find(*form, ControlKind::Label, 5);
    EXPECT_GE(AreaOf(label).left, AreaOf(Button(Command::UpdateHost)).right);
    MoveToDensity(*form, static_cast<unsigned>(MulDiv(144, GetSystemMetrics(SM_CXSCREEN), 800)));
    ShrinkToMinimum(*form);
    EXPECT_GE(AreaOf(label).top, AreaOf(Button(Command::UpdateHost)).bottom);
    const int least[] = {24, 24, 16};
    for (const int number : {1, 2, 3}) {
        const RECT area = ClientAreaOf(List(number));
        EXPECT_GE(area.right, form->Measure().Across(4 * least[number - 1])) << number;
        EXPECT_GE(area.bottom, 3 * form->Measure().LineHeight()) << number;
    }
    EXPECT_EQ(CutOffCaptions(*form) + MisplacedControls(*form), "");
}

// As on 800 by 600 pixels at 192 dpi, in proportion.
TEST_F(MainWindowTest, AllIsInReachOnASmallScreenOfHighDensity) {
    Open();
    MoveToDensity(*form, static_cast<unsigned>(MulDiv(192, GetSystemMetrics(SM_CXSCREEN), 800)));
    ShrinkToMinimum(*form);
    EXPECT_EQ(CutOffCaptions(*form) + MisplacedControls(*form), "");
    const RECT area = AreaOf(form->Handle());
    EXPECT_LE(area.bottom - area.top, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_LE(area.right - area.left, GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(MainWindowTest, OpensOnAboutSixtyPerCentOfTheScreen) {
    Open();
    const RECT area = AreaOf(form->Handle());
    const RECT work = WorkArea();
    const auto sizeOf = [](const RECT& rectangle) {
        return static_cast<double>(rectangle.right - rectangle.left) *
               static_cast<double>(rectangle.bottom - rectangle.top);
    };
    EXPECT_NEAR(sizeOf(area) / sizeOf(work), 0.6, 0.05);
}

TEST_F(MainWindowTest, TheTabKeyLeavesTheStatusLineOut) {
    Open();
    HWND at = nullptr;
    for (size_t step = 0; step < form->Controls().size(); ++step) {
        at = GetNextDlgTabItem(form->Handle(), at, FALSE);
        EXPECT_NE(at, Find(*form, ControlKind::Text, 2));
    }
}

// No window of another program flashes through between the two.
TEST_F(MainWindowTest, SettingsShowFolderManagementAndHideItOnlyAfterwards) {
    Open();
    bool visibleMeanwhile = false;
    handOver.onShow = [&] {
        visibleMeanwhile = IsWindowVisible(form->Handle()) != 0;
    };
    Click(Button(Command::ManageFolders));
    EXPECT_TRUE(visibleMeanwhile);
    EXPECT_FALSE(IsWindowVisible(form->Handle()));
    EXPECT_EQ(handOver.shown, std::vector{NextWindow::FolderManagement});
    EXPECT_TRUE(state.OpenedFromMainWindow);
}

TEST_F(MainWindowTest, ShowsWhatIsLoaded) {
    Open();
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Combo, 1)), L"C:\\Vimora");
    EXPECT_EQ(EntriesOf(List(3)), (std::vector<std::wstring>{L"Alpha", L"Beta", L"表ソ能"}));
    EXPECT_EQ(EntriesOf(List(2)),
              (std::vector<std::wstring>{L"a.lzh", L"abc.obl", L"new.lzh", L"ombrel.exe"}));
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\");
    const auto rows = EntriesOf(List(1));
    const auto selected = static_cast<size_t>(SendMessageW(List(1), LB_GETCURSEL, 0, 0));
    ASSERT_LT(selected, rows.size());
    EXPECT_EQ(rows[selected], L"  + packages");
    EXPECT_EQ(Status().substr(0, 16), L"Tamblin Ver." TAMBLIN_VERSION);
    EXPECT_EQ(Enabled(), NeedingNoSelection);
}

TEST_F(MainWindowTest, ItsListsGrowWithIt) {
    Open();
    const auto sizeOf = [](HWND window) {
        const RECT area = AreaOf(window);
        return Size{static_cast<int>(area.right - area.left),
                    static_cast<int>(area.bottom - area.top)};
    };
    std::vector<Size> before;
    for (int list = 1; list <= 3; ++list)
        before.push_back(sizeOf(List(list)));
    const Size button = sizeOf(Button(Command::UpdateHost));
    const RECT window = AreaOf(form->Handle());
    SetWindowPos(form->Handle(), nullptr, 0, 0, window.right - window.left + 200,
                 window.bottom - window.top + 200, SWP_NOMOVE | SWP_NOZORDER);
    for (int list = 1; list <= 3; ++list) {
        const Size after = sizeOf(List(list));
        EXPECT_GT(after.width, before[static_cast<size_t>(list - 1)].width);
        EXPECT_GT(after.height, before[static_cast<size_t>(list - 1)].height);
    }
    EXPECT_EQ(sizeOf(Button(Command::UpdateHost)).width, button.width);
    EXPECT_EQ(MisplacedControls(*form), "");
}

// Selecting

TEST_F(MainWindowTest, KeepsTheTreeRowThatTheUserHasClicked) {
    Open();
    const int inner = RowOf(List(1), L"    + inner");
    SendMessageW(List(1), LB_SETCURSEL, static_cast<WPARAM>(inner), 0);
    SelectRows(List(2), {0});
    EXPECT_EQ(SendMessageW(List(1), LB_GETCURSEL, 0, 0), inner);
    SetFocus(List(1));
    PressKey(VK_RETURN);
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\inner\\");
}

TEST_F(MainWindowTest, LightsTheButtonsThatFitTheSelections) {
    Open();
    SelectRows(List(2), {RowOf(List(2), L"a.lzh")});
    EXPECT_EQ(Enabled(), ForPackages + NeedingNoSelection);
    SelectRows(List(2), {RowOf(List(2), L"a.lzh"), RowOf(List(2), L"ombrel.exe")});
    EXPECT_EQ(SelectedOf(List(2)), std::vector<std::wstring>{L"a.lzh"});
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
    SelectRows(List(2), {RowOf(List(2), L"ombrel.exe")});
    EXPECT_EQ(Enabled(), ForAProgram + NeedingNoSelection);
    Click(Button(Command::DeselectFiles));
    EXPECT_TRUE(SelectedOf(List(2)).empty());
    EXPECT_FALSE(IsEnabled(Button(Command::DeselectFiles)));
    SelectRows(List(3), {1});
    EXPECT_EQ(Enabled(), ForOneCharacter + NeedingNoSelection);
    SelectRows(List(3), {0, 1});
    EXPECT_EQ(Enabled(), ForCharacters + NeedingNoSelection);
    SelectRows(List(2), {0, 1});
    EXPECT_FALSE(IsEnabled(Button(Command::PrepareStaging)));
    Click(Button(Command::DeselectInstalled));
    EXPECT_TRUE(SelectedOf(List(3)).empty());
    EXPECT_FALSE(IsEnabled(Button(Command::Uninstall)));
    EXPECT_FALSE(IsEnabled(Button(Command::DeselectInstalled)));
}

TEST_F(MainWindowTest, AnotherHostFolderShowsItsCharactersOrNoneAfterAFailure) {
    Open();
    const HWND combo = Find(*form, ControlKind::Combo, 1);
    Choose(combo, 1);
    EXPECT_TRUE(EntriesOf(List(3)).empty());
    EXPECT_EQ(state.DefaultFolder, L"C:\\Second");
    Choose(combo, 0);
    EXPECT_EQ(EntriesOf(List(3)).size(), 3u);
    fake.files.SetReady(L"C:", false);
    Choose(combo, 0);
    ASSERT_FALSE(fake.messages.shown.empty());
    EXPECT_EQ(fake.messages.shown.back().icon, MessageIcon::Stop);
    EXPECT_TRUE(EntriesOf(List(3)).empty());
    EXPECT_TRUE(IsEnabled(form->Handle()));
}

TEST_F(MainWindowTest, ADoubleClickAndReturnOpenARowOfTheTree) {
    Open();
    DoubleClick(List(1), RowOf(List(1), L"    + inner"));
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\inner\\");
    EXPECT_TRUE(EntriesOf(List(2)).empty());
    SetFocus(List(1));
    SendMessageW(List(1), LB_SETCURSEL, static_cast<WPARAM>(RowOf(List(1), L"  + packages")), 0);
    PressKey(VK_RETURN);
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\");
}

// The keyboard, the right button, files dropped

TEST_F(MainWindowTest, DeleteAsksToUninstallTheSelectedCharacters) {
    Open();
    SetFocus(List(3));
    PressKey(VK_DELETE);
    EXPECT_TRUE(fake.messages.shown.empty());
    SelectRows(List(3), {1});
    SetFocus(List(2));
    PressKey(VK_DELETE);
    EXPECT_TRUE(fake.messages.shown.empty());
    SetFocus(List(3));
    PressKey(VK_DELETE);
    EXPECT_EQ(fake.messages.Texts(),
              std::vector<std::wstring>{
                  L"現在選択されているオンブレルをアンインストールしてもよろしいですか？"});
    EXPECT_EQ(GetFocus(), List(3));
}

TEST_F(MainWindowTest, F1OpensQuickHelpFromAnywhere) {
    Open();
    for (const HWND focus : {List(1), Button(Command::Leave), Find(*form, ControlKind::Combo, 1)}) {
        SetFocus(focus);
        PressKey(VK_F1);
    }
    EXPECT_EQ(handOver.shown, std::vector(3, NextWindow::QuickHelp));
}

TEST_F(MainWindowTest, AccessKeysReachWhatTheirLettersStandIn) {
    Open();
    PressAltAnd(L'a');
    EXPECT_EQ(GetFocus(), Find(*form, ControlKind::Combo, 1));
    PressAltAnd(L'u'); // nothing is selected
    EXPECT_TRUE(fake.messages.shown.empty());
    PressAltAnd(L'q');
    EXPECT_EQ(handOver.shown, std::vector{NextWindow::QuickHelp});
    SelectRows(List(3), {0});
    PressAltAnd(L'u');
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(MainWindowTest, F5ShowsWhatIsNewWhereTheUserIs) {
    for (int number = 100; number < 200; ++number)
        fake.files.AddFile(L"C:\\packages\\p" + std::to_wstring(number) + L".lzh");
    Open();
    const HWND list = List(2);
    SelectRows(list, {RowOf(list, L"p150.lzh")});
    SetFocus(list);
    SendMessageW(list, LB_SETCARETINDEX, static_cast<WPARAM>(RowOf(list, L"p150.lzh")), 0);
    SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(RowOf(list, L"p149.lzh")), 0);
    fake.files.AddFile(L"C:\\packages\\download.lzh");
    fake.files.AddFile(L"C:\\Vimora\\Gamma.obl");
    fake.files.AddFolder(L"C:\\Vimora\\Gamma");
    fake.files.AddFolder(L"C:\\packages\\another");
    PressKey(VK_F5);
    EXPECT_EQ(EntriesOf(list).size(), 105u);
    EXPECT_EQ(SelectedOf(list), std::vector<std::wstring>{L"p150.lzh"});
    EXPECT_EQ(SendMessageW(list, LB_GETTOPINDEX, 0, 0), RowOf(list, L"p149.lzh"));
    EXPECT_EQ(SendMessageW(list, LB_GETCARETINDEX, 0, 0), RowOf(list, L"p150.lzh"));
    EXPECT_EQ(RowOf(List(3), L"Gamma"), 2);
    EXPECT_NE(RowOf(List(1), L"    + another"), static_cast<int>(EntriesOf(List(1)).size()));
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
}

TEST_F(MainWindowTest, BackspaceInTheTreeGoesUp) {
    Open();
    SetFocus(List(2));
    PressKey(VK_BACK);
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\");
    SetFocus(List(1));
    PressKey(VK_BACK);
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\");
}

TEST_F(MainWindowTest, TheRightButtonMovesTheSelectionBeforeItsMenuOpens) {
    Open();
    SelectRows(List(3), {0});
    RECT row{};
    SendMessageW(List(3), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    Meanwhile([] {
        const bool shown = FindWindowW(L"#32768", nullptr) != nullptr;
        if (shown)
            EndMenu();
        return shown;
    });
    SendMessageW(List(3), WM_RBUTTONUP, 0, MAKELPARAM(3, row.top + 2));
    EXPECT_EQ(SelectedOf(List(3)), std::vector<std::wstring>{L"Beta"});
    EXPECT_EQ(SendMessageW(List(3), LB_GETCARETINDEX, 0, 0), 1);
}

TEST_F(MainWindowTest, DoesWhatItsMenuSays) {
    fake.files.AddFile(L"C:\\Vimora\\Beta\\Beta.txt");
    Open();
    SelectRows(List(3), {RowOf(List(3), L"Beta")});
    SendMessageW(form->Handle(), WM_COMMAND, static_cast<WPARAM>(MenuItem::mnview), 0);
    EXPECT_EQ(fake.shell.opened.size(), 1U);
}

// What the system hands over for files dropped on a window.
void DropFiles(const Form& form, const std::vector<std::wstring>& paths) {
    std::wstring names;
    for (const std::wstring& path : paths)
        names += path + L'\0';
    names += L'\0';
    const size_t bytes = names.size() * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
    auto* const drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, names.data(), bytes);
    GlobalUnlock(memory);
    SendMessageW(form.Handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

TEST_F(MainWindowTest, DroppedArchivesAreReadyToInstall) {
    fake.files.AddFile(L"C:\\Downloads\\表.lzh");
    fake.files.AddFile(L"C:\\Downloads\\z.lzh");
    Open();
    EXPECT_TRUE(GetWindowLongW(form->Handle(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    DropFiles(*form, {L"C:\\Downloads\\表.lzh"});
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\Downloads\\");
    EXPECT_EQ(SelectedOf(List(2)), std::vector<std::wstring>{L"表.lzh"});
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
    EXPECT_EQ(GetFocus(), List(2));
    EXPECT_EQ(SendMessageW(List(2), LB_GETCARETINDEX, 0, 0), RowOf(List(2), L"表.lzh"));
}

TEST_F(MainWindowTest, DropsAreRefusedWhileAnOperationHoldsIt) {
    fake.files.AddFile(L"C:\\Downloads\\a.lzh");
    Open();
    const Form::Held held(*form);
    DropFiles(*form, {L"C:\\Downloads\\a.lzh"});
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\");
}

// The status line

TEST_F(MainWindowTest, ExplainsTheButtonUnderThePointerEnabledOrNot) {
    Open();
    ASSERT_FALSE(IsEnabled(Button(Command::Install)));
    for (const Command command : CommandsWhere(MainScreen::StatusText)) {
        MovePointerOver(*form, Button(command));
        EXPECT_EQ(Status(), MainScreen::StatusText(command));
        MovePointerOver(*form, Button(Command::PrepareStaging)); // which has none
        EXPECT_EQ(Status(), MainScreen::StatusText(command));
    }
    MovePointerTo(*form, {1, 1});
    EXPECT_EQ(Status(), L"");
}

TEST_F(MainWindowTest, ExplainsTheButtonThatHasTheKeyboard) {
    Open();
    const std::wstring before = Status();
    SetFocus(List(2));
    EXPECT_EQ(Status(), before);
    for (const Command command : NeedingNoSelection) {
        SetFocus(Button(command));
        EXPECT_EQ(Status(), MainScreen::StatusText(command));
    }
}

TEST_F(MainWindowTest, TypingInTheTreeGoesByTheFoldersName) {
    fake.files.AddFolder(L"C:\\packages\\japan");
    Open();
    SetFocus(List(1));
    SendMessageW(List(1), WM_CHAR, 'j', 1);
    EXPECT_EQ(SendMessageW(List(1), LB_GETCURSEL, 0, 0), RowOf(List(1), L"    + japan"));
}

TEST_F(MainWindowTest, LabelsAreGreyWithTheirButtons) {
    Open();
    constexpr std::pair<Command, int> pairs[] = {{Command::Install, 2},
                                                 {Command::PrepareStaging, 4},
                                                 {Command::UpdateHost, 5},
                                                 {Command::UpdateDefinition, 6},
                                                 {Command::SetStartUpCharacter, 10},
                                                 {Command::ShowReadme, 9}};
    const auto expectAlike = [&] {
        for (const auto& [command, label] : pairs)
            EXPECT_EQ(IsEnabled(Find(*form, ControlKind::Label, label)), IsEnabled(Button(command)))
                << label;
    };
    EXPECT_TRUE(IsEnabled(Find(*form, ControlKind::Label, 12)));
    ASSERT_FALSE(IsEnabled(Button(Command::Install)));
    expectAlike();
    SelectRows(List(2), {RowOf(List(2), L"a.lzh")});
    ASSERT_TRUE(IsEnabled(Button(Command::Install)));
    expectAlike();
    SelectRows(List(3), {0});
    ASSERT_TRUE(IsEnabled(Button(Command::SetStartUpCharacter)));
    expectAlike();
}

// Refreshing

TEST_F(MainWindowTest, ComingFromAnotherWindowItShowsWhatHasChanged) {
    Open();
    Form1 other(application, fake.platform, state, file, handOver);
    fake.files.AddFile(L"C:\\Vimora\\Gamma.obl");
    fake.files.AddFolder(L"C:\\Vimora\\Gamma");
    SetActiveWindow(other.Handle());
    SetActiveWindow(form->Handle());
    Pump();
    EXPECT_EQ(RowOf(List(3), L"Gamma"), 2);
}

// Other windows

// Leaving

TEST_F(MainWindowTest, ItsExitButtonAndItsCloseBoxSaveThenAsk) {
    const auto leave = [&](bool byButton) {
        if (byButton)
            Click(Button(Command::Leave));
        else
            SendMessageW(form->Handle(), WM_CLOSE, 0, 0);
    };
    for (const bool byButton : {true, false}) {
        fake.messages.shown.clear();
        fake.messages.answer = false;
        fake.files.DeleteTree(L"C:\\Tamblin\\tamb.ini");
        fake.messages.onShow = [&](const auto&) {
            EXPECT_TRUE(fake.files.Exists(L"C:\\Tamblin\\tamb.ini"));
        };
        Open();
        leave(byButton);
        EXPECT_TRUE(form->IsOpen());
        fake.messages.answer = true;
        leave(byButton);
        EXPECT_FALSE(form->IsOpen());
        EXPECT_EQ(fake.messages.Texts(),
                  std::vector<std::wstring>(2, byButton ? L"Tamblin を終了してもよろしいですか？"
                                                        : L"終了してもよろしいですか？"));
        EXPECT_EQ(fake.messages.shown[0].kind, byButton ? MessageBoxesFake::Kind::AskOkCancel
                                                        : MessageBoxesFake::Kind::AskYesNo);
    }
}

TEST_F(MainWindowTest, TheEndOfTheSessionSavesNothing) {
    Open();
    SendMessageW(form->Handle(), WM_QUERYENDSESSION, 0, 0);
    SendMessageW(form->Handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(form->IsOpen());
    EXPECT_TRUE(fake.messages.shown.empty());
    EXPECT_FALSE(fake.files.Exists(L"C:\\Tamblin\\tamb.ini"));
}

TEST_F(MainWindowTest, TakesEveryOtherWindowAlong) {
    Open();
    Form1& other = application.Open<Form1>(application, fake.platform, state, file, handOver);
    other.Show();
    form->Close();
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(MainWindowTest, SettingsThatCannotBeSavedEndTheProgram) {
    Open();
    fake.files.SetCapacity(L"C:", 0);
    Click(Button(Command::Leave));
    EXPECT_EQ(timesEnded, 1);
    ASSERT_FALSE(fake.messages.shown.empty());
    EXPECT_EQ(fake.messages.shown[0].icon, MessageIcon::Stop);
}

// An install, from the selection to the character in the list

class InstallWindowTest : public MainWindowTest {
  protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        fake.unlha.onUnpack = [this](const std::wstring&) {
            fake.files.AddFile(L"C:\\TAMTMP\\New\\new.txt");
            fake.files.AddFile(L"C:\\TAMTMP\\New.obl");
            return std::int16_t{0};
        };
        fake.messages.answer = true;
    }
    // Does `step` in the confirmation window when it opens.
    void WhenAsked(const std::function<void(Form&)>& step) {
        Meanwhile([this, step] {
            Form* const confirmation = FormOfClass(L"Tamblin.Form7");
            if (confirmation)
                step(*confirmation);
            return confirmation != nullptr;
        });
    }
    void InstallAnd(const std::function<void(Form&)>& step) {
        SelectRows(List(2), {RowOf(List(2), L"new.lzh")});
        WhenAsked(step);
        Click(Button(Command::Install));
    }
};

TEST_F(InstallWindowTest, EndsWithTheCharacterInTheList) {
    Open();
    InstallAnd([&](Form& confirmation) {
        EXPECT_FALSE(IsEnabled(form->Handle()));
        EXPECT_EQ(EntriesOf(Find(confirmation, ControlKind::List, 1)).size(), 1u);
        Click(Find(confirmation, ControlKind::Command, 1));
    });
    EXPECT_EQ(fake.messages.Texts(), std::vector<std::wstring>{L"インストールが完了しました。"});
    EXPECT_EQ(RowOf(List(3), L"New"), 2);
    EXPECT_TRUE(SelectedOf(List(2)).empty());
    EXPECT_TRUE(IsEnabled(form->Handle()));
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
    EXPECT_FALSE(IsEnabled(Button(Command::DeselectFiles)));
    EXPECT_EQ(GetActiveWindow(), form->Handle());
}

TEST_F(InstallWindowTest, ReturnAndADoubleClickOnAnArchiveInstallIt) {
    Open();
    int confirmations = 0;
    const auto open = [&](const std::wstring& name, const std::function<void()>& gesture) {
        SelectRows(List(2), {RowOf(List(2), name)});
        SendMessageW(List(2), LB_SETCARETINDEX, static_cast<WPARAM>(RowOf(List(2), name)), 0);
        WhenAsked([&](Form& confirmation) {
            ++confirmations;
            Click(Find(confirmation, ControlKind::Command, 2));
        });
        gesture();
        return std::exchange(confirmations, 0);
    };
    const auto pressReturn = [&] {
        SetFocus(List(2));
        PressKey(VK_RETURN);
    };
    const auto doubleClick = [&] {
        SendMessageW(form->Handle(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(List(2)), LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(List(2)));
    };
    EXPECT_EQ(open(L"new.lzh", pressReturn), 1);
    EXPECT_EQ(GetFocus(), List(2));
    EXPECT_EQ(open(L"new.lzh", doubleClick), 1);
    EXPECT_EQ(open(L"abc.obl", pressReturn), 0);
    EXPECT_EQ(open(L"ombrel.exe", doubleClick), 0);
}

TEST_F(InstallWindowTest, IsSeenDisabledBeforeThePackageIsUnpacked) {
    Open();
    Pump();
    SetFocus(Button(Command::Install));
    bool unpacked = false;
    fake.unlha.onUnpack = [&](const std::wstring&) {
        unpacked = true;
        EXPECT_FALSE(IsEnabled(form->Handle()));
        EXPECT_FALSE(IsEnabled(Button(Command::Install)));
        EXPECT_FALSE(IsEnabled(Find(*form, ControlKind::Label, 2)));
        EXPECT_NE(GetFocus(), Button(Command::Install));
        EXPECT_FALSE(GetUpdateRect(Button(Command::Install), nullptr, FALSE)); // painted so
        fake.files.AddFile(L"C:\\TAMTMP\\New.obl");
        fake.files.AddFolder(L"C:\\TAMTMP\\New");
        return std::int16_t{0};
    };
    SelectRows(List(2), {RowOf(List(2), L"new.lzh")});
    SetFocus(Button(Command::Install));
    WhenAsked([](Form& confirmation) { Click(Find(confirmation, ControlKind::Command, 1)); });
    Click(Button(Command::Install));
    EXPECT_TRUE(unpacked);
    EXPECT_EQ(GetFocus(), Button(Command::Install)); // where the user was
}

TEST_F(InstallWindowTest, TheEndOfTheSessionInstallsNothing) {
    Open();
    InstallAnd([&](Form&) {
        SendMessageW(form->Handle(), WM_QUERYENDSESSION, 0, 0);
        SendMessageW(form->Handle(), WM_ENDSESSION, TRUE, 0);
    });
    EXPECT_TRUE(application.OpenForms().empty());
    EXPECT_TRUE(fake.messages.shown.empty());
    EXPECT_FALSE(fake.files.Exists(L"C:\\Vimora\\New.obl"));
    EXPECT_FALSE(fake.files.Exists(L"C:\\TAMTMP"));
}

TEST_F(InstallWindowTest, EscapeCancelsIt) {
    Open();
    InstallAnd([&](Form&) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); });
    EXPECT_EQ(fake.messages.Texts(), std::vector<std::wstring>{L"インストールを中止しました。"});
    EXPECT_EQ(EntriesOf(List(3)).size(), 3u);
    EXPECT_EQ(SelectedOf(List(2)), std::vector<std::wstring>{L"new.lzh"});
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
}

TEST_F(InstallWindowTest, ADamagedPackageLeavesTheWindowUsable) {
    Open();
    fake.unlha.onUnpack = [](const std::wstring&) {
        return std::int16_t{1};
    };
    SelectRows(List(2), {RowOf(List(2), L"new.lzh")});
    Click(Button(Command::Install));
    EXPECT_EQ(fake.messages.Texts(),
              std::vector<std::wstring>{L"パッケージの解凍に失敗しました。"});
    EXPECT_TRUE(IsEnabled(form->Handle()));
    EXPECT_FALSE(IsEnabled(Button(Command::Install)));
}

TEST_F(InstallWindowTest, AFullDiskIsReportedAndLeavesTheWindowUsable) {
    Open();
    InstallAnd([&](Form& confirmation) {
        fake.files.SetReady(L"C:", false);
        Click(Find(confirmation, ControlKind::Command, 1));
    });
    ASSERT_FALSE(fake.messages.shown.empty());
    EXPECT_EQ(fake.messages.shown[0].icon, MessageIcon::Stop);
    EXPECT_TRUE(IsEnabled(form->Handle()));
}

} // namespace
} // namespace tamblin
