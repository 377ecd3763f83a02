// The staging folder: where it lies, how it is made and cleared, how archives get into it and what
// is said about them.
#include "install/package_staging.h"

#include <sstream>

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
    const auto expectPrepared = [&] {
        Prepare();
        EXPECT_EQ(files.CurrentFolder(), L"D:\\TAMTMP");
        EXPECT_THAT(files.Snapshot(L"D:\\TAMTMP"), IsEmpty());
    };
    expectPrepared();
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    files.SetCurrentFolder(L"C:\\");
    files.DeleteTree(L"D:\\TAMTMP");
    files.AddFile(L"D:\\tamtmp\\a\\b\\c"); // of an earlier run
    files.AddFile(L"D:\\tamtmp\\readonly", "", {.readOnly = true});
    expectPrepared();
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
    files.HoldElsewhere(L"C:\\Mine");
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
    const wchar_t* before;  // in the staging folder when the archive is unpacked
    const wchar_t* archive; // what it holds; folders end in "\"
    const wchar_t* toInstall;
    std::vector<std::wstring> cannotInstall;
    const wchar_t* alreadyInstalled;
};

// What a blank separates, with something behind each.
std::vector<std::wstring> Words(const std::wstring& text, const std::wstring& suffix = {}) {
    std::vector<std::wstring> words;
    std::wistringstream stream(text);
    for (std::wstring word; stream >> word;)
        words.push_back(word + suffix);
    return words;
}

void AddStaged(MemoryFileSystem& files, const wchar_t* paths) {
    for (const std::wstring& path : Words(paths)) {
        if (path.ends_with(L'\\'))
            files.AddFolder(L"D:\\TAMTMP\\" + path);
        else
            files.AddFile(L"D:\\TAMTMP\\" + path);
    }
}

TEST_F(PackageStagingTest, JudgingSortsIntoTheLists) {
    const std::vector<std::wstring> NoPackage = {L"p.lzh"};
    const std::vector<std::wstring> Undecided = {L"p.lzh （判定不能）"};
    const JudgeCase cases[] = {
        {"one that is new", L"", L"mio\\x mio.obl", L"mio", {}, L""},
        {"named as the file is", L"", L"MIO\\ Mio.Obl", L"Mio", {}, L""},
        {"two that are new", L"", L"b\\ b.obl a\\ a.obl", L"a b", {}, L""},
        {"one that is installed, named as in the list", L"", L"abc\\ abc.obl", L"", {}, L"ABC"},
        {"one that is installed, in Japanese", L"", L"表ソ能\\ 表ソ能.obl", L"", {}, L"表ソ能"},
        {"a new and an installed one", L"", L"abc\\ abc.obl n\\ n.obl", L"n", {}, L"ABC"},
        {"a folder alone", L"", L"abc\\x", L"", NoPackage, L""},
        {"folders alone count once", L"", L"a\\x b\\x", L"", NoPackage, L""},
        {"folders alone around a good one", L"", L"a\\ mio\\ mio.obl xyz\\", L"mio", {}, L""},
        {"a folder alone beside an installed one", L"", L"abc\\ abc.obl xyz\\", L"", {}, L"ABC"},
        {"a loose file", L"", L"readme.txt", L"", NoPackage, L""},
        {"a loose definition", L"", L"mio.obl", L"", NoPackage, L""},
        {"nothing new", L"mio\\x mio.obl", L"mio\\x mio.obl", L"", Undecided, L""},
        {"an empty archive", L"", L"", L"", Undecided, L""},
        {"only more in a known folder", L"mio\\ mio.obl", L"mio\\y", L"", Undecided, L""},
        {"a new file beside a known folder", L"mio\\ mio.obl", L"mio\\x mio.obl readme.txt", L"",
         NoPackage, L""},
        {"known folders are not judged again",
         L"mio\\ mio.obl",
         L"mio\\x mio.obl n\\ n.obl",
         L"n",
         {},
         L""},
        {"the definition of an earlier archive", L"n.obl", L"n\\x", L"n", {}, L""},
        {"a definition inside the folder is none", L"", L"mio\\mio.obl", L"", NoPackage, L""},
        {"a folder named like a definition is none", L"", L"mio\\ mio.obl\\", L"", NoPackage, L""},
    };
    SelectionList installed;
    installed.Assign({L"XX", L"ABC", L"Abc", L"表ソ能"});
    for (const JudgeCase& judged : cases) {
        SCOPED_TRACE(judged.name);
        Prepare();
        AddStaged(files, judged.before);
        PackageJudge judge(L"D:\\Host", fake.platform);
        AddStaged(files, judged.archive);
        InstallConfirmation lists;
        judge.JudgePackage(L"p.lzh", installed, lists);
        EXPECT_EQ(lists.toInstall.Entries(), Words(judged.toInstall, L" （p.lzh）"));
        EXPECT_EQ(lists.cannotInstall.Entries(), judged.cannotInstall);
        EXPECT_EQ(lists.alreadyInstalled.Entries(), Words(judged.alreadyInstalled, L" （p.lzh）"));
    }
}

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
