// The main window's other events: opening, the menu, reading anew, drops, the status line, leaving.
#include "unit/main_screen_scene.h"

namespace tamblin {
namespace {

// --- Return, a double-click, the right button --------------------------------------------------

TEST_F(MainScreenTest, OpeningASelectedArchiveInstallsItWhereTheButtonWould) {
    files.AddFile(L"C:\\Packs\\abc.obl");
    scene.AddPackage(L"other.lzh", {});
    main.Load();
    const auto row = [&](const std::wstring& name) {
        const auto& entries = model.browser.Files().Entries();
        return static_cast<size_t>(std::find(entries.begin(), entries.end(), name) -
                                   entries.begin());
    };
    EXPECT_FALSE(main.InstallsFile(row(L"mio.lzh")));
    Select(model.browser.Files(), {L"mio.lzh"});
    main.SelectionChanged();
    EXPECT_TRUE(main.InstallsFile(row(L"mio.lzh")));
    EXPECT_FALSE(main.InstallsFile(row(L"other.lzh")));
    EXPECT_FALSE(main.InstallsFile(row(L"gone")));
    Select(model.browser.Files(), {L"abc.obl"});
    Select(model.installed.names, {L"abc"});
    main.SelectionChanged();
    ASSERT_TRUE(model.enabled[Command::Install]);
    EXPECT_FALSE(main.InstallsFile(row(L"abc.obl")));
}

TEST_F(MainScreenTest, OpeningAnArchiveDoesNothingWhileTheButtonIsDisabled) {
    state.DefaultFolder = L"C:\\gone";
    main.Load();
    Select(model.browser.Files(), {L"mio.lzh"});
    main.SelectionChanged();
    ASSERT_FALSE(model.enabled[Command::Install]);
    EXPECT_FALSE(main.InstallsFile(0));
}

TEST_F(MainScreenTest, TheMenuIsThatOfTheCharacterUnderThePointer) {
    AddCharacter(files, L"C:\\Host", L"def");
    files.AddFile(L"C:\\Host\\def\\def.txt");
    main.Load();
    Select(model.installed.names, {L"abc"});
    main.SelectionChanged();
    ASSERT_FALSE(model.enabled[Command::ShowReadme]);
    EXPECT_THAT(main.InstalledListMenu(1), OffersReadme());
    EXPECT_THAT(SelectedEntries(model.installed.names), ElementsAre(L"def"));
    EXPECT_TRUE(model.enabled[Command::ShowReadme]);
    EXPECT_FALSE(main.InstalledListMenu(std::nullopt).empty());
}

TEST_F(MainScreenTest, TheRightButtonLeavesNoneAndSeveralAsTheyAre) {
    AddCharacter(files, L"C:\\Host", L"def");
    AddCharacter(files, L"C:\\Host", L"ghi");
    main.Load();
    EXPECT_TRUE(main.InstalledListMenu(1).empty());
    EXPECT_THAT(SelectedEntries(model.installed.names), IsEmpty());
    Select(model.installed.names, {L"abc", L"def"});
    EXPECT_TRUE(main.InstalledListMenu(2).empty());
    EXPECT_THAT(SelectedEntries(model.installed.names), ElementsAre(L"abc", L"def"));
}

// --- Reading anew ------------------------------------------------------------------------------

TEST_F(MainScreenTest, RefreshShowsWhatIsNewAndKeepsWhatIsSelected) {
    AddCharacter(files, L"C:\\Host", L"def");
    scene.AddPackage(L"other.lzh", {});
    main.Load();
    Select(model.installed.names, {L"def"});
    Select(model.browser.Files(), {L"mio.lzh", L"other.lzh"});
    main.SelectionChanged();
    const auto before = EnabledButtons(model);
    AddCharacter(files, L"C:\\Host", L"aaa");
    scene.AddPackage(L"download.lzh", {});
    main.RefreshPressed();
    EXPECT_THAT(Installed(), ElementsAre(L"aaa", L"abc", L"def"));
    EXPECT_THAT(SelectedEntries(model.installed.names), ElementsAre(L"def"));
    EXPECT_THAT(model.browser.Files().Entries(),
                ElementsAre(L"download.lzh", L"mio.lzh", L"other.lzh"));
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"mio.lzh", L"other.lzh"));
    EXPECT_EQ(EnabledButtons(model), before);
    EXPECT_FALSE(model.browser.TakeSelectionLost());
}

