// Reviewing the registered host folders, the default and the permission.
#include "settings/folder_management.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

// Folders by one letter each; opened from the main window unless a test says otherwise.
struct ManagementScene {
    explicit ManagementScene(const std::wstring& folders, const std::wstring& defaultFolder = {}) {
        for (const wchar_t letter : folders)
            Register(state, {letter});
        state.DefaultFolder = defaultFolder;
        state.OpenedFromMainWindow = true;
        Open();
    }
    void Open() {
        management.Load();
        management.Activate();
    }
    void Choose(const std::wstring& folder) {
        Select(management.folders, {folder});
        management.SelectionChanged();
    }
    // Add, change, delete, leave: a letter each for those that can be pressed.
    std::string Enabled() const {
        std::string letters;
        if (management.addEnabled)
            letters += 'A';
        if (management.changeEnabled)
            letters += 'C';
        if (management.deleteEnabled)
            letters += 'D';
        if (management.leaveEnabled)
            letters += 'L';
        return letters;
    }

    SettingsState state;
    FolderManagement management{state};
};

// --- Filling --------------------------------------------------------------------------------

TEST(FolderManagement, ListsTheFoldersAndSelectsTheDefault) {
    ManagementScene scene(L"cab", L"a");
    EXPECT_THAT(scene.management.folders.Entries(), ElementsAre(L"c", L"a", L"b"));
    EXPECT_THAT(SelectedEntries(scene.management.folders), ElementsAre(L"a"));
}

TEST(FolderManagement, EnabledButtonsFollowCountAndSelection) {
    const std::tuple<const wchar_t*, const wchar_t*, const char*> rows[] = {
        {L"", L"", "AL"},
        {L"", L"a", "AL"},
        {L"ab", L"a", "ACDL"},
        {L"ab", L"", "A"},
        {L"ab", L"A", "A"},
        {L"abcdefghi", L"a", "ACDL"},
        {L"abcdefghij", L"a", "CDL"},
        {L"abcdefghij", L"", ""}};
    for (const auto& [folders, defaultFolder, enabled] : rows)
        EXPECT_EQ(ManagementScene(folders, defaultFolder).Enabled(), enabled) << folders;
}

TEST(FolderManagement, SelectingALineAllowsChangingDeletingAndLeaving) {
    ManagementScene scene(L"ab");
    EXPECT_EQ(scene.management.ChangePressed(), NextWindow::Stay);
    EXPECT_FALSE(scene.state.EditMode);
    scene.management.DeletePressed();
    EXPECT_EQ(RegisteredLetters(scene.state), L"ab");
    scene.Choose(L"b");
    EXPECT_EQ(scene.Enabled(), "ACDL");
}

