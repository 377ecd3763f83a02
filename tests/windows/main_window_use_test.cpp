// The main window: the keyboard, the right button, files dropped on it, its ways out.
#include <shlobj.h>

#include <cstring>

#include "windows/main_window_scene.h"

namespace tamblin {
namespace {

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
    AddCharacter(fake.files, L"C:\\Vimora", L"Gamma");
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

TEST_F(MainWindowTest, TypingInTheTreeGoesByTheFoldersName) {
    fake.files.AddFolder(L"C:\\packages\\japan");
    Open();
    SetFocus(List(1));
    SendMessageW(List(1), WM_CHAR, 'j', 1);
    EXPECT_EQ(SendMessageW(List(1), LB_GETCURSEL, 0, 0), RowOf(List(1), L"    + japan"));
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
    const auto held = form->HoldMeanwhile();
    DropFiles(*form, {L"C:\\Downloads\\a.lzh"});
    EXPECT_EQ(TextOf(Find(*form, ControlKind::Text, 1)), L"C:\\packages\\");
}

TEST_F(MainWindowTest, ComingFromAnotherWindowItShowsWhatHasChanged) {
    Open();
    Form1 other(application, fake.platform, state, file, handOver);
    AddCharacter(fake.files, L"C:\\Vimora", L"Gamma");
    SetActiveWindow(other.Handle());
    SetActiveWindow(form->Handle());
    Pump();
    EXPECT_EQ(RowOf(List(3), L"Gamma"), 2);
}

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

} // namespace
} // namespace tamblin
