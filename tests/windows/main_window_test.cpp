// The main window: its elements, what it mirrors, its selections, its status line.
#include "base/version.h"
#include "windows/form_check.h"
#include "windows/main_window_scene.h"

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

} // namespace
} // namespace tamblin
