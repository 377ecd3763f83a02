// Starting the host with a character, showing READMEs, the installed list's menu.
#include "maintenance/launch.h"

#include "maintenance/character_menu.h"
#include "maintenance/folder_check.h"
#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using Opened = DesktopShellFake::Opened;

struct LaunchTest : testing::Test, MaintenanceScene {
    void Launch() { LaunchCharacter(model, platform); }
    // The line of the start-up file that the host finds.
    std::string LineOfLaunch() {
        std::string line;
        starter.onStart = [&](const std::wstring&) {
            line = StartUpFile();
        };
        Launch();
        return line;
    }
    // What is opened of the folder of the character abc.
    void ExpectReadmes(const std::vector<std::wstring>& names) {
        ShowReadme(model, platform);
        std::vector<Opened> expected;
        for (const std::wstring& name : names)
            expected.push_back({L"C:\\VMR\\abc\\" + name, L"C:\\VMR\\abc\\"});
        EXPECT_THAT(shell.opened, ElementsAreArray(expected));
    }
    void AddReadmes(std::initializer_list<const wchar_t*> endings) {
        for (const wchar_t* ending : endings)
            files.AddFile(L"C:\\VMR\\abc\\abc" + std::wstring(ending));
    }
};
using ReadmeTest = LaunchTest;
using CharacterMenuTest = LaunchTest;

TEST(LaunchCharacter, CommandLineQuotesThePathAloneAndEndsInTheSwitch) {
    const std::pair<const wchar_t*, const wchar_t*> commandLines[] = {
        {L"C:\\VMR", L"\"C:\\VMR\\ombrel.exe\" /n"},
        {L"C:\\VMR\\", L"\"C:\\VMR\\ombrel.exe\" /n"},
        {L"C:\\", L"\"C:\\ombrel.exe\" /n"},
        {L"C:\\My Host", L"\"C:\\My Host\\ombrel.exe\" /n"},
        {L"C:\\表ソ能", L"\"C:\\表ソ能\\ombrel.exe\" /n"}};
    for (const auto& [host, commandLine] : commandLines) {
        MaintenanceScene scene(host);
        scene.ShowSelected(L"abc");
        LaunchCharacter(scene.model, scene.platform);
        EXPECT_THAT(scene.starter.started, ElementsAre(commandLine));
    }
}

TEST_F(LaunchTest, HostFindsTheTemporaryStartUpFileInItsCurrentFolder) {
    files.AddFolder(L"C:\\VMR\\Abc");
    files.AddFile(L"C:\\VMR\\aBC.OBL");
    Show();
    SelectCharacters({L"Abc"});
    starter.onStart = [&](const std::wstring&) {
        EXPECT_EQ(files.CurrentFolder(), L"C:\\VMR");
        EXPECT_EQ(StartUpFile(), "H001currentobl=aBC.OBL\r\n");
        EXPECT_EQ(files.Contents(Backup()), formerStartUp);
    };
    Launch();
    EXPECT_EQ(starter.started.size(), 1U);
}

