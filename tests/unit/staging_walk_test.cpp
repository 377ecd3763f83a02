// The order in which the staging folder is emptied, and what makes it stop.
#include "install/staging_walk.h"
#include "install/package_staging.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

using testing::DoubleNear;
using testing::Pointwise;

constexpr wchar_t Staging[] = L"C:\\TAMTMP\\";

// Deletes what it is given and remembers it.
class RecordingVisitor : public StagingVisitor {
  public:
    explicit RecordingVisitor(MemoryFileSystem& memoryFiles) : files(memoryFiles) {}

    std::vector<std::wstring> visits;

    void EnterFolder(const std::wstring& folder) override { visits.push_back(L"> " + folder); }
    void TakeFile(const std::wstring& folder, const std::wstring& name) override {
        visits.push_back(folder + name);
        files.DeleteTree(Staging + folder + name);
    }

  private:
    MemoryFileSystem& files;
};

class StagingWalkTest : public testing::Test {
  protected:
    StagingWalkTest() { files.AddFolder(Staging); }
    void Add(const std::wstring& path, FileAttributes attributes = {.archive = true}) {
        files.AddFile(Staging + path, "", attributes);
    }
    void Walk() {
        WorkUnderWay work(fake.progress, L"text", Staging);
        WalkStagingFolder(Staging, visitor, files, work);
    }
    const std::vector<double>& Parts() const { return fake.progress.works.back().parts; }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    RecordingVisitor visitor{files};
};

TEST_F(StagingWalkTest, EmptyFoldersGoAndAreDoneAtOnce) {
    files.AddFolder(L"C:\\TAMTMP\\empty");
    Walk();
    EXPECT_FALSE(files.Exists(Staging));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\");
    EXPECT_THAT(Parts(), ElementsAre(1.0, 1.0));
}

TEST_F(StagingWalkTest, DeepestFoldersComeFirstAndRootFilesLast) {
    for (const wchar_t* path :
         {L"b.obl", L"a.obl", L"b\\2", L"b\\1", L"b\\d\\e\\3", L"b\\c\\4", L"A\\5"})
        Add(path);
    Walk();
    EXPECT_THAT(visitor.visits,
                ElementsAre(L"> A\\", L"A\\5", L"> b\\", L"> b\\c\\", L"b\\c\\4", L"> b\\d\\",
                            L"> b\\d\\e\\", L"b\\d\\e\\3", L"b\\1", L"b\\2", L"a.obl", L"b.obl"));
    EXPECT_FALSE(files.Exists(Staging));
}

TEST_F(StagingWalkTest, CurrentFolderMovesAlong) {
    Add(L"a\\b\\1");
    files.ForgetOperations();
    Walk();
    std::vector<std::wstring> moves;
    for (const std::wstring& line : files.Log())
        if (line.starts_with(L"SetCurrentFolder ") || line.starts_with(L"RemoveFolder "))
            moves.push_back(line);
    EXPECT_THAT(moves,
                ElementsAre(L"SetCurrentFolder C:\\TAMTMP", L"SetCurrentFolder C:\\TAMTMP\\a",
                            L"SetCurrentFolder C:\\TAMTMP\\a\\b", L"SetCurrentFolder C:\\TAMTMP\\a",
                            L"RemoveFolder C:\\TAMTMP\\a\\b", L"SetCurrentFolder C:\\TAMTMP",
                            L"RemoveFolder C:\\TAMTMP\\a", L"SetCurrentFolder C:\\",
                            L"RemoveFolder C:\\TAMTMP"));
}

TEST_F(StagingWalkTest, FolderWithMoreAttributesSurvivesWithItsParents) {
    for (const FileAttributes attributes :
         {FileAttributes{.readOnly = true}, FileAttributes{.hidden = true},
          FileAttributes{.system = true}, FileAttributes{.archive = true}}) {
        Add(L"a\\x\\inside");
        Add(L"a\\beside");
        Add(L"root");
        files.AddFolder(L"C:\\TAMTMP\\a\\x", attributes);
        visitor.visits.clear();
        EXPECT_EQ(ErrorOf([&] { Walk(); }), ErrorNumber::PathFileAccess);
        EXPECT_THAT(visitor.visits, ElementsAre(L"> a\\", L"a\\beside"));
        EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\a\\x\\inside"));
        EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\root"));
    }
}

TEST_F(StagingWalkTest, HiddenAndSystemFilesStay) {
    for (const FileAttributes attributes :
         {FileAttributes{.hidden = true}, FileAttributes{.system = true}}) {
        Add(L"a\\kept", attributes);
        EXPECT_EQ(ErrorOf([&] { Walk(); }), ErrorNumber::PathFileAccess);
        EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\a\\kept"));
    }
}

TEST_F(StagingWalkTest, ManyLevelsAreNoTrouble) {
    std::wstring path;
    for (int level = 0; level < 500; ++level)
        path += L"d\\";
    Add(path + L"x");
    Walk();
    EXPECT_FALSE(files.Exists(Staging));
}

// Windows makes no folder current whose path is longer; with its "\\" at the end.
TEST_F(StagingWalkTest, FolderWithALongPathIsWalkedFromTheLastThatCanBeCurrent) {
    const std::wstring fits(247 - std::wstring(Staging).size() - 1, L'f');
    Add(fits + L"\\g\\x");
    Add(fits + L"f\\x");
    files.ForgetOperations();
    Walk();
    EXPECT_FALSE(files.Exists(Staging));
    size_t longest = 0;
    for (const std::wstring& line : files.Log())
        if (line.starts_with(L"SetCurrentFolder "))
            longest = std::max(longest, line.size() - std::size(L"SetCurrentFolder ") + 1);
    EXPECT_EQ(longest, 246U);
}

// A folder counts as twenty files, until it is entered.
TEST_F(StagingWalkTest, TellsHowFarItHasCome) {
    for (const wchar_t* path : {L"a\\1", L"a\\2", L"a\\b\\3", L"x", L"y"})
        Add(path);
    Walk();
    const double a = 20.0 / 22;
    const double b = a * 20 / 22;
    EXPECT_THAT(Parts(), Pointwise(DoubleNear(1e-9), {b, b, b + a / 22, b + a * 2 / 22, a,
                                                      a + 1.0 / 22, a + 2.0 / 22, 1.0}));
    EXPECT_TRUE(fake.progress.works.back().ended);
}

TEST(DeleteStagedFile, DeletesReadOnlyFilesAndFailsForThoseInUse) {
    PlatformFake fake;
    fake.files.AddFile(L"C:\\a", "", {.readOnly = true});
    fake.files.AddFile(L"C:\\b");
    fake.files.Lock(L"C:\\b");
    DeleteStagedFile(L"C:\\a", fake.files);
    EXPECT_EQ(ErrorOf([&] { DeleteStagedFile(L"C:\\b", fake.files); }),
              ErrorNumber::PermissionDenied);
    fake.files.Unlock(L"C:\\b");
    DeleteStagedFile(L"C:\\b", fake.files);
    EXPECT_FALSE(fake.files.Exists(L"C:\\a"));
    EXPECT_FALSE(fake.files.Exists(L"C:\\b"));
}

} // namespace
} // namespace tamblin
