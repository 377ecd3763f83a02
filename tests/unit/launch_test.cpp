// Starting the host with a character, showing READMEs, the installed list's menu.
#include "maintenance/launch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "maintenance/folder_check.h"
#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Opened = DesktopShellFake::Opened;

struct CommandLineRow {
    const wchar_t* host;
    const wchar_t* commandLine;
};

class CommandLines : public testing::TestWithParam<CommandLineRow> {};

TEST_P(CommandLines, QuoteThePathAloneAndEndInTheSwitch) {
    MaintenanceScene scene(GetParam().host);
    scene.ShowSelected(L"abc");
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_THAT(scene.starter.started, ElementsAre(GetParam().commandLine));
}

INSTANTIATE_TEST_SUITE_P(
    LaunchCharacter, CommandLines,
    testing::Values(CommandLineRow{L"C:\\VMR", L"\"C:\\VMR\\ombrel.exe\" /n"},
                    CommandLineRow{L"C:\\VMR\\", L"\"C:\\VMR\\ombrel.exe\" /n"},
                    CommandLineRow{L"C:\\", L"\"C:\\ombrel.exe\" /n"},
                    CommandLineRow{L"C:\\My Host", L"\"C:\\My Host\\ombrel.exe\" /n"},
                    CommandLineRow{L"C:\\表ソ能", L"\"C:\\表ソ能\\ombrel.exe\" /n"}));

TEST(LaunchCharacter, HostFindsTheTemporaryStartUpFileInItsCurrentFolder) {
    MaintenanceScene scene;
    scene.files.AddFolder(L"C:\\VMR\\Abc");
    scene.files.AddFile(L"C:\\VMR\\aBC.OBL");
    scene.Show();
    scene.SelectCharacters({L"Abc"});
    scene.starter.onStart = [&](const std::wstring&) {
        EXPECT_EQ(scene.files.CurrentFolder(), L"C:\\VMR");
        EXPECT_EQ(scene.StartUpFile(), "H001currentobl=aBC.OBL\r\n");
        EXPECT_EQ(scene.files.Contents(scene.Backup()), scene.formerStartUp);
    };
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.starter.started.size(), 1U);
}

TEST(LaunchCharacter, LeavesTheHostFolderAsItWas) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    const auto before = scene.files.Snapshot();
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_FALSE(scene.files.Exists(scene.Backup()));
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(LaunchCharacter, ReadOnlyStartUpFileSurvivesWithItsAttributes) {
    MaintenanceScene scene;
    const FileAttributes attributes{.readOnly = true, .hidden = true};
    scene.files.AddFile(L"C:\\VMR\\ombrel.rc", "1", attributes);
    scene.ShowSelected(L"abc");
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.starter.started.size(), 1U);
    EXPECT_EQ(scene.StartUpFile(), "1");
    EXPECT_EQ(scene.files.AttributesOf(L"C:\\VMR\\ombrel.rc"), attributes);
}

TEST(LaunchCharacter, TouchesTheDiskInTheOrderOfItsSteps) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.starter.onStart = [&](const std::wstring&) {
        scene.files.AddToLog(L"Start");
    };
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_THAT(scene.files.Log(),
                ElementsAre(L"Find C:\\VMR\\ombrel.exe", L"Find C:\\VMR\\abc.obl",
                            L"Find C:\\VMR\\ombrel.rc", L"SetCurrentFolder C:\\VMR",
                            L"Rename C:\\VMR\\ombrel.rc -> C:\\VMR\\ombrel_rc.bak",
                            L"Write C:\\VMR\\ombrel.rc", L"Start", L"Delete C:\\VMR\\ombrel.rc",
                            L"Rename C:\\VMR\\ombrel_rc.bak -> C:\\VMR\\ombrel.rc",
                            L"SetCurrentFolder C:\\Tamblin"));
}

TEST(LaunchCharacter, EndsInTheProgramFolderWhateverWasCurrent) {
    MaintenanceScene scene;
    scene.files.AddDrive(L"D:");
    scene.ShowSelected(L"abc");
    scene.files.SetCurrentFolder(L"D:\\");
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.CurrentFolder(), L"C:\\Tamblin");
}

TEST(LaunchCharacter, FirstOfSeveralSelectedIsStarted) {
    MaintenanceScene scene;
    for (const wchar_t* name : {L"a", L"b", L"c"})
        scene.AddCharacter(name);
    scene.Show();
    scene.SelectCharacters({L"b", L"c"});
    std::string line;
    scene.starter.onStart = [&](const std::wstring&) {
        line = scene.StartUpFile();
    };
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(line, "H001currentobl=b.obl\r\n");
}

TEST(LaunchCharacter, PairsByPositionEvenPastADefinitionFileWithoutFolder) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\VMR\\aaa.obl");
    scene.ShowSelected(L"b");
    std::string line;
    scene.starter.onStart = [&](const std::wstring&) {
        line = scene.StartUpFile();
    };
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(line, "H001currentobl=aaa.obl\r\n");
}