TEST(FolderManagement, ActivationReadsTheFoldersAnew) {
    ManagementScene scene(L"ab", L"a");
    Register(scene.state, L"c");
    scene.state.DefaultFolder = L"c";
    scene.management.Activate();
    EXPECT_THAT(scene.management.folders.Entries(), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(SelectedEntries(scene.management.folders), ElementsAre(L"c"));
}

TEST(FolderManagement, ChangedFolderIsSelectedOnce) {
    ManagementScene scene(L"abc", L"a");
    scene.state.ChangedSlot = 3;
    scene.management.Activate();
    EXPECT_THAT(SelectedEntries(scene.management.folders), ElementsAre(L"c"));
    EXPECT_EQ(scene.Enabled(), "ACDL");
    scene.management.Activate();
    EXPECT_THAT(SelectedEntries(scene.management.folders), ElementsAre(L"a"));
}

// --- Add and change -------------------------------------------------------------------------

TEST(FolderManagement, AddLeadsToTheWizardWhichReturnsHere) {
    ManagementScene scene(L"a", L"a");
    EXPECT_EQ(scene.management.AddPressed(), NextWindow::SetUpWizard);
    EXPECT_TRUE(scene.state.WizardFromManagement);
    EXPECT_FALSE(scene.state.EditMode);
}

TEST(FolderManagement, ChangeNamesTheSlotOfTheSelectedLine) {
    ManagementScene scene(L"abc", L"a");
    scene.Choose(L"c");
    EXPECT_EQ(scene.management.ChangePressed(), NextWindow::ManualFolder);
    EXPECT_TRUE(scene.state.EditMode);
    EXPECT_EQ(scene.state.EditIndex, 3);
}

// --- Delete ---------------------------------------------------------------------------------

TEST(FolderManagement, DeletionsCloseTheGapInOrderAndSelectTheDefaultAgain) {
    for (const auto& [deleted, rest] :
         {std::pair{L"a", L"bc"}, std::pair{L"b", L"ac"}, std::pair{L"c", L"ab"}}) {
        ManagementScene scene(L"abc", L"a");
        scene.Choose(deleted);
        scene.management.DeletePressed();
        EXPECT_EQ(RegisteredLetters(scene.state), rest);
        EXPECT_EQ(scene.management.folders.Size(), 2U);
        EXPECT_EQ(scene.state.DefaultFolder, L"a");
        EXPECT_EQ(scene.state.HostFolders[3], L"c"); // behind the last, the old string stays
        if (*deleted != L'a') {
            EXPECT_THAT(SelectedEntries(scene.management.folders), ElementsAre(L"a"));
            EXPECT_EQ(scene.Enabled(), "ACDL");
        }
    }
}

TEST(FolderManagement, AddIsOfferedAgainAfterADeletionFromTen) {
    ManagementScene scene(L"abcdefghij", L"a");
    EXPECT_FALSE(scene.management.addEnabled);
    scene.Choose(L"j");
    scene.management.DeletePressed();
    EXPECT_TRUE(scene.management.addEnabled);
}

TEST(FolderManagement, LastFolderDeletedLeavesOnlyAddAndLeaveAndKeepsItsPath) {
    ManagementScene scene(L"a", L"a");
    scene.management.DeletePressed();
    EXPECT_EQ(scene.Enabled(), "AL");
    EXPECT_EQ(scene.state.HostFolderCount, 0);
    EXPECT_EQ(scene.management.LeavePressed(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
}

TEST(FolderManagement, DeletedDefaultLeavesTheCombosSelectionEmpty) {
    ManagementScene scene(L"ab", L"a");
    scene.management.DeletePressed();
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
    EXPECT_THAT(SelectedEntries(scene.management.folders), IsEmpty());
    EXPECT_EQ(scene.Enabled(), "A"); // a line has to be chosen before the window can be left
    HostFolderCombo combo;
    FillHostFolderCombo(combo, scene.state);
    EXPECT_THAT(combo.entries, ElementsAre(L"b"));
    EXPECT_FALSE(combo.selected.has_value());
}

// --- Leaving --------------------------------------------------------------------------------

TEST(FolderManagement, BackAppliesTheChosenDefault) {
    ManagementScene scene(L"abc", L"a");
    scene.Choose(L"b");
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
    EXPECT_EQ(scene.management.LeaveCaption(), L"戻る");
    EXPECT_EQ(scene.management.LeavePressed(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder, L"b");
}

TEST(FolderManagement, ClosingLeadsBackAndAppliesNothing) {
    ManagementScene scene(L"abc", L"a");
    scene.state.KvaOption = L"OFF";
    scene.Choose(L"b");
    scene.management.kvaAllowed = true;
    EXPECT_EQ(scene.management.Closed(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
    EXPECT_EQ(scene.state.KvaOption, L"OFF");
}

TEST(FolderManagement, ClosingBeforeTheMainWindowEndsTheProgram) {
    ManagementScene scene(L"ab", L"a");
    scene.state.OpenedFromMainWindow = false;
    scene.Open();
    EXPECT_EQ(scene.management.Closed(), NextWindow::EndProgram);
}

TEST(FolderManagement, PermissionIsShownAndAppliedOnGoingBack) {
    for (const auto& [before, shown] : {std::pair{L"ON", true}, std::pair{L"OFF", false},
                                        std::pair{L"on", false}, std::pair{L"", false}}) {
        ManagementScene scene(L"a", L"a");
        scene.state.KvaOption = before;
        scene.Open();
        EXPECT_EQ(scene.management.kvaAllowed, shown) << before;
        for (const bool allowed : {true, false}) {
            scene.state.KvaOption = before;
            scene.Open();
            scene.management.kvaAllowed = allowed;
            scene.management.LeavePressed();
            EXPECT_EQ(scene.state.KvaOption, allowed ? L"ON" : L"OFF");
        }
    }
}

TEST(FolderManagement, BeforeTheMainWindowTheLeaveButtonEndsAndAppliesNothing) {
    ManagementScene scene(L"ab", L"a");
    scene.state.OpenedFromMainWindow = false;
    scene.state.KvaOption = L"OFF";
    scene.Open();
    scene.Choose(L"b");
    scene.management.kvaAllowed = true;
    EXPECT_EQ(scene.management.LeaveCaption(), L"終了");
    EXPECT_EQ(scene.management.LeavePressed(), NextWindow::EndProgram);
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
    EXPECT_EQ(scene.state.KvaOption, L"OFF");
}

} // namespace
} // namespace tamblin
