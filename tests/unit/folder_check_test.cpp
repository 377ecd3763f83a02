// The folder structure check and what its result window does.
#include "maintenance/folder_check.h"

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

constexpr wchar_t Nothing[] = L"（該当なし）";
constexpr wchar_t DeleteQuestion[] = L"使用可能状態にないオンブレルの定義ファイルを削除します。";
constexpr wchar_t RecycleQuestion[] =
    L"VMRフォルダ内にある、オンブレルとは直接関係のないフォルダをごみ箱へ移動します。";

struct CheckScene : MaintenanceScene {
    using MaintenanceScene::MaintenanceScene;

    void AddFolders(std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* name : names)
            files.AddFile(base + name + L"\\inside", "inside");
    }
    void AddDefinitionFiles(std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* name : names)
            files.AddFile(base + name, "definition");
    }
    void Expect(const std::vector<std::wstring>& foldersListed,
                const std::vector<std::wstring>& filesListed) {
        EXPECT_THAT(check.folders.Entries(), ElementsAreArray(foldersListed));
        EXPECT_THAT(check.definitionFiles.Entries(), ElementsAreArray(filesListed));
    }
    // A list without anything says so and is disabled, as is what goes with it.
    void ExpectEnabled(bool forFolders, bool forFiles) {
        EXPECT_EQ(check.foldersEnabled, forFolders);
        EXPECT_EQ(check.definitionFilesEnabled, forFiles);
        EXPECT_EQ(check.deleteEnabled, forFiles);
        EXPECT_EQ(check.generalNoteVisible, !forFolders && !forFiles);
    }
    void RunAndActivate() {
        Show();
        check.RunCheck(model);
        check.Activate();
        files.ForgetOperations();
    }
    void SelectFolders(const std::vector<std::wstring>& names) { Select(check.folders, names); }

    FolderCheck check{platform};
};

struct FolderCheckTest : testing::Test, CheckScene {};
using FolderCheckDelete = FolderCheckTest;
using FolderCheckRecycle = FolderCheckTest;