TEST_F(LaunchTest, LeavesTheHostFolderAsItWasAndEndsInTheProgramFolder) {
    files.AddDrive(L"D:");
    ShowSelected(L"abc");
    files.SetCurrentFolder(L"D:\\");
    const auto before = files.Snapshot();
    Launch();
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_FALSE(files.Exists(Backup()));
    EXPECT_THAT(messages.shown, IsEmpty());
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(LaunchTest, ReadOnlyStartUpFileSurvivesWithItsAttributes) {
    const FileAttributes attributes{.readOnly = true, .hidden = true};
    files.AddFile(L"C:\\VMR\\ombrel.rc", "1", attributes);
    ShowSelected(L"abc");
    Launch();
    EXPECT_EQ(starter.started.size(), 1U);
    EXPECT_EQ(StartUpFile(), "1");
    EXPECT_EQ(files.AttributesOf(L"C:\\VMR\\ombrel.rc"), attributes);
}

TEST_F(LaunchTest, TouchesTheDiskInTheOrderOfItsSteps) {
    ShowSelected(L"abc");
    starter.onStart = [&](const std::wstring&) {
        files.AddToLog(L"Start");
    };
    Launch();
    EXPECT_THAT(files.Log(),
                ElementsAre(L"Find C:\\VMR\\ombrel.exe", L"Find C:\\VMR\\abc.obl",
                            L"Find C:\\VMR\\ombrel.rc", L"SetCurrentFolder C:\\VMR",
                            L"Rename C:\\VMR\\ombrel.rc -> C:\\VMR\\ombrel_rc.bak",
                            L"Write C:\\VMR\\ombrel.rc", L"Start", L"Delete C:\\VMR\\ombrel.rc",
                            L"Rename C:\\VMR\\ombrel_rc.bak -> C:\\VMR\\ombrel.rc",
                            L"SetCurrentFolder C:\\Tamblin"));
}

TEST_F(LaunchTest, FirstOfSeveralSelectedIsStartedAndItsReadmeShown) {
    for (const std::wstring name : {L"a", L"abc", L"c"}) {
        AddCharacter(name);
        files.AddFile(base + name + L"\\" + name + L".txt");
    }
    Show();
    SelectCharacters({L"abc", L"c"});
    EXPECT_EQ(LineOfLaunch(), "H001currentobl=abc.obl\r\n");
    ExpectReadmes({L"abc.txt"});
}

TEST_F(LaunchTest, PairsByPositionEvenPastADefinitionFileWithoutFolder) {
    files.AddFile(L"C:\\VMR\\aaa.obl");
    ShowSelected(L"b");
    EXPECT_EQ(LineOfLaunch(), "H001currentobl=aaa.obl\r\n");
}

TEST_F(LaunchTest, WithoutSelectionNothingHappens) {
    AddCharacter(L"abc");
    Show();
    Launch();
    ShowReadme(model, platform);
    EXPECT_EQ(files.OperationCount(), 0U);
    EXPECT_THAT(starter.started, IsEmpty());
}

TEST(LaunchCharacter, WithoutOneOfItsFilesItEndsBeforeItChangesAnything) {
    for (const wchar_t* missing : {L"ombrel.exe", L"ombrel.rc", L"abc.obl"})
        for (const bool folderInItsPlace : {false, true}) {
            SCOPED_TRACE(missing);
            MaintenanceScene scene;
            scene.ShowSelected(L"abc");
            scene.files.DeleteTree(scene.base + missing);
            if (folderInItsPlace)
                scene.files.AddFolder(scene.base + missing);
            scene.files.ForgetOperations();
            const auto before = scene.files.Snapshot();
            LaunchCharacter(scene.model, scene.platform);
            EXPECT_EQ(scene.files.OperationCount(), scene.files.CountLogged(L"Find "));
            EXPECT_EQ(scene.files.Snapshot(), before);
            EXPECT_THAT(scene.starter.started, IsEmpty());
            EXPECT_THAT(scene.messages.shown, IsEmpty());
        }
}

TEST_F(LaunchTest, ListingThatHasShrunkOrVanishedSinceEndsItSilently) {
    AddCharacter(L"a");
    ShowSelected(L"b");
    files.DeleteTree(L"C:\\VMR\\b.obl");
    FolderCheck(platform).RunCheck(model);
    Launch();
    EXPECT_THAT(starter.started, IsEmpty());
    EXPECT_EQ(StartUpFile(), formerStartUp);
    files.DeleteTree(L"C:\\VMR");
    Launch();
    EXPECT_THAT(starter.started, IsEmpty());
}

Menu MenuWithReadme(bool enabled) {
    return {{MenuItem::mnrun, L"オンブレルの起動"},
            {MenuItem::mnview, L"READMEの表示", enabled},
            {},
            {MenuItem::mncancel, L"キャンセル"}};
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
    EXPECT_EQ(CharacterMenu(scene.model, scene.platform), MenuWithReadme(false));
}

TEST_F(LaunchTest, LeftoverBackupEndsItBeforeTheStart) {
    ShowSelected(L"abc");
    files.AddFile(Backup(), "earlier");
    const auto before = files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { LaunchCharacter(model, platform); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_THAT(starter.started, IsEmpty());
}

TEST_F(LaunchTest, FailedStartLeavesTheFormerFileAside) {
    ShowSelected(L"abc");
    starter.failure = ErrorNumber::FileNotFound;
    EXPECT_EQ(ErrorOf([&] { LaunchCharacter(model, platform); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(StartUpFile(), "H001currentobl=abc.obl\r\n");
    EXPECT_EQ(files.Contents(Backup()), formerStartUp);
}

TEST_F(ReadmeTest, OpensEveryCandidateThatIsThereInOrder) {
    AddReadmes({L".html", L".htm", L".txt", L".doc"});
    ShowSelected(L"abc");
    ExpectReadmes({L"abc.txt", L"abc.htm", L"abc.html"});
    shell.opened.clear();
    AddReadmes({L"-X.txt"});
    ExpectReadmes({L"abc.txt", L"abc-X.txt", L"abc.htm", L"abc.html"});
}

// The name is the one that has been formed, however the disk spells it.
TEST_F(ReadmeTest, OpensTheNameAsItIsFormed) {
    files.AddFile(L"C:\\VMR\\abc\\ABC-x.TXT");
    ShowSelected(L"abc");
    ExpectReadmes({L"abc-X.txt"});
}

TEST_F(ReadmeTest, SaysNothingWhenThereIsNone) {
    files.AddFolder(L"C:\\VMR\\abc\\abc.txt");
    files.AddFile(L"C:\\VMR\\abc\\readme.txt");
    ShowSelected(L"abc");
    ExpectReadmes({});
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(ShowReadme, PathsAreFormedOnceWithoutDoubledBackslash) {
    const std::tuple<const wchar_t*, const wchar_t*, const wchar_t*> readmes[] = {
        {L"C:\\", L"abc", L"C:\\abc\\abc-X.txt"},
        {L"C:\\VMR\\", L"abc", L"C:\\VMR\\abc\\abc.htm"},
        {L"C:\\VMR", L"a b", L"C:\\VMR\\a b\\a b.html"},
        {L"C:\\VMR", L"x.obl", L"C:\\VMR\\x.obl\\x.obl.txt"},
        {L"C:\\表", L"ソ能", L"C:\\表\\ソ能\\ソ能-X.txt"}};
    for (const auto& [host, name, document] : readmes) {
        MaintenanceScene scene(host);
        scene.files.AddFile(document);
        scene.ShowSelected(name);
        ShowReadme(scene.model, scene.platform);
        EXPECT_THAT(scene.shell.opened, ElementsAre(Opened{document, scene.base + name + L"\\"}));
    }
}

TEST_F(CharacterMenuTest, EachKindOfReadmeEnablesItsItemAlone) {
    AddReadmes({L".doc"});
    ShowSelected(L"abc");
    model.installed.folder = L"C:\\Listed"; // the item opens what lies in the chosen one
    for (const wchar_t* ending : {L".doc", L".txt", L"-X.txt", L".htm", L".html"}) {
        AddReadmes({ending});
        EXPECT_EQ(CharacterMenu(model, platform), MenuWithReadme(ending != std::wstring(L".doc")))
            << ending;
        files.DeleteTree(L"C:\\VMR\\abc\\abc" + std::wstring(ending));
    }
    EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(CharacterMenuTest, OpensOnlyOverExactlyOneSelected) {
    AddCharacter(L"a");
    AddCharacter(L"b");
    Show();
    EXPECT_TRUE(CharacterMenu(model, platform).empty());
    SelectCharacters({L"b"});
    EXPECT_FALSE(CharacterMenu(model, platform).empty());
    SelectCharacters({L"a", L"b"});
    EXPECT_TRUE(CharacterMenu(model, platform).empty());
}

TEST_F(CharacterMenuTest, EachItemDoesWhatItSays) {
    files.AddFile(L"C:\\VMR\\abc\\abc.txt");
    ShowSelected(L"abc");
    const auto done = [&](MenuItem item) {
        ChooseFromCharacterMenu(item, model, platform);
        return std::vector{starter.started.size(), shell.opened.size()};
    };
    EXPECT_THAT(done(MenuItem::mnrun), ElementsAre(1, 0));
    EXPECT_THAT(done(MenuItem::mnview), ElementsAre(1, 1));
    for (const MenuItem other : {MenuItem::mncancel, MenuItem::Separator, MenuItem::mnmv})
        EXPECT_THAT(done(other), ElementsAre(1, 1));
}

} // namespace
} // namespace tamblin
