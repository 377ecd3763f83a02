// The folder structure check and what its result window does.
#include "maintenance/folder_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;

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
    void RunAndActivate() {
        Show();
        check.RunCheck(model);
        check.Activate();
        files.ForgetOperations();
    }
    void SelectFolders(const std::vector<std::wstring>& names) { Select(check.folders, names); }

    FolderCheck check{platform};
};

TEST(FolderCheck, FindsTheHalvesWithoutAPartnerInListingOrder) {
    CheckScene scene;
    scene.AddFolders({L"dat", L"b", L"pair", L"A"});
    scene.AddDefinitionFiles({L"z.obl", L"pair.obl", L"Y.OBL"});
    scene.RunAndActivate();
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"A", L"b", L"dat"));
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(L"Y.OBL", L"z.obl"));
    EXPECT_TRUE(scene.check.definitionFilesEnabled);
    EXPECT_TRUE(scene.check.deleteEnabled);
    EXPECT_TRUE(scene.check.foldersEnabled);
    EXPECT_FALSE(scene.check.generalNoteVisible);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

struct PairRow {
    const char* name;
    const wchar_t* folder;
    const wchar_t* file;
    bool partners;
};

class Partners : public testing::TestWithParam<PairRow> {};

TEST_P(Partners, AreComparedByTheFoldersNameWithExtension) {
    CheckScene scene;
    scene.AddFolders({GetParam().folder});
    scene.AddDefinitionFiles({GetParam().file});
    scene.RunAndActivate();
    const bool partners = GetParam().partners;
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(partners ? Nothing : GetParam().folder));
    EXPECT_THAT(scene.check.definitionFiles.Entries(),
                ElementsAre(partners ? Nothing : GetParam().file));
}

INSTANTIATE_TEST_SUITE_P(
    FolderCheck, Partners,
    testing::Values(PairRow{"LetterCase", L"Abc", L"ABC.OBL", true},
                    PairRow{"FullWidthLetterCase", L"ａｂｃ", L"ＡＢＣ.obl", true},
                    PairRow{"Kanji", L"表ソ能", L"表ソ能.obl", true},
                    PairRow{"Blanks", L"a b", L"a b.obl", true},
                    PairRow{"ExtensionTwice", L"x.obl", L"x.obl.obl", true},
                    PairRow{"ExtensionOnTheFolder", L"x.obl.d", L"x.obl", false},
                    PairRow{"Prefix", L"ab", L"abc.obl", false},
                    PairRow{"NoName", L"a", L".obl", false}),
    CaseName);

// On a drive they cannot stand side by side; the lists of a network folder may say that they do.
TEST(FolderCheck, FolderOfTheSameNameAsADefinitionFileIsNoPartner) {
    struct BothOfOneName : MemoryFileSystem {
        std::vector<FolderEntry> List(const std::wstring&) override {
            return {{L"x.obl", {.folder = true}}, {L"x.obl", {.archive = true}}};
        }
    } files;
    CheckScene scene;
    scene.Show();
    Platform& p = scene.platform;
    Platform platform{files,   p.shell, p.starter,  p.messages, p.events,
                      p.unlha, p.ansi,  p.progress, {}};
    FolderCheck check(platform);
    check.RunCheck(scene.model);
    EXPECT_THAT(check.folders.Entries(), ElementsAre(L"x.obl"));
    EXPECT_THAT(check.definitionFiles.Entries(), ElementsAre(L"x.obl"));
}

TEST(FolderCheck, OtherFilesOfTheHostAreNotReported) {
    CheckScene scene;
    scene.AddDefinitionFiles({L"a.oblx", L"b.obl.bak", L"obl"});
    scene.RunAndActivate();
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(Nothing));
}

TEST(FolderCheck, HostWithoutCharactersReportsItsOwnFolders) {
    CheckScene scene;
    scene.AddFolders({L"dat", L"skin"});
    scene.RunAndActivate();
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"dat", L"skin"));
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(Nothing));
    EXPECT_FALSE(scene.check.definitionFilesEnabled);
    EXPECT_FALSE(scene.check.deleteEnabled);
    EXPECT_TRUE(scene.check.foldersEnabled);
    EXPECT_FALSE(scene.check.generalNoteVisible);
}

TEST(FolderCheck, OrphanFilesAloneLeaveTheFolderListDisabled) {
    CheckScene scene;
    scene.AddDefinitionFiles({L"a.obl"});
    scene.RunAndActivate();
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(Nothing));
    EXPECT_FALSE(scene.check.foldersEnabled);
    EXPECT_TRUE(scene.check.definitionFilesEnabled);
    EXPECT_TRUE(scene.check.deleteEnabled);
    EXPECT_FALSE(scene.check.generalNoteVisible);
}

TEST(FolderCheck, WithNothingOrphanedBothListsSaySo) {
    CheckScene scene;
    scene.AddCharacter(L"abc");
    scene.RunAndActivate();
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(Nothing));
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(Nothing));
    EXPECT_FALSE(scene.check.definitionFilesEnabled);
    EXPECT_FALSE(scene.check.deleteEnabled);
    EXPECT_FALSE(scene.check.foldersEnabled);
    EXPECT_TRUE(scene.check.generalNoteVisible);
}

