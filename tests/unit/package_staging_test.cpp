// The staging folder: where it lies, how it is made and cleared, how archives get into it and what
// is said about them.
#include "install/package_staging.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

TEST(StagingFolder, LiesAtTheRootOfTheHostFoldersDrive) {
    EXPECT_EQ(StagingFolder(L"D:\\Prog\\Host"), L"D:\\TAMTMP");
    EXPECT_EQ(StagingFolder(L"C:\\"), L"C:\\TAMTMP");
    for (const wchar_t* folder : {L"", L"C:"})
        EXPECT_EQ(ErrorOf([&] { StagingFolder(folder); }), ErrorNumber::PathNotFound);
}

class PackageStagingTest : public testing::Test {
  protected:
    PackageStagingTest() { files.AddDrive(L"D:"); }
    void Prepare() { PrepareStagingFolder(L"D:\\Host\\", fake.platform); }
    void Clear() { ClearStagingFolder(L"D:\\Host\\", fake.platform); }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
};

TEST_F(PackageStagingTest, PreparedFolderIsEmptyAndCurrent) {
    Prepare();
    EXPECT_EQ(files.CurrentFolder(), L"D:\\TAMTMP");
    EXPECT_THAT(files.Snapshot(L"D:\\TAMTMP"), IsEmpty());
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

TEST_F(PackageStagingTest, LeftOversOfAnEarlierRunGo) {
    files.AddFile(L"D:\\tamtmp\\a\\b\\c");
    files.AddFile(L"D:\\tamtmp\\readonly", "", {.readOnly = true});
    Prepare();
    EXPECT_EQ(files.CurrentFolder(), L"D:\\TAMTMP");
    EXPECT_THAT(files.Snapshot(L"D:\\TAMTMP"), IsEmpty());
}

TEST_F(PackageStagingTest, HiddenOrSystemFolderOfThatNameIsEmptied) {
    for (const FileAttributes attributes :
         {FileAttributes{.hidden = true}, FileAttributes{.system = true}}) {
        files.AddFile(L"D:\\TAMTMP\\old\\x");
        files.AddFolder(L"D:\\TAMTMP", attributes);
        Prepare();
        EXPECT_EQ(files.CurrentFolder(), L"D:\\TAMTMP");
        EXPECT_THAT(files.Snapshot(L"D:\\TAMTMP"), IsEmpty());
    }
}

TEST_F(PackageStagingTest, FileOfThatNameFailsAndStays) {
    files.AddFile(L"D:\\TAMTMP", "mine");
    EXPECT_TRUE(ErrorOf([&] { Prepare(); }));
    EXPECT_EQ(files.Contents(L"D:\\TAMTMP"), "mine");
}

TEST_F(PackageStagingTest, LinkOfThatNameGoesAndItsTargetStays) {
    files.AddFile(L"C:\\Mine\\precious");
    files.AddLink(L"D:\\TAMTMP", L"C:\\Mine");
    Prepare();
    EXPECT_TRUE(files.Exists(L"C:\\Mine\\precious"));
    EXPECT_FALSE(files.AttributesOf(L"D:\\TAMTMP").link);
}

TEST_F(PackageStagingTest, DriveThatIsGoneFails) {
    files.RemoveDrive(L"D:");
    EXPECT_EQ(ErrorOf([&] { Prepare(); }), ErrorNumber::DeviceUnavailable);
}

TEST_F(PackageStagingTest, FullDiskFails) {
    files.AddFile(L"D:\\x", "x");
    files.SetCapacity(L"D:", 1);
    EXPECT_EQ(ErrorOf([&] { Prepare(); }), ErrorNumber::DiskFull);
}

TEST_F(PackageStagingTest, ClearingDeletesTheTreeAndReturnsToTheProgramFolder) {
    Prepare();
    for (const wchar_t* path : {L"a\\b\\1", L"a\\2", L"c\\3", L"4"})
        files.AddFile(std::wstring(L"D:\\TAMTMP\\") + path);
    files.AddFile(L"D:\\Host\\stays");
    Clear();
    EXPECT_FALSE(files.Exists(L"D:\\TAMTMP"));
    EXPECT_TRUE(files.Exists(L"D:\\Host\\stays"));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(PackageStagingTest, ClearingFailsForHiddenFilesFilesInUseAndFoldersWithMoreAttributes) {
    const auto failsFor = [&](const wchar_t* path) {
        const auto error = ErrorOf([&] { Clear(); });
        EXPECT_TRUE(error) << path;
        EXPECT_TRUE(files.Exists(path));
        files.DeleteTree(L"D:\\TAMTMP");
        return error;
    };
    files.AddFile(L"D:\\TAMTMP\\a\\hidden", "", {.hidden = true});
    EXPECT_EQ(failsFor(L"D:\\TAMTMP\\a\\hidden"), ErrorNumber::PathFileAccess);
    files.SetCurrentFolder(L"C:\\");
    files.DeleteTree(L"D:\\TAMTMP");
    files.AddFile(L"D:\\TAMTMP\\b\\x");
    files.AddFolder(L"D:\\TAMTMP\\b", {.readOnly = true});
    EXPECT_EQ(failsFor(L"D:\\TAMTMP\\b\\x"), ErrorNumber::PathFileAccess);
    files.SetCurrentFolder(L"C:\\");
    files.DeleteTree(L"D:\\TAMTMP");
    files.AddFile(L"D:\\TAMTMP\\used");
    files.Lock(L"D:\\TAMTMP\\used");
    EXPECT_EQ(failsFor(L"D:\\TAMTMP\\used"), ErrorNumber::PermissionDenied);
    files.Unlock(L"D:\\TAMTMP\\used");
}

TEST_F(PackageStagingTest, ArchiveIsUnpackedByOneCommand) {
    fake.unlha.onUnpack = [](const std::wstring&) {
        return std::int16_t{-7};
    };
    int window = 0;
    EXPECT_EQ(ExtractPackage(L"C:\\My Packs\\", L"表 ソ.lzh", L"D:\\Host", &window, fake.platform),
              -7);
    EXPECT_THAT(fake.unlha.calls,
                ElementsAre(UnlhaFake::Call{&window, L"x \"C:\\My Packs\\表 ソ.lzh\"",
                                            L"\"D:\\TAMTMP\"", 0}));
}

// --- Judging ------------------------------------------------------------------------------------

struct JudgeCase {
    const char* name;
    std::vector<std::wstring> before;  // in the staging folder when the archive is unpacked
    std::vector<std::wstring> archive; // what it holds; folders end in "\"
    std::vector<std::wstring> toInstall;
    std::vector<std::wstring> cannotInstall;
    std::vector<std::wstring> alreadyInstalled;
};

class JudgeTest : public PackageStagingTest, public testing::WithParamInterface<JudgeCase> {
  protected:
    void Add(const std::vector<std::wstring>& paths) {
        for (const std::wstring& path : paths) {
            if (path.ends_with(L'\\'))
                files.AddFolder(L"D:\\TAMTMP\\" + path);
            else
                files.AddFile(L"D:\\TAMTMP\\" + path);
        }
    }
};

TEST_P(JudgeTest, SortsIntoTheLists) {
    SelectionList installed;
    installed.Assign({L"XX", L"ABC", L"Abc", L"表ソ能"});
    Prepare();
    Add(GetParam().before);
    PackageJudge judge(L"D:\\Host", fake.platform);
    Add(GetParam().archive);
    InstallConfirmation lists;
    judge.JudgePackage(L"p.lzh", installed, lists);
    EXPECT_THAT(lists.toInstall.Entries(), ElementsAreArray(GetParam().toInstall));
    EXPECT_THAT(lists.cannotInstall.Entries(), ElementsAreArray(GetParam().cannotInstall));
    EXPECT_THAT(lists.alreadyInstalled.Entries(), ElementsAreArray(GetParam().alreadyInstalled));
}

INSTANTIATE_TEST_SUITE_P(
    Packages, JudgeTest,
    testing::Values(
        JudgeCase{"OneNew", {}, {L"mio\\x", L"mio.obl"}, {L"mio （p.lzh）"}, {}, {}},
        JudgeCase{"NamedAsTheFileIs", {}, {L"MIO\\", L"Mio.Obl"}, {L"Mio （p.lzh）"}, {}, {}},
        JudgeCase{"TwoNew",
                  {},
                  {L"b\\", L"b.obl", L"a\\", L"a.obl"},
                  {L"a （p.lzh）", L"b （p.lzh）"},
                  {},
                  {}},
        JudgeCase{
            "InstalledNamedAsInTheList", {}, {L"abc\\", L"abc.obl"}, {}, {}, {L"ABC （p.lzh）"}},
        JudgeCase{
            "InstalledInJapanese", {}, {L"表ソ能\\", L"表ソ能.obl"}, {}, {}, {L"表ソ能 （p.lzh）"}},
        JudgeCase{"NewAndInstalled",
                  {},
                  {L"abc\\", L"abc.obl", L"n\\", L"n.obl"},
                  {L"n （p.lzh）"},
                  {},
                  {L"ABC （p.lzh）"}},
        JudgeCase{"FolderAlone", {}, {L"abc\\x"}, {}, {L"p.lzh"}, {}},
        JudgeCase{"FoldersAloneCountOnce", {}, {L"a\\x", L"b\\x"}, {}, {L"p.lzh"}, {}},
        JudgeCase{"FolderAloneBesideAGoodOne",
                  {},
                  {L"mio\\", L"mio.obl", L"xyz\\"},
                  {L"mio （p.lzh）"},
                  {},
                  {}},
        JudgeCase{"FolderAloneBesideAnInstalledOne",
                  {},
                  {L"abc\\", L"abc.obl", L"xyz\\"},
                  {},
                  {},
                  {L"ABC （p.lzh）"}},
        JudgeCase{"LooseFile", {}, {L"readme.txt"}, {}, {L"p.lzh"}, {}},
        JudgeCase{"LooseDefinition", {}, {L"mio.obl"}, {}, {L"p.lzh"}, {}},
        JudgeCase{"NothingNew",
                  {L"mio\\x", L"mio.obl"},
                  {L"mio\\x", L"mio.obl"},
                  {},
                  {L"p.lzh （判定不能）"},
                  {}},
        JudgeCase{"EmptyArchive", {}, {}, {}, {L"p.lzh （判定不能）"}, {}},
        JudgeCase{"OnlyMoreInAKnownFolder",
                  {L"mio\\", L"mio.obl"},
                  {L"mio\\y"},
                  {},
                  {L"p.lzh （判定不能）"},
                  {}},
        JudgeCase{"NewFileBesideAKnownFolder",
                  {L"mio\\", L"mio.obl"},
                  {L"mio\\x", L"mio.obl", L"readme.txt"},
                  {},
                  {L"p.lzh"},
                  {}},
        JudgeCase{"KnownFoldersAreNotJudgedAgain",
                  {L"mio\\", L"mio.obl"},
                  {L"mio\\x", L"mio.obl", L"n\\", L"n.obl"},
                  {L"n （p.lzh）"},
                  {},
                  {}},
        JudgeCase{"DefinitionOfAnEarlierArchive", {L"n.obl"}, {L"n\\x"}, {L"n （p.lzh）"}, {}, {}},
        JudgeCase{"DefinitionInsideTheFolderIsNone", {}, {L"mio\\mio.obl"}, {}, {L"p.lzh"}, {}},
        JudgeCase{
            "FolderNamedLikeADefinitionIsNone", {}, {L"mio\\", L"mio.obl\\"}, {}, {L"p.lzh"}, {}}),
    CaseName);

TEST_F(PackageStagingTest, JudgingListsTheStagingFolderOnceBeforeAndOnceAfter) {
    Prepare();
    PackageJudge judge(L"D:\\Host", fake.platform);
    for (int number = 0; number < 200; ++number) {
        files.AddFile(L"D:\\TAMTMP\\c" + std::to_wstring(number) + L".obl");
        files.AddFolder(L"D:\\TAMTMP\\c" + std::to_wstring(number));
    }
    InstallConfirmation lists;
    judge.JudgePackage(L"p.lzh", {}, lists);
    EXPECT_EQ(lists.toInstall.Size(), 200U);
    EXPECT_EQ(files.CountLogged(L"List "), 2U);
}

} // namespace
} // namespace tamblin
