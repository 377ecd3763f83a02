// Moving the staged tree into the host folder.
#include "install/copy_staged_tree.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

class CopyStagedTreeTest : public testing::Test {
  protected:
    CopyStagedTreeTest() {
        AddHost(files, L"C:\\Host");
        files.AddFolder(L"C:\\TAMTMP");
    }
    void Stage(const std::wstring& path, std::string_view bytes = "staged",
               FileAttributes attributes = {.archive = true}) {
        files.AddFile(L"C:\\TAMTMP\\" + path, bytes, attributes);
    }
    void Copy(const std::wstring& host = L"C:\\Host") {
        CopyStagedTree(host, state, fake.platform);
    }
    void StagePackage() {
        Stage(L"mio\\a");
        Stage(L"mio.obl");
        Stage(L"old\\dat\\a");
        Stage(L"old\\KVA.DEF", "a,b,2\r\n");
        state.KvaOption = L"ON";
    }
    std::string InHost(const std::wstring& path) const {
        return files.Contents(L"C:\\Host\\" + path);
    }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    SettingsState state;
};

TEST_F(CopyStagedTreeTest, RecreatesTheTreeAndLeavesNoStagingFolder) {
    Stage(L"mio.obl", "1");
    Stage(L"mio\\face.bmp", "2");
    Stage(L"mio\\dat\\obl\\mio.obl", "3");
    files.AddFolder(L"C:\\TAMTMP\\mio\\empty");
    Copy();
    EXPECT_EQ(InHost(L"mio.obl"), "1");
    EXPECT_EQ(InHost(L"mio\\face.bmp"), "2");
    EXPECT_EQ(InHost(L"mio\\dat\\obl\\mio.obl"), "3");
    EXPECT_TRUE(files.Exists(L"C:\\Host\\mio\\empty"));
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    EXPECT_EQ(InHost(L"ombrel.exe"), "host");
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(CopyStagedTreeTest, HostFolderMayBeADriveRootOrEndInABackslash) {
    Stage(L"mio\\a");
    Copy(L"C:\\Host\\");
    EXPECT_EQ(InHost(L"mio\\a"), "staged");
    Stage(L"mio\\a");
    Stage(L"mio.obl");
    Copy(L"C:\\");
    EXPECT_TRUE(files.Exists(L"C:\\mio\\a"));
    EXPECT_TRUE(files.Exists(L"C:\\mio.obl"));
}

TEST_F(CopyStagedTreeTest, OnlyDefinitionFilesLeaveTheStagingRoot) {
    for (const wchar_t* name : {L"a.obl", L"B.OBL", L"readme.txt", L"KVA.DEF", L"c.obl.bak"})
        Stage(name);
    state.KvaOption = L"ON";
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
    files.AddFile(L"C:\\Host\\readme.txt", "mine", {.readOnly = true}); // is in nobody's way
    Copy();
    EXPECT_TRUE(files.Exists(L"C:\\Host\\a.obl"));
    EXPECT_TRUE(files.Exists(L"C:\\Host\\B.OBL"));
    EXPECT_FALSE(files.Exists(L"C:\\Host\\c.obl.bak"));
    EXPECT_EQ(InHost(L"readme.txt"), "mine");
    EXPECT_EQ(InHost(L"kva.def"), "a,b,1\r\n");
    EXPECT_FALSE(files.Exists(L"C:\\Host\\kva.tmp"));
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

TEST_F(CopyStagedTreeTest, ExistingFolderIsCompleted) {
    files.AddFile(L"C:\\Host\\mio\\mine", "mine");
    files.AddFile(L"C:\\Host\\mio\\A", "half");
    files.AddFile(L"C:\\Host\\MIO.OBL", "old"); // is overwritten without asking
    Stage(L"mio\\a", "whole");
    Stage(L"mio.obl", "new");
    Copy();
    EXPECT_EQ(InHost(L"mio\\mine"), "mine");
    EXPECT_EQ(InHost(L"mio\\a"), "whole");
    EXPECT_EQ(InHost(L"mio.obl"), "new");
    EXPECT_EQ(files.CountLogged(L"Read "), 0U); // what can be replaced is not compared
    EXPECT_THAT(fake.messages.shown, IsEmpty());
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

TEST_F(CopyStagedTreeTest, LinkAmongTheStagedFoldersIsNotLookedInto) {
    Stage(L"mio\\a");
    files.AddFile(L"C:\\Elsewhere\\x", "not staged");
    files.AddLink(L"C:\\TAMTMP\\mio\\link", L"C:\\Elsewhere");
    files.AddFile(L"C:\\Host\\mio\\link\\x", "old", {.readOnly = true});
    // The folder that holds the link cannot go.
    EXPECT_EQ(ErrorOf([&] { Copy(); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(InHost(L"mio\\a"), "staged");
    EXPECT_EQ(files.Contents(L"C:\\Elsewhere\\x"), "not staged");
}

TEST_F(CopyStagedTreeTest, ReplacedFileKeepsItsAttributesAndPermissions) {
    files.AddFile(L"C:\\Host\\mio.obl", "old", {.hidden = true, .archive = true});
    files.SetPermissions(L"C:\\Host\\mio.obl", L"the user's own");
    Stage(L"mio.obl", "new", {.readOnly = true});
    Copy();
    EXPECT_EQ(InHost(L"mio.obl"), "new");
    EXPECT_EQ(files.AttributesOf(L"C:\\Host\\mio.obl"),
              (FileAttributes{.hidden = true, .archive = true}));
    EXPECT_EQ(files.PermissionsOf(L"C:\\Host\\mio.obl"), L"the user's own");
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

// --- What is known before the first file moves

TEST_F(CopyStagedTreeTest, FileInUseOrReadOnlyInTheHostEndsTheCopyBeforeItBegins) {
    const auto expectStopped = [&](ErrorNumber number) {
        StagePackage();
        const auto host = files.Snapshot(L"C:\\Host");
        EXPECT_EQ(ErrorOf([&] { Copy(); }), number);
        EXPECT_EQ(files.Snapshot(L"C:\\Host"), host);
    };
    for (const wchar_t* target : {L"mio.obl", L"old\\dat\\a", L"kva.def"}) {
        files.AddFile(std::wstring(L"C:\\Host\\") + target, "old");
        files.Lock(std::wstring(L"C:\\Host\\") + target);
        expectStopped(ErrorNumber::PermissionDenied);
        files.Unlock(std::wstring(L"C:\\Host\\") + target);
    }
    // Also one of the same size.
    for (const char* other : {"mine", "theirs"}) {
        files.AddFile(L"C:\\Host\\old\\dat\\a", other, {.readOnly = true});
        expectStopped(ErrorNumber::PathFileAccess);
    }
}

// The host folder's path starts on one drive and ends on another.
TEST_F(CopyStagedTreeTest, HostOnAnotherDriveStaysAsItWasUnlessThereIsRoomToTheByte) {
    files.AddDrive(L"D:");
    AddHost(files, L"D:\\Vimora");
    files.AddLink(L"C:\\Linked", L"D:\\Vimora");
    StagePackage();
    std::uint64_t used = 0;
    for (const auto& [path, bytes] : files.Snapshot(L"D:\\"))
        used += bytes.size();
    constexpr std::uint64_t needed = 3 * 6 + 7; // three files and the definitions
    files.SetCapacity(L"D:", used + needed - 1);
    const auto host = files.Snapshot(L"D:\\");
    try {
        Copy(L"C:\\Linked");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DiskFull);
        EXPECT_EQ(error.Path(), L"C:\\Linked"); // which of the drives is full
    }
    EXPECT_EQ(files.Snapshot(L"D:\\"), host);
    files.SetCapacity(L"D:", used + needed);
    Copy(L"C:\\Linked");
    EXPECT_EQ(files.Contents(L"D:\\Vimora\\mio.obl"), "staged");
    EXPECT_EQ(files.Contents(L"D:\\Vimora\\old\\dat\\a"), "staged");
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

TEST_F(CopyStagedTreeTest, FullDriveTakesWhatIsOnlyMoved) {
    StagePackage();
    files.SetCapacity(L"C:", 1'000);
    std::uint64_t used = 0;
    for (const auto& [path, bytes] : files.Snapshot())
        used += bytes.size();
    files.SetCapacity(L"C:", used + 1);
    Copy();
    EXPECT_EQ(InHost(L"mio.obl"), "staged");
}

// --- Files that replace others

// The copy tidies nothing up after a failure: the folder where it failed stays current until the
// install leaves the staging folder.
TEST_F(CopyStagedTreeTest, FileThatIsNamedAsAPackagesFolderEndsTheCopyInThatFolder) {
    Stage(L"mio\\dat\\1");
    files.AddFile(L"C:\\Host\\mio", "mine");
    EXPECT_EQ(ErrorOf([&] { Copy(); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(InHost(L"mio"), "mine");
    EXPECT_EQ(files.CurrentFolder(), L"C:\\TAMTMP\\mio");
}

// --- Notes and launcher definitions -------------------------------------------------------------

TEST_F(CopyStagedTreeTest, NotesAreShownOnceTheyAreCopied) {
    fake.starter.onShow = [this](const std::wstring& note) {
        EXPECT_TRUE(files.Exists(note));
    };
    for (const wchar_t* path : {L"mio\\Read-x.txt", L"mio\\dat\\MIO-X.TXT", L"mio\\mio.txt",
                                L"mio\\-X.txt.bak", L"mio\\x.txt"})
        Stage(path);
    Copy();
    EXPECT_THAT(fake.starter.shown,
                ElementsAre(L"C:\\Host\\mio\\dat\\MIO-X.TXT", L"C:\\Host\\mio\\Read-x.txt"));
    EXPECT_THAT(fake.starter.started, IsEmpty());
    EXPECT_TRUE(files.Exists(L"C:\\Host\\mio\\Read-x.txt"));
}

TEST_F(CopyStagedTreeTest, OptionDecidesWhetherThePackagesEntriesAreMerged) {
    const std::tuple<const wchar_t*, const wchar_t*, bool> options[] = {
        {L"OFF", L"mio\\KVA.DEF", false},  {L"", L"mio\\KVA.DEF", false},
        {L"ON", L"mio\\xKVA.DEF", false},  {L"ON", L"mio\\KVA.DEF", true},
        {L"ON", L"mio\\d\\KVA.DEF", true}, {L"ON", L"mio\\kva.Def", true}};
    for (const auto& [option, file, merged] : options) {
        SCOPED_TRACE(file);
        files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
        files.DeleteTree(L"C:\\Host\\kva.tmp");
        state.KvaOption = option;
        Stage(file, "a,b,2\r\n");
        Copy();
        EXPECT_EQ(InHost(file), "a,b,2\r\n");
        EXPECT_EQ(InHost(L"kva.def"), merged ? "a,b,2\r\n" : "a,b,1\r\n");
        EXPECT_EQ(files.Exists(L"C:\\Host\\kva.tmp"), merged);
        const std::wstring named = L"C:\\Host\\" + std::wstring(merged ? NameOf(file) : L"kva.def");
        EXPECT_EQ(files.Snapshot(L"C:\\Host").count(named), 1U); // spelled as the package's
    }
}

TEST_F(CopyStagedTreeTest, PackagesMergeOneAfterTheOtherIfTheHostHasDefinitions) {
    state.KvaOption = L"ON";
    Stage(L"mio\\KVA.DEF", "a,b,2\r\n");
    Copy();
    EXPECT_FALSE(files.Exists(L"C:\\Host\\kva.def"));
    EXPECT_TRUE(files.Exists(L"C:\\Host\\mio\\KVA.DEF"));
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\nc,d,1\r\n");
    Stage(L"one\\KVA.DEF", "a,b,2\r\n");
    Stage(L"two\\kva.def", "c,d,2\r\n");
    Copy();
    EXPECT_EQ(InHost(L"kva.def"), "a,b,2\r\nc,d,2\r\n");
    EXPECT_EQ(InHost(L"kva.tmp"), "a,b,2\r\nc,d,1\r\n");
    EXPECT_EQ(files.Snapshot(L"C:\\Host").count(L"C:\\Host\\kva.def"), 1U);
}

// --- Growth -------------------------------------------------------------------------------------

TEST_F(CopyStagedTreeTest, ChecksTheHostsDefinitionsOnceForAllPackages) {
    state.KvaOption = L"ON";
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
    for (const wchar_t* package : {L"a", L"b", L"c"})
        Stage(std::wstring(package) + L"\\KVA.DEF", "a,b,2\r\n");
    files.ForgetOperations();
    Copy();
    EXPECT_EQ(files.CountLogged(L"CheckReplaceable C:\\Host\\kva.def"), 1U + 3U); // and each merge
}

TEST_F(CopyStagedTreeTest, NeedsAFixedNumberOfOperationsPerFile) {
    for (int file = 0; file < 1'000; ++file)
        Stage(L"mio\\dat\\" + std::to_wstring(file));
    files.ForgetOperations();
    Copy();
    EXPECT_EQ(files.CountLogged(L"List "), 6U);
    EXPECT_LE(files.OperationCount(), 1'030U);
}

} // namespace
} // namespace tamblin