TEST_F(MainScreenTest, RefreshAppliesTheRulesToWhatIsLeftOfTheSelectionIfAnything) {
    main.Load();
    SelectBoth();
    files.DeleteTree(L"C:\\Packs\\mio.lzh");
    main.RefreshPressed();
    EXPECT_EQ(EnabledButtons(model), ForOneCharacter);
    main.RefreshPressed();
    EXPECT_EQ(EnabledButtons(model), ForOneCharacter);
    main.DeselectInstalledPressed();
    model.enabled[Command::Install] = true; // as after an install
    main.RefreshPressed();
    EXPECT_EQ(EnabledButtons(model), Commands{Command::Install});
}

TEST_F(MainScreenTest, RefreshReportsALostHostFolderEachTimeAndReadsTheRest) {
    main.Load();
    Select(model.browser.Files(), {L"mio.lzh"});
    files.DeleteTree(L"C:\\Host");
    for (int time = 0; time < 2; ++time) {
        scene.AddPackage(L"new" + std::to_wstring(time) + L".lzh", {});
        ExpectMissing([&] { main.RefreshPressed(); });
        EXPECT_EQ(model.browser.Files().Size(), static_cast<size_t>(time) + 2);
        EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"mio.lzh"));
    }
}

// --- Files dropped on the window ---------------------------------------------------------------

class DropTest : public MainScreenTest {
  protected:
    DropTest() {
        for (const wchar_t* file : {L"one.LZH", L"two.lzh", L"note.txt", L"folder.lzh\\inner.txt"})
            files.AddFile(std::wstring(L"C:\\Downloads\\") + file);
        main.Load();
    }
    void ExpectRefused(const std::vector<std::wstring>& paths, const std::wstring& text) {
        EXPECT_FALSE(main.FilesDropped(paths));
        EXPECT_THAT(fake.messages.shown, ElementsAre(Box{Kind::Inform, text}));
        EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Packs\\");
    }
};

TEST_F(DropTest, ShowsTheirFolderAsADoubleClickWouldAndSelectsTheArchives) {
    Select(model.browser.Files(), {L"mio.lzh"});
    EXPECT_TRUE(main.FilesDropped(
        {L"C:\\Downloads\\two.lzh", L"C:\\Downloads\\note.txt", L"c:\\downloads\\ONE.LZH"}));
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"one.LZH", L"two.lzh"));
    EXPECT_EQ(EnabledButtons(model), ForPackages);
    EXPECT_THAT(fake.messages.shown, IsEmpty());
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Downloads\\");
    EXPECT_EQ(model.browser.Rows()[model.browser.SelectedRow()], L"  + Downloads");
    EXPECT_FALSE(model.browser.TakeSelectionLost());
}

TEST_F(DropTest, SeveralFoldersAreRefused) {
    ExpectRefused({L"C:\\Downloads\\one.lzh", L"C:\\Packs\\mio.lzh"},
                  L"パッケージが、いくつかのフォルダに分かれています。\r\n"
                  L"１つのフォルダにあるものだけをドロップしてください。");
}

TEST_F(DropTest, NoArchiveIsRefused) {
    ExpectRefused(
        {L"C:\\Downloads\\note.txt", L"C:\\Downloads\\folder.lzh", L"C:\\Downloads\\gone.lzh"},
        L"ドロップされたものの中に、パッケージ（.lzh）がありません。");
}

TEST_F(DropTest, ArchivesThatAreNotListedAreRefused) {
    files.AddFile(L"C:\\Downloads\\hidden.lzh", "", {.hidden = true});
    EXPECT_FALSE(main.FilesDropped({L"C:\\Downloads\\hidden.lzh"}));
    EXPECT_THAT(fake.messages.Texts(),
                ElementsAre(L"ドロップされたパッケージを、一覧に表示できませんでした。"));
    EXPECT_THAT(SelectedEntries(model.browser.Files()), IsEmpty());
}

