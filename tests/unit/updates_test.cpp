// Replacing the host program and definition files with newer copies.
#include "maintenance/updates.h"

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

struct HostUpdateTest : testing::Test, MaintenanceScene {
    void ShowNewHost() {
        files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
        Show();
        model.enabled[Command::UpdateHost] = true;
    }
    void Update() { UpdateHostProgram(model, platform); }
};
struct DefinitionUpdateTest : testing::Test, MaintenanceScene {};

constexpr wchar_t HostQuestion[] = L"Vimoraをアップデートします。よろしいですか？";
constexpr wchar_t HostDone[] = L"Vimoraのアップデートが完了しました。";

TEST_F(HostUpdateTest, ReplacesItWithTheBrowsedCopyAfterAQuestionAndKeepsNoBackup) {
    ShowNewHost();
    auto expected = files.Snapshot();
    messages.onShow = [&](const Box& box) {
        const bool asked = box.kind == Kind::AskOkCancel;
        EXPECT_EQ(files.Contents(L"C:\\VMR\\ombrel.exe"), asked ? "host" : "new");
        EXPECT_TRUE(model.enabled[Command::UpdateHost]);
    };
    Update();
    expected[L"C:\\VMR\\ombrel.exe"] = "new";
    EXPECT_EQ(files.Snapshot(), expected);
    EXPECT_FALSE(model.enabled[Command::UpdateHost]);
    EXPECT_THAT(messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, HostQuestion}, Box{Kind::Inform, HostDone}));
}

TEST_F(HostUpdateTest, CancelChangesNothing) {
    ShowNewHost();
    messages.answer = false;
    Update();
    EXPECT_EQ(files.Contents(L"C:\\VMR\\ombrel.exe"), "host");
    EXPECT_TRUE(model.enabled[Command::UpdateHost]);
    EXPECT_THAT(messages.Texts(), ElementsAre(HostQuestion));
}

TEST_F(HostUpdateTest, WithoutACopyInTheBrowsedFolderNothingIsShown) {
    files.AddFolder(L"C:\\Browsed\\ombrel.exe");
    Show();
    const auto before = files.Snapshot();
    Update();
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(HostUpdateTest, NewCopyIsCreatedUnderTheNameThatItHasOnDisk) {
    files.AddFile(L"C:\\Browsed\\OmbreL.EXE", "new");
    files.DeleteTree(L"C:\\VMR\\ombrel.exe");
    Show();
    Update();
    EXPECT_EQ(files.Snapshot(L"C:\\VMR").count(L"C:\\VMR\\OmbreL.EXE"), 1U);
}

TEST(Updates, HostFoldersAreReachedThroughADoubledBackslashToo) {
    for (const wchar_t* host : {L"C:\\VMR", L"C:\\VMR\\", L"C:\\", L"C:\\表 ソ\\能"}) {
        MaintenanceScene scene(host);
        scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
        scene.files.AddFile(L"C:\\Browsed\\abc.obl", "new");
        scene.ShowSelected(L"abc");
        UpdateHostProgram(scene.model, scene.platform);
        EXPECT_EQ(scene.files.Contents(scene.base + L"ombrel.exe"), "new");
        scene.SelectFiles({L"abc.obl"});
        UpdateDefinitionFile(scene.model, scene.platform);
        EXPECT_EQ(scene.files.Contents(scene.base + L"abc.obl"), "new");
    }
}

TEST_F(HostUpdateTest, BrowsedDriveRootIsReached) {
    files.AddFile(L"C:\\ombrel.exe", "new");
    state.BrowseStartFolder = L"C:\\";
    Show();
    Update();
    EXPECT_EQ(files.Contents(L"C:\\VMR\\ombrel.exe"), "new");
}

// A definition file of the browsed folder, selected together with its character.
struct BrowsedUpdate : MaintenanceScene {
    explicit BrowsedUpdate(const std::wstring& file = L"abc.obl") {
        files.AddFile(L"C:\\Browsed\\" + file, "new");
        ShowSelected(L"abc");
        SelectFiles({file});
        model.enabled[Command::UpdateDefinition] = true;
    }
    void Update() { UpdateDefinitionFile(model, platform); }
};
struct BrowsedUpdateTest : testing::Test, BrowsedUpdate {};

TEST_F(BrowsedUpdateTest, ReplacesItWithTheSelectedFileAfterAQuestionAndEndsInTheProgramFolder) {
    messages.onShow = [&](const Box& box) {
        const bool asked = box.kind == Kind::AskOkCancel;
        EXPECT_EQ(files.Contents(L"C:\\VMR\\abc.obl"), asked ? "definition" : "new");
    };
    files.AddDrive(L"D:");
    files.SetCurrentFolder(L"D:\\");
    Update();
    EXPECT_FALSE(model.enabled[Command::UpdateDefinition]);
    EXPECT_THAT(messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, L"abcをアップデートします。よろしいですか？"},
                            Box{Kind::Inform, L"abcのアップデートが完了しました。"}));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST(UpdateDefinitionFile, MessagesNameTheStemAsSpelledOnDisk) {
    BrowsedUpdate scene(L"Abc.OBL");
    scene.Update();
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(L"Abcをアップデートします。よろしいですか？",
                                                    L"Abcのアップデートが完了しました。"));
}