TEST(FolderCheck, ActivatedAgainItKeepsOnePlaceholder) {
    CheckScene scene;
    scene.AddCharacter(L"abc");
    scene.RunAndActivate();
    scene.check.Activate();
    EXPECT_EQ(scene.check.folders.Size(), 1U);
    EXPECT_EQ(scene.check.definitionFiles.Size(), 1U);
}

TEST(FolderCheck, SeesTheHostFolderAsItIsNow) {
    CheckScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    scene.files.DeleteTree(L"C:\\VMR\\abc.obl");
    scene.AddDefinitionFiles({L"late.obl"});
    scene.check.RunCheck(scene.model);
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"abc"));
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(L"late.obl"));
}

TEST(FolderCheck, RunAgainForgetsTheFormerResult) {
    CheckScene scene;
    scene.AddFolders({L"a"});
    scene.AddDefinitionFiles({L"b.obl"});
    scene.Show();
    scene.check.RunCheck(scene.model);
    scene.check.RunCheck(scene.model);
    EXPECT_EQ(scene.check.folders.Size(), 1U);
    EXPECT_EQ(scene.check.definitionFiles.Size(), 1U);
}

TEST(FolderCheck, VanishedHostFolderEndsIt) {
    CheckScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    scene.files.DeleteTree(L"C:\\VMR");
    EXPECT_EQ(ErrorOf([&] { scene.check.RunCheck(scene.model); }), ErrorNumber::PathNotFound);
    EXPECT_TRUE(scene.check.folders.Empty());
}

TEST(FolderCheck, TenThousandCharactersTakeOneListing) {
    CheckScene scene;
    for (int number = 10000; number < 20000; ++number) {
        scene.files.AddFolder(L"C:\\VMR\\d" + std::to_wstring(number));
        scene.files.AddFile(L"C:\\VMR\\f" + std::to_wstring(number) + L".obl");
        scene.AddCharacter(L"c" + std::to_wstring(number));
    }
    scene.Show();
    scene.check.RunCheck(scene.model);
    EXPECT_EQ(scene.files.OperationCount(), 1U);
    EXPECT_EQ(scene.check.folders.Size(), 10000U);
    EXPECT_EQ(scene.check.definitionFiles.Size(), 10000U);
}

TEST(FolderCheckDelete, DeletesEveryListedFileThoughNoneIsSelected) {
    CheckScene scene;
    scene.AddCharacter(L"pair");
    scene.AddDefinitionFiles({L"a.obl", L"表.obl"});
    scene.AddFolders({L"dat"});
    scene.RunAndActivate();
    auto expected = scene.files.Snapshot();
    expected.erase(L"C:\\VMR\\a.obl");
    expected.erase(L"C:\\VMR\\表.obl");
    scene.check.DeleteDefinitionFiles();
    EXPECT_EQ(scene.files.Snapshot(), expected);
    EXPECT_THAT(scene.shell.Recycled(), IsEmpty());
    EXPECT_THAT(scene.messages.shown, ElementsAre(Box{Kind::AskOkCancel, DeleteQuestion}));
}

TEST(FolderCheckDelete, EmptiesAndDisablesTheListUntilTheWindowIsActiveAgain) {
    CheckScene scene;
    scene.AddDefinitionFiles({L"a.obl"});
    scene.AddFolders({L"dat"});
    scene.RunAndActivate();
    scene.check.DeleteDefinitionFiles();
    EXPECT_TRUE(scene.check.definitionFiles.Empty());
    EXPECT_FALSE(scene.check.definitionFilesEnabled);
    EXPECT_FALSE(scene.check.deleteEnabled);
    EXPECT_TRUE(scene.check.foldersEnabled);
    scene.check.Activate();
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(Nothing));
    EXPECT_FALSE(scene.check.definitionFilesEnabled);
}

TEST(FolderCheckDelete, CancelChangesNothing) {
    CheckScene scene;
    scene.AddDefinitionFiles({L"a.obl"});
    scene.RunAndActivate();
    scene.messages.answer = false;
    scene.check.DeleteDefinitionFiles();
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\a.obl"));
    EXPECT_EQ(scene.check.definitionFiles.Size(), 1U);
    EXPECT_TRUE(scene.check.deleteEnabled);
}

TEST(FolderCheckDelete, DriveRootIsReached) {
    CheckScene scene(L"C:\\");
    scene.AddDefinitionFiles({L"a.obl"});
    scene.RunAndActivate();
    scene.check.DeleteDefinitionFiles();
    EXPECT_FALSE(scene.files.Exists(L"C:\\a.obl"));
}

struct KeptRow {
    const char* name;
    void (*prepare)(MemoryFileSystem& files);
    ErrorNumber number;
};

class KeptDefinitionFiles : public testing::TestWithParam<KeptRow> {};