TEST_F(FolderCheckTest, FindsTheHalvesWithoutAPartnerInListingOrder) {
    AddFolders({L"dat", L"b", L"pair", L"A"});
    AddDefinitionFiles({L"z.obl", L"pair.obl", L"Y.OBL"});
    RunAndActivate();
    Expect({L"A", L"b", L"dat"}, {L"Y.OBL", L"z.obl"});
    ExpectEnabled(true, true);
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST(FolderCheck, PartnersAreComparedByTheFoldersNameWithExtension) {
    const std::tuple<const wchar_t*, const wchar_t*, bool> pairs[] = {
        {L"Abc", L"ABC.OBL", true},       {L"ａｂｃ", L"ＡＢＣ.obl", true},
        {L"表ソ能", L"表ソ能.obl", true}, {L"a b", L"a b.obl", true},
        {L"x.obl", L"x.obl.obl", true},   {L"x.obl.d", L"x.obl", false},
        {L"ab", L"abc.obl", false},       {L"a", L".obl", false}};
    for (const auto& [folder, file, partners] : pairs) {
        SCOPED_TRACE(folder);
        CheckScene scene;
        scene.AddFolders({folder});
        scene.AddDefinitionFiles({file});
        scene.RunAndActivate();
        scene.Expect({partners ? Nothing : folder}, {partners ? Nothing : file});
    }
}

TEST_F(FolderCheckTest, FolderOfTheSameNameAsADefinitionFileIsNoPartner) {
    struct BothOfOneName : MemoryFileSystem {
        std::vector<FolderEntry> List(const std::wstring&) override {
            return {{L"x.obl", {.folder = true}}, {L"x.obl", {.archive = true}}};
        }
    } both;
    Show();
    Platform overBoth = PlatformOver(both);
    FolderCheck checkOfBoth(overBoth);
    checkOfBoth.RunCheck(model);
    EXPECT_THAT(checkOfBoth.folders.Entries(), ElementsAre(L"x.obl"));
    EXPECT_THAT(checkOfBoth.definitionFiles.Entries(), ElementsAre(L"x.obl"));
}

TEST_F(FolderCheckTest, HostWithoutCharactersReportsItsFoldersAndNoOtherFiles) {
    AddFolders({L"dat", L"skin"});
    AddDefinitionFiles({L"a.oblx", L"b.obl.bak", L"obl"});
    RunAndActivate();
    Expect({L"dat", L"skin"}, {Nothing});
    ExpectEnabled(true, false);
}

TEST_F(FolderCheckTest, OrphanFilesAloneLeaveTheFolderListDisabled) {
    AddDefinitionFiles({L"a.obl"});
    RunAndActivate();
    Expect({Nothing}, {L"a.obl"});
    ExpectEnabled(false, true);
}

TEST_F(FolderCheckTest, WithNothingOrphanedBothListsSaySoOnce) {
    AddCharacter(L"abc");
    RunAndActivate();
    check.Activate();
    Expect({Nothing}, {Nothing});
    ExpectEnabled(false, false);
}

TEST_F(FolderCheckTest, SeesTheHostFolderAsItIsNowAndForgetsTheFormerResult) {
    AddCharacter(L"abc");
    AddDefinitionFiles({L"b.obl"});
    files.AddFolder(L"C:\\VMR\\def");
    Show();
    check.RunCheck(model);
    files.DeleteTree(L"C:\\VMR\\abc.obl");
    AddDefinitionFiles({L"late.obl"});
    check.RunCheck(model);
    Expect({L"abc", L"def"}, {L"b.obl", L"late.obl"});
    files.DeleteTree(L"C:\\VMR");
    FolderCheck ofNothing(platform);
    EXPECT_EQ(ErrorOf([&] { ofNothing.RunCheck(model); }), ErrorNumber::PathNotFound);
    EXPECT_TRUE(ofNothing.folders.Empty());
}

TEST_F(FolderCheckTest, TenThousandCharactersTakeOneListing) {
    for (int number = 10000; number < 20000; ++number) {
        files.AddFolder(L"C:\\VMR\\d" + std::to_wstring(number));
        files.AddFile(L"C:\\VMR\\f" + std::to_wstring(number) + L".obl");
        AddCharacter(L"c" + std::to_wstring(number));
    }
    Show();
    check.RunCheck(model);
    EXPECT_EQ(files.OperationCount(), 1U);
    EXPECT_EQ(check.folders.Size(), 10000U);
    EXPECT_EQ(check.definitionFiles.Size(), 10000U);
}

TEST_F(FolderCheckDelete, DeletesEveryListedFileThoughNoneIsSelected) {
    AddCharacter(L"pair");
    AddDefinitionFiles({L"a.obl", L"表.obl"});
    AddFolders({L"dat"});
    RunAndActivate();
    auto expected = files.Snapshot();
    expected.erase(L"C:\\VMR\\a.obl");
    expected.erase(L"C:\\VMR\\表.obl");
    check.DeleteDefinitionFiles();
    EXPECT_EQ(files.Snapshot(), expected);
    EXPECT_THAT(shell.recycled, IsEmpty());
    EXPECT_THAT(messages.shown, ElementsAre(Box{Kind::AskOkCancel, DeleteQuestion}));
}

TEST_F(FolderCheckDelete, EmptiesAndDisablesTheListUntilTheWindowIsActiveAgain) {
    AddDefinitionFiles({L"a.obl"});
    AddFolders({L"dat"});
    RunAndActivate();
    messages.answer = false;
    check.DeleteDefinitionFiles(); // changes nothing
    EXPECT_TRUE(files.Exists(L"C:\\VMR\\a.obl"));
    Expect({L"dat"}, {L"a.obl"});
    ExpectEnabled(true, true);
    messages.answer = true;
    check.DeleteDefinitionFiles();
    EXPECT_TRUE(check.definitionFiles.Empty());
    ExpectEnabled(true, false);
    check.Activate();
    Expect({L"dat"}, {Nothing});
    ExpectEnabled(true, false);
}

TEST(FolderCheck, DriveRootIsReached) {
    CheckScene scene(L"C:\\");
    scene.AddDefinitionFiles({L"a.obl"});
    scene.AddFolders({L"表 ソ"});
    scene.RunAndActivate();
    scene.check.DeleteDefinitionFiles();
    EXPECT_FALSE(scene.files.Exists(L"C:\\a.obl"));
    scene.SelectFolders({L"表 ソ"});
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_THAT(scene.shell.recycled, ElementsAre(L"C:\\表 ソ"));
}

TEST(FolderCheckDeletion, EndsAtAFileThatStaysAndLeavesTheListAsItWas) {
    using enum ErrorNumber;
    for (const ErrorNumber number : {PermissionDenied, PathFileAccess, FileNotFound}) {
        CheckScene scene;
        scene.AddDefinitionFiles({L"a.obl", L"b.obl", L"c.obl"});
        scene.RunAndActivate();
        if (number == PermissionDenied)
            scene.files.Lock(L"C:\\VMR\\b.obl");
        else if (number == PathFileAccess)
            scene.files.AddFile(L"C:\\VMR\\b.obl", "1", {.readOnly = true});
        else
            scene.files.DeleteTree(L"C:\\VMR\\b.obl");
        EXPECT_EQ(ErrorOf([&] { scene.check.DeleteDefinitionFiles(); }), number);
        EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\a.obl"));
        EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\c.obl"));
        scene.Expect({Nothing}, {L"a.obl", L"b.obl", L"c.obl"});
        scene.ExpectEnabled(false, true);
    }
}

TEST_F(FolderCheckTest, MenuOpensOnlyOverASelection) {
    AddFolders({L"a", L"b"});
    RunAndActivate();
    EXPECT_THAT(check.FolderMenu(), IsEmpty());
    const Menu menu{{MenuItem::mnmv, L"ごみ箱へ移動"}, {}, {MenuItem::mncan, L"キャンセル"}};
    SelectFolders({L"b"});
    EXPECT_EQ(check.FolderMenu(), menu);
    SelectFolders({L"a", L"b"});
    EXPECT_EQ(check.FolderMenu(), menu);
}

TEST_F(FolderCheckRecycle, MovesExactlyTheSelectedFromTheLastToTheFirst) {
    AddFolders({L"a", L"b", L"c", L"d", L"e"});
    RunAndActivate();
    auto expected = files.Snapshot();
    for (const wchar_t* moved : {L"a", L"c", L"e"}) {
        expected.erase(base + moved + L"\\");
        expected.erase(base + moved + L"\\inside");
    }
    SelectFolders({L"a", L"c", L"e"});
    check.MoveFoldersToRecycleBin();
    EXPECT_THAT(check.folders.Entries(), ElementsAre(L"b", L"d"));
    EXPECT_EQ(check.folders.SelectedCount(), 0U);
    EXPECT_TRUE(check.foldersEnabled);
    EXPECT_THAT(shell.recycled, ElementsAre(L"C:\\VMR\\e", L"C:\\VMR\\c", L"C:\\VMR\\a"));
    EXPECT_THAT(messages.shown, ElementsAre(Box{Kind::AskOkCancel, RecycleQuestion}));
    EXPECT_EQ(files.Snapshot(), expected);
}

TEST_F(FolderCheckRecycle, LastFolderGoneDisablesTheListAndItsNotes) {
    AddFolders({L"a"});
    AddDefinitionFiles({L"b.obl"});
    RunAndActivate();
    SelectFolders({L"a"});
    check.MoveFoldersToRecycleBin();
    EXPECT_TRUE(check.folders.Empty());
    EXPECT_FALSE(check.foldersEnabled);
    EXPECT_TRUE(check.definitionFilesEnabled);
}

TEST_F(FolderCheckRecycle, CancelChangesNothing) {
    AddFolders({L"a"});
    RunAndActivate();
    SelectFolders({L"a"});
    messages.answer = false;
    check.MoveFoldersToRecycleBin();
    EXPECT_THAT(files.Log(), IsEmpty());
    EXPECT_THAT(check.folders.Entries(), ElementsAre(L"a"));
    EXPECT_FALSE(check.FolderMenu().empty());
}

TEST_F(FolderCheckRecycle, FolderThatCannotBeMovedLeavesTheListAllTheSame) {
    AddFolders({L"a", L"b"});
    RunAndActivate();
    SelectFolders({L"a"});
    files.Lock(L"C:\\VMR\\a\\inside");
    check.MoveFoldersToRecycleBin();
    EXPECT_TRUE(files.Exists(L"C:\\VMR\\a\\inside"));
    EXPECT_THAT(check.folders.Entries(), ElementsAre(L"b"));
}

TEST_F(FolderCheckRecycle, LinkGoesAndItsTargetStays) {
    files.AddFile(L"C:\\Elsewhere\\kept.txt");
    files.AddLink(L"C:\\VMR\\a", L"C:\\Elsewhere");
    RunAndActivate();
    SelectFolders({L"a"});
    check.MoveFoldersToRecycleBin();
    EXPECT_FALSE(files.Exists(L"C:\\VMR\\a"));
    EXPECT_TRUE(files.Exists(L"C:\\Elsewhere\\kept.txt"));
}

} // namespace
} // namespace tamblin