TEST(UpdateDefinitionFile, FirstSelectedFileIsTaken) {
    BrowsedUpdate scene(L"b.obl");
    scene.files.AddFile(L"C:\\Browsed\\a.OBL", "a");
    scene.model.browser.RebuildBrowser();
    scene.SelectFiles({L"a.OBL", L"b.obl"});
    scene.Update();
    EXPECT_EQ(scene.files.Snapshot(L"C:\\VMR").at(L"C:\\VMR\\a.OBL"), "a");
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\b.obl"));
}

TEST_F(BrowsedUpdateTest, CancelChangesNothing) {
    messages.answer = false;
    const auto before = files.Snapshot();
    Update();
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_TRUE(model.enabled[Command::UpdateDefinition]);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(BrowsedUpdateTest, VanishedSourceEndsItSilently) {
    files.DeleteTree(L"C:\\Browsed\\abc.obl");
    Update();
    EXPECT_EQ(files.Contents(L"C:\\VMR\\abc.obl"), "definition");
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(DefinitionUpdateTest, DriveOfTheSourceThatIsGoneEndsItSilently) {
    files.AddDrive(L"D:");
    state.BrowseStartFolder = L"D:\\New\\";
    files.AddFile(L"D:\\New\\ombrel.exe");
    files.AddFile(L"D:\\New\\abc.obl");
    Show();
    SelectFiles({L"abc.obl"});
    files.RemoveDrive(L"D:");
    UpdateDefinitionFile(model, platform);
    UpdateHostProgram(model, platform);
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(UpdateDefinitionFile, WithoutSelectionNothingHappens) {
    for (const bool ready : {false, true}) {
        MaintenanceScene scene;
        scene.AddCharacter(L"abc");
        scene.Show();
        scene.model.definitionUpdateReady = ready;
        UpdateDefinitionFile(scene.model, scene.platform);
        EXPECT_EQ(scene.files.OperationCount(), 0U);
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

TEST_F(DefinitionUpdateTest, DeliveredUpdateComesFromTheCharactersOwnFolder) {
    files.AddFile(L"C:\\VMR\\abc\\dat\\obl\\abc.obl", "delivered");
    files.AddFile(L"C:\\Browsed\\abc.obl", "browsed");
    ShowSelected(L"abc");
    SelectFiles({L"abc.obl"});
    model.definitionUpdateReady = true;
    UpdateDefinitionFile(model, platform);
    EXPECT_EQ(files.Contents(L"C:\\VMR\\abc.obl"), "delivered");
    EXPECT_EQ(files.Contents(L"C:\\VMR\\abc\\dat\\obl\\abc.obl"), "delivered");
    EXPECT_THAT(messages.Texts(), ElementsAre(L"abcをアップデートします。よろしいですか？",
                                              L"abcのアップデートが完了しました。"));
}

TEST(UpdateDefinitionFile, DeliveredNamesAreReached) {
    for (const std::wstring name : {L"abc", L"a b", L"x.obl", L"表ソ能"}) {
        MaintenanceScene scene(L"C:\\");
        scene.files.AddFile(L"C:\\" + name + L"\\dat\\obl\\" + name + L".obl", "new");
        scene.ShowSelected(name);
        scene.model.definitionUpdateReady = true;
        UpdateDefinitionFile(scene.model, scene.platform);
        EXPECT_EQ(scene.files.Contents(L"C:\\" + name + L".obl"), "new");
        EXPECT_EQ(scene.messages.Texts().back(), name + L"のアップデートが完了しました。");
    }
}

TEST(Updates, LostSourcesEndEitherSilently) {
    for (const bool gone : {false, true}) {
        BrowsedUpdate scene;
        if (gone)
            scene.files.RemoveDrive(L"C:");
        else
            scene.files.SetReady(L"C:", false);
        UpdateHostProgram(scene.model, scene.platform);
        scene.Update();
        scene.model.definitionUpdateReady = true;
        scene.Update();
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

// Expects the failure, the target's former contents, and no word of completion.
void ExpectRefused(MaintenanceScene& scene, void (*update)(MaintenanceScene& scene),
                   const std::wstring& target, Command button, const std::wstring& reason) {
    SCOPED_TRACE(reason);
    auto number = ErrorNumber::PermissionDenied;
    if (reason == L"in use")
        scene.files.Lock(target);
    if (reason == L"running")
        scene.files.Lock(target, MemoryFileSystem::LockKind::DenyWriting);
    if (reason == L"read-only") {
        scene.files.AddFile(target, "kept", {.readOnly = true});
        number = ErrorNumber::PathFileAccess;
    }
    if (reason == L"host folder vanished") {
        scene.files.DeleteTree(L"C:\\VMR");
        number = ErrorNumber::PathNotFound;
    }
    scene.model.enabled[button] = true;
    const auto before = scene.files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { update(scene); }), number);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_EQ(scene.messages.shown.size(), 1U);
    EXPECT_TRUE(scene.model.enabled[button]);
}

TEST(Updates, TargetsThatRefuseEndEither) {
    for (const wchar_t* reason : {L"in use", L"running", L"read-only", L"host folder vanished"}) {
        BrowsedUpdate host(L"ombrel.exe");
        ExpectRefused(
            host, [](auto& scene) { UpdateHostProgram(scene.model, scene.platform); },
            L"C:\\VMR\\ombrel.exe", Command::UpdateHost, reason);
        BrowsedUpdate definition;
        ExpectRefused(
            definition, [](auto& scene) { UpdateDefinitionFile(scene.model, scene.platform); },
            L"C:\\VMR\\abc.obl", Command::UpdateDefinition, reason);
    }
}

} // namespace
} // namespace tamblin