TEST_P(KeptDefinitionFiles, EndTheDeletionWithTheListLeftAsItWas) {
    CheckScene scene;
    scene.AddDefinitionFiles({L"a.obl", L"b.obl", L"c.obl"});
    scene.RunAndActivate();
    GetParam().prepare(scene.files);
    EXPECT_EQ(ErrorOf([&] { scene.check.DeleteDefinitionFiles(); }), GetParam().number);
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\a.obl"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\c.obl"));
    EXPECT_THAT(scene.check.definitionFiles.Entries(), ElementsAre(L"a.obl", L"b.obl", L"c.obl"));
    EXPECT_TRUE(scene.check.definitionFilesEnabled);
    EXPECT_TRUE(scene.check.deleteEnabled);
}

INSTANTIATE_TEST_SUITE_P(
    FolderCheckDelete, KeptDefinitionFiles,
    testing::Values(KeptRow{"InUse", [](MemoryFileSystem& files) { files.Lock(L"C:\\VMR\\b.obl"); },
                            ErrorNumber::PermissionDenied},
                    KeptRow{"ReadOnly",
                            [](MemoryFileSystem& files) {
                                files.AddFile(L"C:\\VMR\\b.obl", "1", {.readOnly = true});
                            },
                            ErrorNumber::PathFileAccess},
                    KeptRow{"AlreadyGone",
                            [](MemoryFileSystem& files) { files.DeleteTree(L"C:\\VMR\\b.obl"); },
                            ErrorNumber::FileNotFound}),
    CaseName);

TEST(FolderCheckMenu, OpensOnlyOverASelection) {
    CheckScene scene;
    scene.AddFolders({L"a", L"b"});
    scene.RunAndActivate();
    EXPECT_FALSE(scene.check.HasFolderMenu());
    scene.SelectFolders({L"b"});
    EXPECT_TRUE(scene.check.HasFolderMenu());
    scene.SelectFolders({L"a", L"b"});
    EXPECT_TRUE(scene.check.HasFolderMenu());
}

TEST(FolderCheckRecycle, MovesExactlyTheSelectedFromTheLastToTheFirst) {
    CheckScene scene;
    scene.AddFolders({L"a", L"b", L"c", L"d", L"e"});
    scene.RunAndActivate();
    const auto before = scene.files.Snapshot();
    scene.SelectFolders({L"a", L"c", L"e"});
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"b", L"d"));
    EXPECT_EQ(scene.check.folders.SelectedCount(), 0U);
    EXPECT_TRUE(scene.check.foldersEnabled);
    EXPECT_THAT(scene.shell.Recycled(), ElementsAre(L"C:\\VMR\\e", L"C:\\VMR\\c", L"C:\\VMR\\a"));
    EXPECT_THAT(scene.messages.shown, ElementsAre(Box{Kind::AskOkCancel, RecycleQuestion}));
    for (const wchar_t* folder : {L"C:\\VMR\\a", L"C:\\VMR\\c", L"C:\\VMR\\e"}) {
        EXPECT_FALSE(scene.files.Exists(folder));
        EXPECT_TRUE(scene.shell.Restore(folder));
    }
    EXPECT_EQ(scene.files.Snapshot(), before);
}

TEST(FolderCheckRecycle, LastFolderGoneDisablesTheListAndItsNotes) {
    CheckScene scene;
    scene.AddFolders({L"a"});
    scene.AddDefinitionFiles({L"b.obl"});
    scene.RunAndActivate();
    scene.SelectFolders({L"a"});
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_TRUE(scene.check.folders.Empty());
    EXPECT_FALSE(scene.check.foldersEnabled);
    EXPECT_TRUE(scene.check.definitionFilesEnabled);
}

TEST(FolderCheckRecycle, CancelChangesNothing) {
    CheckScene scene;
    scene.AddFolders({L"a"});
    scene.RunAndActivate();
    scene.SelectFolders({L"a"});
    scene.messages.answer = false;
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_THAT(scene.files.Log(), IsEmpty());
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"a"));
    EXPECT_TRUE(scene.check.HasFolderMenu());
}

TEST(FolderCheckRecycle, FolderThatCannotBeMovedLeavesTheListAllTheSame) {
    CheckScene scene;
    scene.AddFolders({L"a", L"b"});
    scene.RunAndActivate();
    scene.SelectFolders({L"a"});
    scene.files.Lock(L"C:\\VMR\\a\\inside");
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\a\\inside"));
    EXPECT_THAT(scene.check.folders.Entries(), ElementsAre(L"b"));
}

TEST(FolderCheckRecycle, LinkGoesAndItsTargetStays) {
    CheckScene scene;
    scene.files.AddFile(L"C:\\Elsewhere\\kept.txt");
    scene.files.AddLink(L"C:\\VMR\\a", L"C:\\Elsewhere");
    scene.RunAndActivate();
    scene.SelectFolders({L"a"});
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\a"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\Elsewhere\\kept.txt"));
}

TEST(FolderCheckRecycle, DriveRootIsReached) {
    CheckScene scene(L"C:\\");
    scene.AddFolders({L"表 ソ"});
    scene.RunAndActivate();
    scene.SelectFolders({L"表 ソ"});
    scene.check.MoveFoldersToRecycleBin();
    EXPECT_THAT(scene.shell.Recycled(), ElementsAre(L"C:\\表 ソ"));
}

} // namespace
} // namespace tamblin