TEST(LaunchCharacter, WithoutSelectionNothingHappens) {
    MaintenanceScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.OperationCount(), 0U);
    EXPECT_THAT(scene.starter.started, IsEmpty());
}

class MissingForLaunch : public testing::TestWithParam<const wchar_t*> {
  protected:
    // Expects that a launch ends before it changes anything.
    static void ExpectSilentEnd(MaintenanceScene& scene) {
        scene.files.ForgetOperations();
        const auto before = scene.files.Snapshot();
        LaunchCharacter(scene.model, scene.platform);
        EXPECT_EQ(scene.files.OperationCount(), scene.files.CountLogged(L"Find "));
        EXPECT_EQ(scene.files.Snapshot(), before);
        EXPECT_THAT(scene.starter.started, IsEmpty());
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
};

TEST_P(MissingForLaunch, EndsItSilently) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(scene.base + GetParam());
    ExpectSilentEnd(scene);
}

TEST_P(MissingForLaunch, FolderInItsPlaceIsNoFile) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(scene.base + GetParam());
    scene.files.AddFolder(scene.base + GetParam());
    ExpectSilentEnd(scene);
}

INSTANTIATE_TEST_SUITE_P(LaunchCharacter, MissingForLaunch,
                         testing::Values(L"ombrel.exe", L"ombrel.rc", L"abc.obl"));

TEST(LaunchCharacter, VanishedHostFolderEndsItSilently) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(L"C:\\VMR");
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_THAT(scene.starter.started, IsEmpty());
}

class LostDrives : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(LaunchCharacter, LostDrives, testing::Bool(),
                         [](const auto& lost) { return lost.param ? "Gone" : "NotReady"; });

TEST_P(LostDrives, EndItSilently) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    if (GetParam())
        scene.files.RemoveDrive(L"C:");
    else
        scene.files.SetReady(L"C:", false);
    LaunchCharacter(scene.model, scene.platform);
    ShowReadme(scene.model, scene.platform);
    EXPECT_THAT(scene.starter.started, IsEmpty());
    EXPECT_THAT(scene.shell.opened, IsEmpty());
    const auto menu = MenuForInstalledList(scene.model, scene.platform);
    ASSERT_TRUE(menu.has_value());
    EXPECT_FALSE(menu->readmeEnabled);
}

TEST(LaunchCharacter, ListingThatHasShrunkSinceEndsItSilently) {
    MaintenanceScene scene;
    scene.AddCharacter(L"a");
    scene.ShowSelected(L"b");
    scene.files.DeleteTree(L"C:\\VMR\\b.obl");
    FolderCheck(scene.platform).RunCheck(scene.model);
    LaunchCharacter(scene.model, scene.platform);
    EXPECT_THAT(scene.starter.started, IsEmpty());
    EXPECT_EQ(scene.StartUpFile(), scene.formerStartUp);
}

TEST(LaunchCharacter, LeftoverBackupEndsItBeforeTheStart) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.files.AddFile(scene.Backup(), "earlier");
    const auto before = scene.files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { LaunchCharacter(scene.model, scene.platform); }),
              ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_THAT(scene.starter.started, IsEmpty());
}

TEST(LaunchCharacter, FailedStartLeavesTheFormerFileAside) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.starter.failure = ErrorNumber::FileNotFound;
    EXPECT_EQ(ErrorOf([&] { LaunchCharacter(scene.model, scene.platform); }),
              ErrorNumber::FileNotFound);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=abc.obl\r\n");
    EXPECT_EQ(scene.files.Contents(scene.Backup()), scene.formerStartUp);
}

TEST(ShowReadme, OpensEveryCandidateInOrder) {
    MaintenanceScene scene;
    for (const wchar_t* ending : {L".html", L".htm", L"-X.txt", L".txt", L".doc"})
        scene.files.AddFile(L"C:\\VMR\\abc\\abc" + std::wstring(ending));
    scene.ShowSelected(L"abc");
    ShowReadme(scene.model, scene.platform);
    const std::wstring folder = L"C:\\VMR\\abc\\";
    EXPECT_THAT(
        scene.shell.opened,
        ElementsAre(Opened{folder + L"abc.txt", folder}, Opened{folder + L"abc-X.txt", folder},
                    Opened{folder + L"abc.htm", folder}, Opened{folder + L"abc.html", folder}));
}

TEST(ShowReadme, MissingCandidatesAreLeftOut) {
    MaintenanceScene scene;
    for (const wchar_t* ending : {L".html", L".htm", L".txt"})
        scene.files.AddFile(L"C:\\VMR\\abc\\abc" + std::wstring(ending));
    scene.ShowSelected(L"abc");
    ShowReadme(scene.model, scene.platform);
    const std::wstring folder = L"C:\\VMR\\abc\\";
    EXPECT_THAT(scene.shell.opened, ElementsAre(Opened{folder + L"abc.txt", folder},
                                                Opened{folder + L"abc.htm", folder},
                                                Opened{folder + L"abc.html", folder}));
}

