// The main window's lists: what loading, activation and choices refresh and enable.
#include "unit/main_screen_scene.h"

namespace tamblin {
namespace {

// --- Load and activation ------------------------------------------------------------------------

TEST_F(MainScreenTest, LoadFillsComboListAndBrowser) {
    main.Load();
    EXPECT_THAT(model.combo.entries, ElementsAre(L"C:\\Host", L"C:\\Second"));
    EXPECT_EQ(model.combo.Text(), L"C:\\Host");
    EXPECT_THAT(Installed(), ElementsAre(L"abc"));
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Packs\\");
    EXPECT_THAT(model.browser.Files().Entries(), ElementsAre(L"mio.lzh"));
    EXPECT_THAT(EnabledButtons(model), IsEmpty());
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(MainScreenTest, LoadBrowsesTheProgramFolderWhenNoFolderIsKnown) {
    state.ViewFolder.clear();
    main.Load();
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Tamblin\\");
}

TEST_F(MainScreenTest, LoadWithoutACurrentHostFolderShowsAnEmptyList) {
    state.DefaultFolder = L"c:\\host";
    main.Load();
    EXPECT_FALSE(model.combo.selected);
    EXPECT_THAT(Installed(), IsEmpty());
    EXPECT_EQ(state.DefaultFolder, L"");
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Packs\\");
}

TEST_F(MainScreenTest, ActivationShowsWhatOtherWindowsHaveChanged) {
    main.Load();
    AddHost(files, L"C:\\Third");
    AddCharacter(files, L"C:\\Third", L"new");
    Register(state, L"C:\\Third");
    state.DefaultFolder = L"C:\\Third";
    scene.AddPackage(L"more.lzh", {});
    main.Activate();
    EXPECT_EQ(model.combo.entries.size(), 3U);
    EXPECT_EQ(model.combo.Text(), L"C:\\Third");
    EXPECT_THAT(Installed(), ElementsAre(L"new"));
    EXPECT_THAT(model.browser.Files().Entries(), ElementsAre(L"mio.lzh", L"more.lzh"));
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Packs\\"); // not the folder of the settings again
}

TEST_F(MainScreenTest, ActivationKeepsTheFolderThatIsBrowsedAndAppliesTheRules) {
    main.Load();
    SelectBoth();
    EXPECT_EQ(EnabledButtons(model), ForPackages + ForOneCharacter);
    state.BrowseStartFolder = L"C:\\Second\\";
    main.Activate();
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Second\\");
    EXPECT_THAT(EnabledButtons(model), IsEmpty());
}

TEST_F(MainScreenTest, HostFolderThatIsGoneFailsAndLeavesTheBrowserUsable) {
    files.DeleteTree(L"C:\\Host");
    ExpectMissing([&] { main.Load(); });
    EXPECT_THAT(Installed(), IsEmpty());
    EXPECT_EQ(model.browser.ShownFolder(), L"C:\\Packs\\");
    main.ComboSelected(1);
    EXPECT_THAT(Installed(), ElementsAre(L"xyz"));
}

// The main window is activated again and again; once is enough to be told.
TEST_F(MainScreenTest, HostFolderThatIsGoneIsReportedOncePerLoss) {
    main.Load();
    for (int loss = 0; loss < 2; ++loss) {
        files.DeleteTree(L"C:\\Host");
        ExpectMissing([&] { loss == 0 ? main.Activate() : main.ComboSelected(0); });
        main.Activate();
        main.Activate();
        EXPECT_THAT(Installed(), IsEmpty());
        ExpectMissing([&] { main.ComboSelected(0); });
        main.Activate();
        AddHost(files, L"C:\\Host");
        AddCharacter(files, L"C:\\Host", L"abc");
        main.Activate();
        EXPECT_THAT(Installed(), ElementsAre(L"abc"));
    }
}

TEST_F(MainScreenTest, EveryHostFolderThatIsGoneIsReported) {
    main.Load();
    files.DeleteTree(L"C:\\Host");
    files.DeleteTree(L"C:\\Second");
    ExpectMissing([&] { main.Activate(); });
    state.DefaultFolder = L"C:\\Second";
    ExpectMissing([&] { main.Activate(); });
    main.Activate();
}

class BrokenOffUninstall : public MainScreenTest {
  protected:
    BrokenOffUninstall() {
        AddCharacter(files, L"C:\\Host", L"def");
        files.AddFile(L"C:\\Host\\def\\def.txt");
        main.Load();
        Select(model.browser.Files(), {L"mio.lzh"});
        Select(model.installed.names, {L"abc"});
        main.SelectionChanged();
        files.DeleteTree(L"C:\\Host\\abc.obl");
        EXPECT_EQ(ErrorOf([&] { Uninstall(model, state, fake.platform); }),
                  ErrorNumber::FileNotFound);
    }
};

// The list behind the names is no longer what it was, so the same folder counts as another one.
TEST_F(BrokenOffUninstall, LetsTheNextChoiceApplyTheRules) {
    model.enabled[Command::Install] = model.enabled[Command::DeselectFiles] = false;
    main.ComboSelected(0);
    EXPECT_EQ(EnabledButtons(model), ForPackages);
}

TEST_F(BrokenOffUninstall, LeavesTheReadmesOfTheOtherCharactersInReach) {
    Select(model.installed.names, {L"def"});
    main.SelectionChanged();
    EXPECT_EQ(EnabledButtons(model), ForPackages + ForOneCharacter + Commands{Command::ShowReadme});
}

// --- The combo ----------------------------------------------------------------------------------

TEST_F(MainScreenTest, ChoiceInTheComboBecomesTheCurrentHostFolderAndDecidesOnTheButtons) {
    main.Load();
    Select(model.installed.names, {L"abc"});
    main.SelectionChanged();
    EXPECT_EQ(EnabledButtons(model), ForOneCharacter);
    main.ComboSelected(1);
    EXPECT_EQ(state.DefaultFolder, L"C:\\Second");
    EXPECT_THAT(Installed(), ElementsAre(L"xyz"));
    EXPECT_THAT(EnabledButtons(model), IsEmpty());
    main.Activate();
    EXPECT_EQ(model.combo.Text(), L"C:\\Second");
}

TEST_F(MainScreenTest, SameChoiceRebuildsTheListWithoutApplyingTheRules) {
    main.Load();
    Select(model.browser.Files(), {L"mio.lzh"});
    AddCharacter(files, L"C:\\Host", L"def");
    main.ComboSelected(0);
    EXPECT_THAT(Installed(), ElementsAre(L"abc", L"def"));
    EXPECT_THAT(EnabledButtons(model), IsEmpty());
}

// Every button that needs a character, lit and then left without one.
class LostSelection : public MainScreenTest {
  protected:
    LostSelection() {
        files.AddFile(L"C:\\Host\\abc\\abc.txt");
        files.AddFile(L"C:\\Host\\abc\\dat\\obl\\abc.obl");
        main.Load();
        Select(model.browser.Files(), {L"mio.lzh"});
        Select(model.installed.names, {L"abc"});
        main.SelectionChanged();
        EXPECT_EQ(EnabledButtons(model),
                  (ForPackages + ForOneCharacter +
                   Commands{Command::UpdateDefinition, Command::ShowReadme}));
        EXPECT_TRUE(model.definitionUpdateReady);
    }
    void ExpectNoneOfACharacter() {
        EXPECT_THAT(SelectedEntries(model.installed.names), IsEmpty());
        EXPECT_EQ(EnabledButtons(model), ForPackages);
        EXPECT_FALSE(model.definitionUpdateReady);
    }
};

TEST_F(LostSelection, ByAChoiceLeavesNoButtonLitThatNeedsACharacter) {
    main.ComboSelected(0);
    ExpectNoneOfACharacter();
    Select(model.installed.names, {L"abc"});
    main.SelectionChanged();
    EXPECT_EQ(EnabledButtons(model), (ForPackages + ForOneCharacter +
                                      Commands{Command::UpdateDefinition, Command::ShowReadme}));
    main.ComboSelected(1);
    ExpectNoneOfACharacter();
}

TEST_F(LostSelection, ByAFolderThatCannotBeListedLeavesNoButtonLitThatNeedsACharacter) {
    files.DeleteTree(L"C:\\Host");
    ExpectMissing([&] { main.ComboSelected(0); });
    ExpectNoneOfACharacter();
}

TEST_F(LostSelection, ByDeselectingLeavesNoButtonLitThatNeedsACharacter) {
    main.DeselectInstalledPressed();
    ExpectNoneOfACharacter();
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"mio.lzh"));
}

TEST_F(LostSelection, ByActivationLeavesNoButtonLitThatNeedsACharacter) {
    files.DeleteTree(L"C:\\Packs"); // so that the file list keeps its own selection
    main.Activate();
    ExpectNoneOfACharacter();
}

// --- Lists and their buttons --------------------------------------------------------------------

TEST_F(MainScreenTest, WaysThroughTheTreeApplyTheRulesToALostSelection) {
    for (const bool up : {false, true}) {
        main.Load();
        Select(model.browser.Files(), {L"mio.lzh"});
        main.SelectionChanged();
        if (up)
            main.TreeUpPressed();
        else
            main.TreeRowOpened(1);
        EXPECT_EQ(model.browser.ShownFolder(), L"C:\\");
        EXPECT_THAT(EnabledButtons(model), IsEmpty());
        state.ViewFolder = L"C:\\Packs";
    }
}

TEST_F(MainScreenTest, DeselectingFilesDisablesItsOwnButtonOnly) {
    main.Load();
    SelectBoth();
    main.DeselectFilesPressed();
    EXPECT_THAT(SelectedEntries(model.browser.Files()), IsEmpty());
    EXPECT_THAT(SelectedEntries(model.installed.names), ElementsAre(L"abc"));
    EXPECT_EQ(EnabledButtons(model), ForOneCharacter + Commands{Command::Install});
}

TEST_F(MainScreenTest, SettingsButtonLeavesWordWhereItWasPressed) {
    EXPECT_FALSE(state.OpenedFromMainWindow);
    main.SettingsPressed();
    EXPECT_TRUE(state.OpenedFromMainWindow);
}

} // namespace
} // namespace tamblin
