// Names, folders, drives: what is moved, made, removed and current.
#include "file_system_contract.h"

#include <algorithm>

namespace tamblin {
namespace {

// --- Rename ---------------------------------------------------------------------------------

TEST_P(FileSystemContract, RenameMovesFilesAndFoldersWithinTheDrive) {
    files.MakeFolder(In(L"one"));
    files.MakeFolder(In(L"two"));
    files.Write(In(L"one\\a"), "1");
    files.Rename(In(L"one\\a"), In(L"two\\b"));
    EXPECT_EQ(files.Read(In(L"two\\b")), "1");
    files.Rename(In(L"two"), In(L"one\\three"));
    EXPECT_EQ(files.Read(In(L"one\\three\\b")), "1");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"one"));
}

TEST_P(FileSystemContract, RenameMayChangeOnlyTheLetterCase) {
    files.Write(In(L"name"), "1");
    files.Rename(In(L"name"), In(L"NAME"));
    files.MakeFolder(In(L"sub"));
    files.Rename(In(L"sub"), In(L"SUB\\"));
    files.Rename(In(L"NAME"), In(L"NAME")); // changes nothing
    EXPECT_EQ(files.Read(In(L"name")), "1");
    if (disk->IsWine()) // takes both for one name and changes nothing
        return;
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"NAME", L"SUB"));
}

TEST_P(FileSystemContract, RenameKeepsAttributesAndMovesReadOnlyFiles) {
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"a"), "1");
        files.SetAttributes(In(L"a"), attributes);
        files.Rename(In(L"a"), In(L"b"));
        EXPECT_EQ(files.Find(In(L"b"))->attributes, attributes);
        EXPECT_FALSE(IsThere(L"a"));
        files.SetAttributes(In(L"b"), {});
        files.Delete(In(L"b"));
    }
}

TEST_P(FileSystemContract, RenameNeverReplaces) {
    files.Write(In(L"a"), "a");
    files.Write(In(L"b"), "b");
    files.MakeFolder(In(L"sub"));
    files.MakeFolder(In(L"empty"));
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"b")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"sub")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"a")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"empty")); }), 58);
    EXPECT_EQ(files.Read(In(L"a")), "a");
    EXPECT_EQ(files.Read(In(L"b")), "b");
    EXPECT_EQ(files.List(folder).size(), 4U);
}

TEST_P(FileSystemContract, RenameDoesNotLeaveTheDrive) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    files.Write(In(L"a"), "a");
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), *other + L"\\tamblin-contract"); }), 75);
    EXPECT_EQ(files.Read(In(L"a")), "a");
}

// --- Delete ---------------------------------------------------------------------------------

TEST_P(FileSystemContract, DeletesFilesWhateverHidesThem) {
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.hidden = true, .system = true});
    files.Delete(In(L"A"));
    EXPECT_FALSE(IsThere(L"a"));
}

// --- Folders --------------------------------------------------------------------------------

TEST_P(FileSystemContract, MakesAndRemovesFolders) {
    files.MakeFolder(In(L"One"));
    files.MakeFolder(In(L"One\\Two\\"));
    EXPECT_THAT(NamesOf(files.List(In(L"one"))), ElementsAre(L"Two"));
    EXPECT_EQ(files.Find(In(L"One"))->attributes, FileAttributes{.folder = true});
    files.RemoveFolder(In(L"one\\two\\"));
    files.RemoveFolder(In(L"ONE"));
    EXPECT_THAT(files.List(folder), IsEmpty());
}

TEST_P(FileSystemContract, MakesAFolderLikeAnother) {
    files.MakeFolder(In(L"model"));
    files.MakeFolderLike(In(L"like"), In(L"model"));
    files.Write(In(L"like\\a"), "1");
    files.MakeFolderLike(In(L"alone"), In(L"nosuch"));
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"alone", L"like", L"model"));
    EXPECT_THAT(NamesOf(files.List(In(L"like"))), ElementsAre(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolderLike(In(L"like"), In(L"model")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolderLike(In(L"no\\a"), In(L"model")); }), 76);
}

TEST_P(FileSystemContract, FolderIsHeldByOneAtATime) {
    files.MakeFolder(In(L"theirs"));
    files.MakeFolder(In(L"ours"));
    disk->HoldElsewhere(In(L"theirs"));
    EXPECT_FALSE(files.HoldFolder(In(L"theirs")));
    EXPECT_TRUE(files.HoldFolder(In(L"ours")));
    EXPECT_TRUE(files.HoldFolder(In(L"OURS\\")));
    EXPECT_EQ(ThrownNumber([&] { files.HoldFolder(In(L"nosuch")); }), 76);
}

