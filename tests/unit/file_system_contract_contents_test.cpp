// What files hold and are, and what copying and replacing makes of it.
#include "file_system_contract.h"

namespace tamblin {
namespace {

// --- Read and Write -------------------------------------------------------------------------

TEST_P(FileSystemContract, ReadReturnsWhatWasWrittenToTheByte) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    files.Write(In(L"a"), bytes);
    EXPECT_EQ(files.Read(In(L"a")), bytes);
    files.Write(In(L"a"), "");
    EXPECT_EQ(files.Read(In(L"a")), "");
}

TEST_P(FileSystemContract, WriteReplacesContentsAndKeepsTheName) {
    files.Write(In(L"Name"), "the old contents");
    files.Write(In(L"NAME"), "new");
    EXPECT_EQ(files.Read(In(L"name")), "new");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"Name"));
}

TEST_P(FileSystemContract, LargeFileSurvivesWritingAndReading) {
    std::string bytes(std::size_t{17} << 20, 'x');
    bytes[bytes.size() - 1] = 'y';
    files.Write(In(L"large"), bytes);
    EXPECT_TRUE(files.Read(In(L"large")) == bytes);
}

TEST_P(FileSystemContract, WriteMarksTheFileForBackupAndKeepsItHidden) {
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.hidden = true, .system = true});
    files.Write(In(L"a"), "2");
    EXPECT_EQ(files.Read(In(L"a")), "2");
    EXPECT_EQ(files.Find(In(L"a"))->attributes,
              (FileAttributes{.hidden = true, .system = true, .archive = true}));
}

// --- Copy -----------------------------------------------------------------------------------

TEST_P(FileSystemContract, CopyTakesContentsAndAttributesAlong) {
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"from"), "bytes");
        files.SetAttributes(In(L"from"), attributes);
        files.Copy(In(L"from"), In(L"To"));
        EXPECT_EQ(files.Read(In(L"to")), "bytes");
        const auto copy = files.Find(In(L"to"));
        ASSERT_TRUE(copy);
        EXPECT_EQ(copy->name, L"To");
        EXPECT_EQ(copy->attributes, attributes);
        for (const wchar_t* name : {L"from", L"to"}) {
            files.SetAttributes(In(name), {});
            files.Delete(In(name));
        }
    }
}

TEST_P(FileSystemContract, CopyMarksTheTargetForBackup) {
    files.Write(In(L"from"), "bytes");
    files.SetAttributes(In(L"from"), {});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Find(In(L"to"))->attributes, FileAttributes{.archive = true});
}

TEST_P(FileSystemContract, CopyReplacesAndKeepsTheTargetsName) {
    files.Write(In(L"from"), "new");
    files.Write(In(L"Target"), "the old contents");
    files.Copy(In(L"FROM"), In(L"TARGET"));
    EXPECT_EQ(files.Read(In(L"target")), "new");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"from", L"Target"));
}

TEST_P(FileSystemContract, CopyLeavesAReplacedFileItsAttributes) {
    files.Write(In(L"from"), "new");
    files.Write(In(L"to"), "old");
    files.SetAttributes(In(L"to"), {.hidden = true, .system = true});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Read(In(L"to")), "new");
    EXPECT_EQ(files.Find(In(L"to"))->attributes,
              (FileAttributes{.hidden = true, .system = true, .archive = true}));
    files.SetAttributes(In(L"to"), {});
    files.SetAttributes(In(L"from"), {.readOnly = true});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Find(In(L"to"))->attributes, FileAttributes{.archive = true});
    EXPECT_TRUE(files.Find(In(L"from"))->attributes.readOnly);
    files.SetAttributes(In(L"from"), {});
}

// --- Replace --------------------------------------------------------------------------------

TEST_P(FileSystemContract, ReplaceMovesAFileWhereNoneIs) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.readOnly = true, .archive = true});
    files.Replace(In(L"a"), In(L"sub\\B"));
    EXPECT_FALSE(IsThere(L"a"));
    EXPECT_EQ(files.Read(In(L"sub\\b")), "1");
    EXPECT_THAT(NamesOf(files.List(In(L"sub"))), ElementsAre(L"B"));
    EXPECT_TRUE(files.Find(In(L"sub\\b"))->attributes.readOnly);
    files.SetAttributes(In(L"sub\\b"), {});
}

TEST_P(FileSystemContract, ReplacePutsAFileInTheOthersPlace) {
    files.Write(In(L"Target"), "the old contents");
    files.SetAttributes(In(L"Target"), {.hidden = true, .archive = true});
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"from"), "new");
        files.SetAttributes(In(L"from"), attributes);
        files.Replace(In(L"from"), In(L"TARGET"));
        EXPECT_EQ(files.Read(In(L"target")), "new");
        EXPECT_EQ(files.Find(In(L"target"))->attributes,
                  (FileAttributes{.hidden = true, .archive = true}));
        EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"Target"));
    }
}

TEST_P(FileSystemContract, ReplaceMovesToAnotherDrive) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    const std::wstring target = *other + L"\\tamblin-contract";
    for (const char* bytes : {"new", "newer"}) {
        files.Write(In(L"from"), bytes);
        files.SetAttributes(In(L"from"), {.readOnly = true});
        files.Replace(In(L"from"), target);
        EXPECT_FALSE(IsThere(L"from"));
        EXPECT_EQ(files.Read(target), bytes);
        files.SetAttributes(target, {});
    }
    files.Delete(target);
}

// --- Attributes -----------------------------------------------------------------------------

TEST_P(FileSystemContract, SetsAndClearsAttributes) {
    files.Write(In(L"a"), "1");
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.SetAttributes(In(L"a"), attributes);
        EXPECT_EQ(files.Find(In(L"a"))->attributes, attributes);
        files.SetAttributes(In(L"a"), {.archive = true});
        EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{.archive = true});
    }
}

// Wine cannot clear it on a file nor set it on a folder.
TEST_P(FileSystemContract, SetsAndClearsTheArchiveAttribute) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine derives this attribute from the kind of the entry";
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {});
    EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{});
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub"), {.archive = true});
    EXPECT_EQ(files.Find(In(L"sub"))->attributes,
              (FileAttributes{.folder = true, .archive = true}));
}

TEST_P(FileSystemContract, SettingAttributesKeepsWhatIsAFolderAFolder) {
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub\\"), {.hidden = true});
    EXPECT_EQ(files.Find(In(L"sub"))->attributes, (FileAttributes{.hidden = true, .folder = true}));
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.folder = true, .archive = true, .link = true});
    EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{.archive = true});
}

} // namespace
} // namespace tamblin
