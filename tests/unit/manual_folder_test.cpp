// Naming a host folder by hand, and changing a registered one.
#include "setup/manual_folder.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t NotFoundText[] = L"Vimora が見つかりませんでした。";
constexpr wchar_t NotChangedText[] = L"変更されませんでした。";
constexpr wchar_t DuplicateText[] =
    L"このフォルダは、すでに登録されています。別のフォルダを指定してください。";

struct ManualScene : PlatformFake {
    explicit ManualScene(int registered = 0) {
        RegisterFolders(registered);
        AddHost(files, L"C:\\VMR");
    }
    void RegisterFolders(int count) {
        for (int number = 1; number <= count; ++number)
            Register(state, L"C:\\r" + std::to_wstring(number));
    }
    void Edit(std::int16_t slot) {
        state.EditMode = true;
        state.EditIndex = slot;
    }
    // The row of the tree whose folder is this.
    size_t Row(const std::wstring& path) {
        const auto& paths = manual.Browser().Paths();
        const auto found = std::find(paths.begin(), paths.end(), path);
        if (found == paths.end())
            throw std::logic_error("the tree has no such row");
        return static_cast<size_t>(found - paths.begin());
    }

    SettingsState state;
    ManualFolder manual{platform, state};
};

struct ManualFolderTest : testing::Test, ManualScene {};

// --- Opening and the tree -------------------------------------------------------------------

TEST(ManualFolder, MoreIsOfferedBelowNineFoldersAndTheTenthCanBeAddedWithOk) {
    for (const auto& [registered, offered] :
         {std::pair{0, true}, std::pair{8, true}, std::pair{9, false}, std::pair{10, false}}) {
        ManualScene scene(registered);
        scene.manual.Load();
        EXPECT_EQ(scene.manual.MoreEnabled(), offered) << registered;
        if (registered == 9) {
            scene.manual.OkPressed(L"C:\\VMR");
            EXPECT_EQ(scene.state.HostFolderCount, 10);
            EXPECT_EQ(scene.state.HostFolders[10], L"C:\\VMR");
        }
    }
}

TEST_F(ManualFolderTest, TreeStartsAtTheCurrentFolderOfTheProgramsDrive) {
    files.AddFolder(L"C:\\a\\b");
    files.SetCurrentFolder(L"C:\\a");
    manual.Load();
    EXPECT_EQ(manual.FolderText(), L"C:\\a");
    EXPECT_EQ(manual.StatusText(), L"C:\\a");
    EXPECT_THAT(manual.Browser().Rows(), ElementsAre(L"ﾃﾞｽｸﾄｯﾌﾟ", L"C:", L"  + a", L"    + b"));
    files.AddDrive(L"D:");
    files.SetCurrentFolder(L"D:\\"); // is left for the program's own
    manual.Load();
    EXPECT_EQ(manual.StatusText(), L"C:\\Tamblin");
}