TEST_P(FileSystemContract, HeldFolderCanBeUsedAndRemoved) {
    files.MakeFolder(In(L"ours"));
    EXPECT_TRUE(files.HoldFolder(In(L"ours")));
    files.SetCurrentFolder(In(L"ours"));
    files.Write(L"a", "1");
    EXPECT_EQ(files.List(In(L"ours")).size(), 1U);
    files.Replace(L"a", In(L"b"));
    files.SetCurrentFolder(folder);
    files.RemoveFolder(In(L"ours"));
    EXPECT_FALSE(IsThere(L"ours"));
    files.ReleaseFolder();
}

TEST_P(FileSystemContract, TellsDrivesApartAndTheirRoom) {
    files.MakeFolder(In(L"sub"));
    EXPECT_TRUE(files.OnOneDrive(In(L"sub"), Root()));
    EXPECT_GT(files.FreeBytes(In(L"sub")), 1000U);
    EXPECT_EQ(ThrownNumber([&] { files.OnOneDrive(In(L"sub"), In(L"nosuch")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.FreeBytes(In(L"nosuch")); }), 76);
}

TEST_P(FileSystemContract, TellsTheSizesOfFiles) {
    files.Write(In(L"a"), "12345");
    EXPECT_EQ(files.Find(In(L"a"))->size, 5U);
    EXPECT_EQ(files.List(folder)[0].size, 5U);
}

TEST_P(FileSystemContract, ReadOnlyFolderIsNotRemoved) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine has no read-only folders";
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub"), {.readOnly = true});
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"sub")); }), 75);
    files.SetAttributes(In(L"sub"), {});
    files.RemoveFolder(In(L"sub"));
}

TEST_P(FileSystemContract, CurrentFolderIsNeitherRemovedNorRenamed) {
    files.MakeFolder(In(L"sub"));
    files.MakeFolder(In(L"sub\\below"));
    files.SetCurrentFolder(In(L"sub\\below"));
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"sub\\below")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub\\below"), In(L"sub\\other")); }), 75);
    if (!disk->IsWine()) { // which looks at the folder itself only
        EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"other")); }), 75);
    }
    EXPECT_TRUE(IsThere(L"sub\\below"));
    files.SetCurrentFolder(folder);
    files.RemoveFolder(In(L"sub\\below"));
}

// --- Current folder and drives --------------------------------------------------------------

TEST_P(FileSystemContract, CurrentFolderIsWhereItWasSet) {
    files.MakeFolder(In(L"Sub"));
    files.SetCurrentFolder(In(L"Sub\\"));
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(L"..");
    EXPECT_EQ(files.CurrentFolder(), folder);
    files.SetCurrentFolder(L"Sub");
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(L"");
    files.SetCurrentFolder(folder.substr(0, 2));
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(Root());
    EXPECT_EQ(files.CurrentFolder(), Root());
    files.SetCurrentFolder(L"..");
    EXPECT_EQ(files.CurrentFolder(), Root());
}

TEST_P(FileSystemContract, EveryDriveKeepsAFolderOfItsOwn) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    files.Write(In(L"a"), "1");
    files.SetCurrentFolder(folder);
    files.SetCurrentFolder(*other + L'\\');
    EXPECT_EQ(files.CurrentFolder(), *other + L'\\');
    EXPECT_EQ(files.Read(folder.substr(0, 2) + L"a"), "1");
    files.SetCurrentFolder(folder.substr(0, 2));
    EXPECT_EQ(files.CurrentFolder(), folder);
    EXPECT_EQ(files.Find(*other)->name, L"");
}

TEST_P(FileSystemContract, ListsDrivesByLetter) {
    const auto drives = files.Drives();
    ASSERT_FALSE(drives.empty());
    const auto isBefore = [](const Drive& a, const Drive& b) {
        return a.name < b.name;
    };
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end(), isBefore));
    bool isThere = false;
    for (const Drive& drive : drives) {
        ASSERT_EQ(drive.name.size(), 2U);
        EXPECT_TRUE(drive.name[0] >= L'a' && drive.name[0] <= L'z') << drive.name;
        EXPECT_EQ(drive.name[1], L':');
        if (drive.name[0] + L'A' - L'a' == folder[0]) {
            isThere = true;
            EXPECT_EQ(drive.type, DriveType::Fixed);
        }
    }
    EXPECT_TRUE(isThere);
}

} // namespace
} // namespace tamblin