// The name is the one that has been formed, however the disk spells it.
TEST(ShowReadme, OpensTheNameAsItIsFormed) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\VMR\\abc\\ABC-x.TXT");
    scene.ShowSelected(L"abc");
    ShowReadme(scene.model, scene.platform);
    EXPECT_THAT(scene.shell.opened,
                ElementsAre(Opened{L"C:\\VMR\\abc\\abc-X.txt", L"C:\\VMR\\abc\\"}));
}

TEST(ShowReadme, SaysNothingWhenThereIsNone) {
    MaintenanceScene scene;
    scene.files.AddFolder(L"C:\\VMR\\abc\\abc.txt");
    scene.files.AddFile(L"C:\\VMR\\abc\\readme.txt");
    scene.ShowSelected(L"abc");
    ShowReadme(scene.model, scene.platform);
    EXPECT_THAT(scene.shell.opened, IsEmpty());
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(ShowReadme, TakesTheFirstOfSeveralSelected) {
    MaintenanceScene scene;
    for (const std::wstring name : {L"a", L"b"}) {
        scene.AddCharacter(name);
        scene.files.AddFile(L"C:\\VMR\\" + name + L"\\" + name + L".txt");
    }
    scene.Show();
    scene.SelectCharacters({L"a", L"b"});
    ShowReadme(scene.model, scene.platform);
    EXPECT_THAT(scene.shell.opened, ElementsAre(Opened{L"C:\\VMR\\a\\a.txt", L"C:\\VMR\\a\\"}));
}

TEST(ShowReadme, WithoutSelectionNothingHappens) {
    MaintenanceScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    ShowReadme(scene.model, scene.platform);
    EXPECT_EQ(scene.files.OperationCount(), 0U);
}

struct ReadmeRow {
    const wchar_t* host;
    const wchar_t* name;
    const wchar_t* document;
};

class ReadmePaths : public testing::TestWithParam<ReadmeRow> {};

TEST_P(ReadmePaths, AreFormedOnceWithoutDoubledBackslash) {
    MaintenanceScene scene(GetParam().host);
    scene.files.AddFile(GetParam().document);
    scene.ShowSelected(GetParam().name);
    ShowReadme(scene.model, scene.platform);
    const std::wstring folder = scene.base + GetParam().name + L"\\";
    EXPECT_THAT(scene.shell.opened, ElementsAre(Opened{GetParam().document, folder}));
}

INSTANTIATE_TEST_SUITE_P(
    ShowReadme, ReadmePaths,
    testing::Values(ReadmeRow{L"C:\\", L"abc", L"C:\\abc\\abc-X.txt"},
                    ReadmeRow{L"C:\\VMR\\", L"abc", L"C:\\VMR\\abc\\abc.htm"},
                    ReadmeRow{L"C:\\VMR", L"a b", L"C:\\VMR\\a b\\a b.html"},
                    ReadmeRow{L"C:\\VMR", L"x.obl", L"C:\\VMR\\x.obl\\x.obl.txt"},
                    ReadmeRow{L"C:\\表", L"ソ能", L"C:\\表\\ソ能\\ソ能-X.txt"}));

class ReadmeEndings : public testing::TestWithParam<const wchar_t*> {};

TEST_P(ReadmeEndings, EachEnablesTheMenuItemAlone) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\VMR\\abc\\abc" + std::wstring(GetParam()));
    scene.ShowSelected(L"abc");
    const auto menu = MenuForInstalledList(scene.model, scene.platform);
    ASSERT_TRUE(menu.has_value());
    EXPECT_TRUE(menu->readmeEnabled);
    EXPECT_THAT(scene.shell.opened, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(InstalledListMenu, ReadmeEndings,
                         testing::Values(L".txt", L"-X.txt", L".htm", L".html"));

TEST(InstalledListMenu, WithoutReadmeTheItemIsDisabled) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\VMR\\abc\\abc.doc");
    scene.ShowSelected(L"abc");
    const auto menu = MenuForInstalledList(scene.model, scene.platform);
    ASSERT_TRUE(menu.has_value());
    EXPECT_FALSE(menu->readmeEnabled);
}

TEST(InstalledListMenu, OpensOnlyOverExactlyOneSelected) {
    MaintenanceScene scene;
    scene.AddCharacter(L"a");
    scene.AddCharacter(L"b");
    scene.Show();
    EXPECT_FALSE(MenuForInstalledList(scene.model, scene.platform).has_value());
    scene.SelectCharacters({L"b"});
    EXPECT_TRUE(MenuForInstalledList(scene.model, scene.platform).has_value());
    scene.SelectCharacters({L"a", L"b"});
    EXPECT_FALSE(MenuForInstalledList(scene.model, scene.platform).has_value());
}

} // namespace
} // namespace tamblin