TEST_F(ManualFolderTest, InEditModeTheTreeStartsAtTheFolderToChange) {
    Register(state, L"C:\\other");
    Register(state, L"C:\\VMR");
    Edit(2);
    manual.Load();
    EXPECT_EQ(manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(manual.StatusText(), L"C:\\VMR");
    EXPECT_FALSE(manual.MoreEnabled());
}

// Left as it is proposed, the folder counts as unchanged.
TEST(ManualFolder, FolderToChangeIsProposedAsItIsRegistered) {
    for (const wchar_t* spelling : {L"C:\\VMR\\", L"c:\\vmr", L"C:/VMR"}) {
        ManualScene scene;
        Register(scene.state, spelling);
        scene.Edit(1);
        scene.manual.Load();
        EXPECT_EQ(scene.manual.FolderText(), spelling);
        scene.manual.OkPressed(scene.manual.FolderText());
        EXPECT_THAT(scene.messages.Texts(), ElementsAre(NotChangedText));
        EXPECT_EQ(scene.state.HostFolders[1], spelling);
    }
}

TEST_F(ManualFolderTest, FileListShowsTheHostFilesAloneAlsoInARegisteredFolder) {
    for (const wchar_t* file : {L"Ombrel.EXE", L"OMBREL.RC", L"ombrel.rc.txt", L"a.lzh", L"a.obl"})
        files.AddFile(L"C:\\a\\" + std::wstring(file));
    Register(state, L"C:\\VMR");
    files.SetCurrentFolder(L"C:\\a");
    manual.Load();
    EXPECT_THAT(manual.Browser().Files().Entries(), ElementsAre(L"Ombrel.EXE", L"OMBREL.RC"));
    files.SetCurrentFolder(L"C:\\VMR");
    manual.Load();
    EXPECT_EQ(manual.Browser().Files().Size(), 2U);
}

TEST_F(ManualFolderTest, ClickedRowPutsItsFolderIntoTheText) {
    manual.Load();
    manual.TreeUpPressed();
    EXPECT_EQ(manual.FolderText(), L"C:\\");
    manual.TreeRowClicked(Row(L"C:\\VMR"));
    EXPECT_EQ(manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(manual.StatusText(), L"C:\\");
    manual.TreeRowClicked(Row(L"C:"));
    EXPECT_EQ(manual.FolderText(), L"C:\\");
    for (const size_t nowhere : {Row(L""), size_t{99}}) { // the first a desktop that is not known
        manual.TreeRowClicked(nowhere);
        EXPECT_EQ(manual.FolderText(), L"C:\\");
    }
}

TEST_F(ManualFolderTest, OpenedRowMovesTheTreeAndTheTextButNotTheMainWindowsBrowser) {
    state.BrowseStartFolder = L"C:\\kept\\";
    files.SetCurrentFolder(L"C:\\");
    manual.Load();
    manual.TreeRowOpened(Row(L"C:\\VMR"));
    EXPECT_EQ(manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(manual.StatusText(), L"C:\\VMR");
    EXPECT_EQ(manual.Browser().Files().Size(), 2U);
    EXPECT_EQ(state.BrowseStartFolder, L"C:\\kept\\");
}

// --- OK -------------------------------------------------------------------------------------

TEST_F(ManualFolderTest, OneFolderOfAFirstRunIsTheDefault) {
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::MainWindow);
    EXPECT_EQ(state.HostFolderCount, 1);
    EXPECT_EQ(state.DefaultFolder, L"C:\\VMR");
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(ManualFolderTest, SeveralFoldersOfAFirstRunLeadToTheChoiceOfTheDefault) {
    RegisterFolders(1);
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::FolderChoice);
    EXPECT_EQ(state.ChoiceStage, 2);
    EXPECT_EQ(state.HostFolderCount, 2);
    EXPECT_EQ(state.DefaultFolder, L"");
}

TEST(ManualFolder, OpenedFromManagementItGoesBackThere) {
    for (const int registered : {0, 1, 9}) {
        ManualScene scene(registered);
        scene.state.WizardFromManagement = true;
        scene.state.DefaultFolder = L"C:\\r1";
        EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
        EXPECT_EQ(scene.state.HostFolderCount, registered + 1);
        EXPECT_EQ(scene.state.DefaultFolder, L"C:\\r1");
    }
}

TEST(ManualFolder, HalfHostsAreRefusedAndTheWindowStaysOpen) {
    for (const wchar_t* file : {L"ombrel.exe", L"ombrel.rc", L"other"})
        for (const int registered : {0, 2}) {
            ManualScene scene(registered);
            scene.files.AddFile(L"C:\\half\\" + std::wstring(file));
            EXPECT_EQ(scene.manual.OkPressed(L"C:\\half"), NextWindow::Stay);
            EXPECT_EQ(scene.state.HostFolderCount, registered);
            EXPECT_THAT(scene.messages.Texts(), ElementsAre(NotFoundText));
        }
}

TEST_F(ManualFolderTest, DuplicateIsReportedAndLeavesTheWindow) {
    Register(state, L"C:\\VMR");
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::MainWindow);
    EXPECT_EQ(state.HostFolderCount, 1);
    EXPECT_THAT(messages.Texts(), ElementsAre(DuplicateText));
}

// --- Changing a registered folder -----------------------------------------------------------

TEST_F(ManualFolderTest, OkReplacesTheFolderToChangeAndShowsItInManagement) {
    RegisterFolders(3);
    Edit(2);
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_EQ(state.HostFolders[2], L"C:\\VMR");
    EXPECT_EQ(state.HostFolderCount, 3);
    EXPECT_FALSE(state.EditMode);
    EXPECT_EQ(state.ChangedSlot, 2);
}

TEST_F(ManualFolderTest, FolderToChangeThatIsRegisteredIsSaidToBeUnchangedAndStored) {
    RegisterFolders(2);
    Register(state, L"C:\\VMR");
    Edit(1);
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_THAT(messages.Texts(), ElementsAre(NotChangedText));
    EXPECT_EQ(state.HostFolders[1], L"C:\\VMR");
    EXPECT_FALSE(state.EditMode);
}

TEST_F(ManualFolderTest, RefusedChangeKeepsTheModeAndBackLeavesItAndMarksNothingAsChanged) {
    RegisterFolders(2);
    Edit(2);
    EXPECT_EQ(manual.OkPressed(L"C:\\nowhere"), NextWindow::Stay);
    EXPECT_TRUE(state.EditMode);
    EXPECT_EQ(manual.BackPressed(), NextWindow::FolderManagement);
    EXPECT_FALSE(state.EditMode);
    EXPECT_EQ(state.ChangedSlot, 0);
    EXPECT_EQ(state.HostFolders[2], L"C:\\r2");
}

TEST_F(ManualFolderTest, MoreLeavesTheModeForManagement) {
    RegisterFolders(2);
    Edit(2);
    EXPECT_EQ(manual.MorePressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_FALSE(state.EditMode);
    EXPECT_EQ(state.HostFolders[2], L"C:\\VMR");
}

// --- More and Back --------------------------------------------------------------------------

TEST(ManualFolder, MoreRegistersAndOpensTheWindowAgainAndBackReturnsToTheWizard) {
    for (const bool fromManagement : {false, true}) {
        ManualScene scene(1);
        scene.state.WizardFromManagement = fromManagement;
        EXPECT_EQ(scene.manual.BackPressed(), NextWindow::SetUpWizard);
        EXPECT_EQ(scene.state.HostFolderCount, 1);
        EXPECT_EQ(scene.manual.MorePressed(L"C:\\VMR"), NextWindow::ManualFolder);
        EXPECT_EQ(scene.state.HostFolderCount, 2);
        EXPECT_EQ(scene.state.DefaultFolder, L"");
    }
}

TEST_F(ManualFolderTest, MoreLeadsWithTheTenthFolderToTheChoiceOfTheDefault) {
    RegisterFolders(9);
    EXPECT_EQ(manual.MorePressed(L"C:\\VMR"), NextWindow::FolderChoice);
    EXPECT_EQ(state.HostFolderCount, 10);
    EXPECT_EQ(state.ChoiceStage, 2);
}

TEST_F(ManualFolderTest, FolderThatMoreRefusesIsReportedAndTheWindowOpensAgain) {
    EXPECT_EQ(manual.MorePressed(L"C:\\nowhere"), NextWindow::ManualFolder);
    EXPECT_EQ(state.HostFolderCount, 0);
    EXPECT_THAT(messages.Texts(), ElementsAre(NotFoundText));
}

// --- Failures -------------------------------------------------------------------------------

TEST(ManualFolder, FailingProbeChangesNothing) {
    for (const bool editing : {false, true})
        for (size_t n = 1; n <= 2; ++n) {
            SCOPED_TRACE(n);
            ManualScene scene(2);
            if (editing)
                scene.Edit(1);
            scene.files.ForgetOperations();
            scene.files.FailOperation(n, ErrorNumber::DiskNotReady);
            EXPECT_EQ(ErrorOf([&] { scene.manual.OkPressed(L"C:\\VMR"); }),
                      ErrorNumber::DiskNotReady);
            EXPECT_EQ(scene.state.HostFolderCount, 2);
            EXPECT_EQ(scene.state.HostFolders[1], L"C:\\r1");
            EXPECT_EQ(scene.state.EditMode, editing);
        }
}

TEST_F(ManualFolderTest, FolderToChangeOnADriveThatIsNotReadyIsAskedForOnceAndStaysProposed) {
    files.AddDrive(L"E:");
    files.SetReady(L"E:", false);
    Register(state, L"E:\\VMR\\");
    Edit(1);
    messages.answer = false;
    manual.Load();
    EXPECT_THAT(messages.Texts(), ElementsAre(L"ドライブの準備ができていません。"));
    EXPECT_EQ(manual.FolderText(), L"E:\\VMR\\");
    EXPECT_EQ(manual.StatusText(), L"C:\\Tamblin");
    EXPECT_FALSE(manual.Browser().Rows().empty());
}

TEST_F(ManualFolderTest, WithoutATreeTheFolderToChangeStaysProposed) {
    Register(state, L"C:\\VMR");
    Edit(1);
    files.SetReady(L"C:", false);
    messages.answer = false;
    manual.Load();
    manual.TreeUpPressed();
    EXPECT_EQ(manual.FolderText(), L"C:\\VMR");
}

TEST_F(ManualFolderTest, UnreadableFoldersLeaveATreeToGoOnWith) {
    Register(state, L"C:\\gone");
    Edit(1);
    manual.Load();
    EXPECT_EQ(manual.FolderText(), L"C:\\gone");
    EXPECT_FALSE(manual.Browser().Rows().empty());
    EXPECT_NE(manual.StatusText(), L"C:\\gone");
    EXPECT_EQ(manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
}

} // namespace
} // namespace tamblin