// --- Status line --------------------------------------------------------------------------------

TEST(StatusText, ExplainsTheButtons) {
    const std::pair<Command, const wchar_t*> texts[] = {
        {Command::Install, L"選択しているパッケージをインストールします。"},
        {Command::UpdateHost, L"ombrel.exeをアップデートします。"},
        {Command::UpdateDefinition,
         L"該当オンブレルのオンブレル定義ファイルをアップデートします。"},
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
        {Command::ShowReadme, L"選択されているオンブレルの README ファイルを表示します。"}};
    for (const auto& [command, text] : texts)
        EXPECT_EQ(MainScreen::StatusText(command), text);
    EXPECT_FALSE(MainScreen::StatusText(Command::PrepareStaging));
}

TEST(StatusText, BeginsWithTheVersionAndACredit) {
    const std::wstring text = MainScreen::InitialStatusText();
    EXPECT_TRUE(text.starts_with(L"Tamblin Ver." TAMBLIN_VERSION));
    EXPECT_GT(text.size(), std::wstring(L"Tamblin Ver." TAMBLIN_VERSION).size());
}

// --- Leaving ------------------------------------------------------------------------------------

class LeavingTest : public MainScreenTest, public testing::WithParamInterface<bool> {
  protected:
    LeavingTest() {
        main.Load();
        fake.messages.onShow = [this](const Box&) {
            savedBeforeAsking = files.Exists(SavedSettings);
        };
    }
    bool Leave() { return GetParam() ? main.ExitPressed() : main.CloseBoxPressed(); }

    bool savedBeforeAsking = false;
};

INSTANTIATE_TEST_SUITE_P(Ways, LeavingTest, testing::Bool(),
                         [](const auto& way) { return way.param ? "ExitButton" : "CloseBox"; });

TEST_P(LeavingTest, SavesAndThenAsks) {
    const Box exit{Kind::AskOkCancel, L"Tamblin を終了してもよろしいですか？"};
    const Box close{Kind::AskYesNo, L"終了してもよろしいですか？"};
    EXPECT_TRUE(Leave());
    EXPECT_THAT(fake.messages.shown, ElementsAre(GetParam() ? exit : close));
    EXPECT_TRUE(savedBeforeAsking);
}

TEST_P(LeavingTest, RefusalStaysAndHasSavedAllTheSame) {
    fake.messages.answer = false;
    main.ComboSelected(1);
    EXPECT_FALSE(Leave());
    const std::string ini = files.Contents(SavedSettings);
    EXPECT_THAT(ini, HasSubstr("DEFAULT=C:\\Second\r\n"));
    EXPECT_THAT(ini, HasSubstr("VMRFOLDER=C:\\Host\r\nVMRFOLDER=C:\\Second\r\n"));
    EXPECT_THAT(ini, HasSubstr("VIEWFOLDER=C:\\Packs\\\r\n"));
    EXPECT_THAT(Installed(), ElementsAre(L"xyz"));
}

TEST_P(LeavingTest, SavesTheFolderThatIsShownWhileTheDesktopIsParked) {
    fake.shell.desktopFolder = L"C:\\Packs";
    main.Activate();
    EXPECT_EQ(state.BrowseStartFolder, L"");
    Leave();
    EXPECT_THAT(files.Contents(SavedSettings), HasSubstr("VIEWFOLDER=C:\\Packs\\\r\n"));
}

TEST_P(LeavingTest, FailedSaveIsFatalAndAsksNothing) {
    files.AddFolder(SavedSettings);
    try {
        Leave();
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.IsFatal());
    }
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(MainScreenTest, NothingButLeavingSaves) {
    main.Load();
    main.ComboSelected(1);
    main.SettingsPressed();
    main.Activate();
    EXPECT_FALSE(files.Exists(SavedSettings));
}

} // namespace
} // namespace tamblin
