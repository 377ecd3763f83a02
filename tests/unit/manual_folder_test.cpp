// Naming a host folder by hand, and changing a registered one.
#include "setup/manual_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t NotFoundText[] = L"Vimora が見つかりませんでした。";
constexpr wchar_t NotChangedText[] = L"変更されませんでした。";
constexpr wchar_t DuplicateText[] =
    L"このフォルダは、すでに登録されています。別のフォルダを指定してください。";

struct ManualScene : PlatformFake {
    explicit ManualScene(int registered = 0) {
        for (int number = 1; number <= registered; ++number)
            Register(state, L"C:\\r" + std::to_wstring(number));
        AddHost(files, L"C:\\VMR");
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

// --- Opening and the tree -------------------------------------------------------------------

class MoreButton : public testing::TestWithParam<std::pair<int, bool>> {};

TEST_P(MoreButton, IsOfferedBelowNineFolders) {
    ManualScene scene(GetParam().first);
    scene.manual.Load();
    EXPECT_EQ(scene.manual.MoreEnabled(), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(ManualFolder, MoreButton,
                         testing::Values(std::pair{0, true}, std::pair{8, true},
                                         std::pair{9, false}, std::pair{10, false}));

TEST(ManualFolder, TenthFolderCanBeAddedWithOk) {
    ManualScene scene(9);
    scene.manual.Load();
    scene.manual.OkPressed(L"C:\\VMR");
    EXPECT_EQ(scene.state.HostFolderCount, 10);
    EXPECT_EQ(scene.state.HostFolders[10], L"C:\\VMR");
}

TEST(ManualFolder, TreeStartsAtTheCurrentFolderOfTheProgramsDrive) {
    ManualScene scene;
    scene.files.AddFolder(L"C:\\a\\b");
    scene.files.SetCurrentFolder(L"C:\\a");
    scene.manual.Load();
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\a");
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\a");
    EXPECT_THAT(scene.manual.Browser().Rows(),
                ElementsAre(L"ﾃﾞｽｸﾄｯﾌﾟ", L"C:", L"  + a", L"    + b"));
}

TEST(ManualFolder, TreeLeavesAnotherCurrentDriveForTheProgramsOwn) {
    ManualScene scene;
    scene.files.AddDrive(L"D:");
    scene.files.SetCurrentFolder(L"D:\\");
    scene.manual.Load();
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\Tamblin");
}

TEST(ManualFolder, InEditModeTheTreeStartsAtTheFolderToChange) {
    ManualScene scene;
    Register(scene.state, L"C:\\other");
    Register(scene.state, L"C:\\VMR");
    scene.Edit(2);
    scene.manual.Load();
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\VMR");
    EXPECT_FALSE(scene.manual.MoreEnabled());
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

TEST(ManualFolder, FileListShowsTheHostFilesAlone) {
    ManualScene scene;
    for (const wchar_t* file : {L"Ombrel.EXE", L"OMBREL.RC", L"ombrel.rc.txt", L"a.lzh", L"a.obl"})
        scene.files.AddFile(L"C:\\a\\" + std::wstring(file));
    scene.files.SetCurrentFolder(L"C:\\a");
    scene.manual.Load();
    EXPECT_THAT(scene.manual.Browser().Files().Entries(), ElementsAre(L"Ombrel.EXE", L"OMBREL.RC"));
}

TEST(ManualFolder, HostFilesShowInARegisteredFolderToo) {
    ManualScene scene;
    Register(scene.state, L"C:\\VMR");
    scene.files.SetCurrentFolder(L"C:\\VMR");
    scene.manual.Load();
    EXPECT_EQ(scene.manual.Browser().Files().Size(), 2U);
}

TEST(ManualFolder, ClickedRowPutsItsFolderIntoTheText) {
    ManualScene scene;
    scene.manual.Load();
    scene.manual.TreeRowOpened(scene.Row(L"C:"));
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\");
    scene.manual.TreeRowClicked(scene.Row(L"C:\\VMR"));
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\");
    scene.manual.TreeRowClicked(scene.Row(L"C:"));
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\");
    scene.manual.TreeRowClicked(99);
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\");
}

TEST(ManualFolder, OpenedRowMovesTheTreeAndTheText) {
    ManualScene scene;
    scene.files.SetCurrentFolder(L"C:\\");
    scene.manual.Load();
    scene.manual.TreeRowOpened(scene.Row(L"C:\\VMR"));
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\VMR");
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\VMR");
    EXPECT_EQ(scene.manual.Browser().Files().Size(), 2U);
}

TEST(ManualFolder, MainWindowsBrowserKeepsItsOwnFolder) {
    ManualScene scene;
    scene.state.BrowseStartFolder = L"C:\\kept\\";
    scene.manual.Load();
    scene.manual.TreeRowOpened(scene.Row(L"C:"));
    EXPECT_EQ(scene.state.BrowseStartFolder, L"C:\\kept\\");
}

// --- OK -------------------------------------------------------------------------------------

TEST(ManualFolderOk, OneFolderOfAFirstRunIsTheDefault) {
    ManualScene scene;
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolderCount, 1);
    EXPECT_EQ(scene.state.DefaultFolder, L"C:\\VMR");
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(ManualFolderOk, SeveralFoldersOfAFirstRunLeadToTheChoiceOfTheDefault) {
    ManualScene scene(1);
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderChoice);
    EXPECT_EQ(scene.state.ChoiceStage, 2);
    EXPECT_EQ(scene.state.HostFolderCount, 2);
    EXPECT_EQ(scene.state.DefaultFolder, L"");
}

TEST(ManualFolderOk, OpenedFromManagementItGoesBackThere) {
    for (const int registered : {0, 1, 9}) {
        ManualScene scene(registered);
        scene.state.WizardFromManagement = true;
        scene.state.DefaultFolder = L"C:\\r1";
        EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
        EXPECT_EQ(scene.state.HostFolderCount, registered + 1);
        EXPECT_EQ(scene.state.DefaultFolder, L"C:\\r1");
    }
}

class HalfHosts : public testing::TestWithParam<const wchar_t*> {};

TEST_P(HalfHosts, AreRefusedAndTheWindowStaysOpen) {
    for (const int registered : {0, 2}) {
        ManualScene scene(registered);
        scene.files.AddFolder(L"C:\\half");
        if (*GetParam() != 0)
            scene.files.AddFile(L"C:\\half\\" + std::wstring(GetParam()));
        EXPECT_EQ(scene.manual.OkPressed(L"C:\\half"), NextWindow::Stay);
        EXPECT_EQ(scene.state.HostFolderCount, registered);
        EXPECT_THAT(scene.messages.Texts(), ElementsAre(NotFoundText));
    }
}

INSTANTIATE_TEST_SUITE_P(ManualFolderOk, HalfHosts,
                         testing::Values(L"ombrel.exe", L"ombrel.rc", L""));

TEST(ManualFolderOk, DuplicateIsReportedAndLeavesTheWindow) {
    ManualScene scene;
    Register(scene.state, L"C:\\VMR");
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolderCount, 1);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(DuplicateText));
}

struct TextRow {
    const char* name;
    const wchar_t* host;
    const wchar_t* text;
};

class FolderTexts : public testing::TestWithParam<TextRow> {};

TEST_P(FolderTexts, AreStoredAsEntered) {
    ManualScene scene;
    AddHost(scene.files, GetParam().host);
    EXPECT_EQ(scene.manual.OkPressed(GetParam().text), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolders[1], GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(ManualFolderOk, FolderTexts,
                         testing::Values(TextRow{"TrailingBackslash", L"C:\\VMR", L"C:\\VMR\\"},
                                         TextRow{"OtherCase", L"C:\\VMR", L"c:\\vmr"},
                                         TextRow{"DriveRoot", L"C:\\", L"C:\\"},
                                         TextRow{"Kanji", L"C:\\表 ソ\\能", L"C:\\表 ソ\\能"}),
                         CaseName);

// --- Changing a registered folder -----------------------------------------------------------

TEST(ManualFolderEdit, OkReplacesTheFolderAndShowsItInManagement) {
    ManualScene scene(3);
    scene.Edit(2);
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_EQ(scene.state.HostFolders[2], L"C:\\VMR");
    EXPECT_EQ(scene.state.HostFolderCount, 3);
    EXPECT_FALSE(scene.state.EditMode);
    EXPECT_EQ(scene.state.ChangedSlot, 2);
}

TEST(ManualFolderEdit, RegisteredFolderIsSaidToBeUnchangedAndStored) {
    ManualScene scene(2);
    Register(scene.state, L"C:\\VMR");
    scene.Edit(1);
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(NotChangedText));
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\VMR");
    EXPECT_FALSE(scene.state.EditMode);
}

TEST(ManualFolderEdit, RefusedFolderKeepsTheWindowOpenAndTheMode) {
    ManualScene scene(2);
    scene.Edit(1);
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\nowhere"), NextWindow::Stay);
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\r1");
    EXPECT_TRUE(scene.state.EditMode);
}

TEST(ManualFolderEdit, BackLeavesTheModeAndMarksNothingAsChanged) {
    ManualScene scene(2);
    scene.Edit(2);
    EXPECT_EQ(scene.manual.BackPressed(), NextWindow::FolderManagement);
    EXPECT_FALSE(scene.state.EditMode);
    EXPECT_EQ(scene.state.ChangedSlot, 0);
    EXPECT_EQ(scene.state.HostFolders[2], L"C:\\r2");
}

TEST(ManualFolderEdit, MoreLeavesTheModeForManagement) {
    ManualScene scene(2);
    scene.Edit(2);
    EXPECT_EQ(scene.manual.MorePressed(L"C:\\VMR"), NextWindow::FolderManagement);
    EXPECT_FALSE(scene.state.EditMode);
    EXPECT_EQ(scene.state.HostFolders[2], L"C:\\VMR");
}

// --- More and Back --------------------------------------------------------------------------

TEST(ManualFolderMore, RegistersAndOpensTheWindowAgain) {
    for (const bool fromManagement : {false, true}) {
        ManualScene scene(1);
        scene.state.WizardFromManagement = fromManagement;
        EXPECT_EQ(scene.manual.MorePressed(L"C:\\VMR"), NextWindow::ManualFolder);
        EXPECT_EQ(scene.state.HostFolderCount, 2);
        EXPECT_EQ(scene.state.DefaultFolder, L"");
    }
}

TEST(ManualFolderMore, TenthFolderLeadsToTheChoiceOfTheDefault) {
    ManualScene scene(9);
    EXPECT_EQ(scene.manual.MorePressed(L"C:\\VMR"), NextWindow::FolderChoice);
    EXPECT_EQ(scene.state.HostFolderCount, 10);
    EXPECT_EQ(scene.state.ChoiceStage, 2);
}

TEST(ManualFolderMore, RefusedFolderIsReportedAndTheWindowOpensAgain) {
    ManualScene scene;
    EXPECT_EQ(scene.manual.MorePressed(L"C:\\nowhere"), NextWindow::ManualFolder);
    EXPECT_EQ(scene.state.HostFolderCount, 0);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(NotFoundText));
}

TEST(ManualFolderBack, ReturnsToTheWizardWithoutRegistering) {
    for (const bool fromManagement : {false, true}) {
        ManualScene scene(1);
        scene.state.WizardFromManagement = fromManagement;
        EXPECT_EQ(scene.manual.BackPressed(), NextWindow::SetUpWizard);
        EXPECT_EQ(scene.state.HostFolderCount, 1);
    }
}

// --- Failures -------------------------------------------------------------------------------

TEST(ManualFolderFaults, FailingProbeChangesNothing) {
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

TEST(ManualFolderFaults, FolderToChangeOnADriveThatIsNotReadyIsAskedForOnceAndStaysProposed) {
    ManualScene scene;
    scene.files.AddDrive(L"E:");
    scene.files.SetReady(L"E:", false);
    Register(scene.state, L"E:\\VMR\\");
    scene.Edit(1);
    scene.messages.answer = false;
    scene.manual.Load();
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(L"ドライブの準備ができていません。"));
    EXPECT_EQ(scene.manual.FolderText(), L"E:\\VMR\\");
    EXPECT_EQ(scene.manual.StatusText(), L"C:\\Tamblin");
    EXPECT_FALSE(scene.manual.Browser().Rows().empty());
}

TEST(ManualFolderFaults, UnreadableFoldersLeaveATreeToGoOnWith) {
    ManualScene scene;
    Register(scene.state, L"C:\\gone");
    scene.Edit(1);
    scene.manual.Load();
    EXPECT_EQ(scene.manual.FolderText(), L"C:\\gone");
    EXPECT_FALSE(scene.manual.Browser().Rows().empty());
    EXPECT_NE(scene.manual.StatusText(), L"C:\\gone");
    EXPECT_EQ(scene.manual.OkPressed(L"C:\\VMR"), NextWindow::FolderManagement);
}

} // namespace
} // namespace tamblin
