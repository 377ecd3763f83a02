// What MemoryFileSystem offers beyond the contract of FileSystem (which has tests of its own):
// scenes, faults, locks, disks that fill up or vanish, logs.
#include "support/memory_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/thrown_number.h"

namespace tamblin {
namespace {

using testing::ElementsAre;

class MemoryFileSystemTest : public testing::Test {
  protected:
    MemoryFileSystemTest() {
        files.AddDrive(L"C:");
        files.AddDrive(L"D:", DriveType::Removable);
    }

    MemoryFileSystem files;
};

TEST_F(MemoryFileSystemTest, SnapshotListsLinksWithoutFollowingThem) {
    files.AddFile(L"C:\\real\\x", "1");
    files.AddLink(L"C:\\link", L"C:\\real");
    EXPECT_EQ(files.Snapshot().count(L"C:\\link\\"), 1U);
    EXPECT_EQ(files.Snapshot().count(L"C:\\link\\x"), 0U);
    EXPECT_EQ(files.Read(L"C:\\link\\x"), "1");
}

TEST_F(MemoryFileSystemTest, LinkThatLeadsInACircleLeadsNowhere) {
    files.AddLink(L"C:\\one", L"C:\\two");
    files.AddLink(L"C:\\two", L"C:\\one");
    EXPECT_EQ(ThrownNumber([&] { files.List(L"C:\\one"); }), 76);
    EXPECT_EQ(files.Find(L"C:\\one\\x"), std::nullopt);
}

TEST_F(MemoryFileSystemTest, FailsTheChosenOperationOnceAndUndone) {
    files.AddFile(L"C:\\a", "old");
    files.FailOperation(3, ErrorNumber::DeviceIo);
    files.Find(L"C:\\a");
    files.ForgetOperations(); // which does not change what fails
    EXPECT_EQ(files.Read(L"C:\\a"), "old");
    EXPECT_EQ(ThrownNumber([&] { files.Write(L"C:\\a", "new"); }), 57);
    EXPECT_EQ(files.Contents(L"C:\\a"), "old");
    files.Write(L"C:\\a", "new");
    EXPECT_EQ(files.Contents(L"C:\\a"), "new");
}

TEST_F(MemoryFileSystemTest, FolderWithAPathBeyondTheOldLimitCannotBeCurrent) {
    const std::wstring folder = L"C:\\" + std::wstring(250, L'f') + L"\\g";
    files.AddFolder(folder + L"ggg");
    files.AddFolder(folder + L"gggg");
    files.SetCurrentFolder(folder + L"ggg");
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(folder + L"gggg"); }), 76);
    EXPECT_EQ(files.CurrentFolder(), folder + L"ggg");
}

TEST_F(MemoryFileSystemTest, LocksMayLetOthersReadAndHoldFolders) {
    files.AddFile(L"C:\\a", "old");
    files.Lock(L"C:\\a", MemoryFileSystem::LockKind::DenyWriting);
    files.Copy(L"C:\\a", L"C:\\b");
    EXPECT_EQ(files.Read(L"C:\\a"), "old");
    EXPECT_EQ(ThrownNumber([&] { files.Copy(L"C:\\b", L"C:\\a"); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(L"C:\\a"); }), 70);
    files.AddFolder(L"C:\\folder");
    files.Lock(L"C:\\folder");
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(L"C:\\folder"); }), 75);
}

TEST_F(MemoryFileSystemTest, WriteOnAFullDiskKeepsWhatWasThere) {
    files.SetCapacity(L"C:", 10);
    files.Write(L"C:\\a", "123456");
    files.Write(L"C:\\b", "");
    EXPECT_EQ(ThrownNumber([&] { files.Write(L"C:\\b", "1234567"); }), 61);
    EXPECT_EQ(files.Contents(L"C:\\b"), "");
    EXPECT_EQ(ThrownNumber([&] { files.Write(L"C:\\new", "12345"); }), 61);
    EXPECT_FALSE(files.Exists(L"C:\\new"));
    files.Write(L"C:\\b", "1234");
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(L"C:\\folder"); }), 61);
    files.Delete(L"C:\\a");
    files.Write(L"C:\\b", "123456");
    EXPECT_EQ(files.Contents(L"C:\\b"), "123456");
}

TEST_F(MemoryFileSystemTest, CopyToAFullDiskLeavesTheTargetAsItWas) {
    files.AddFile(L"C:\\a", "123456");
    files.AddFile(L"D:\\a", "old");
    files.SetCapacity(L"D:", 5);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(L"C:\\a", L"D:\\a"); }), 61);
    EXPECT_EQ(files.Contents(L"D:\\a"), "old");
    EXPECT_EQ(ThrownNumber([&] { files.Copy(L"C:\\a", L"D:\\b"); }), 61);
    EXPECT_FALSE(files.Exists(L"D:\\b"));
}

TEST_F(MemoryFileSystemTest, DriveThatIsNotReady) {
    files.AddFile(L"D:\\a");
    files.SetReady(L"D:", false);
    EXPECT_EQ(ThrownNumber([&] { files.List(L"D:\\"); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(L"D:\\"); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.Find(L"D:\\a"); }), 71);
    EXPECT_EQ(ThrownNumber([&] { files.Read(L"D:\\a"); }), 71);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(L"D:\\a", L"C:\\a"); }), 71);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(L"D:\\b"); }), 71);
    EXPECT_EQ(files.Drives().size(), 2U);
    files.SetReady(L"D:", true);
    EXPECT_EQ(files.List(L"D:\\").size(), 1U);
}

TEST_F(MemoryFileSystemTest, DriveThatVanishes) {
    files.AddFile(L"D:\\a");
    files.RemoveDrive(L"D:");
    EXPECT_EQ(ThrownNumber([&] { files.List(L"D:\\"); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.Find(L"D:\\a"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.Read(L"D:\\a"); }), 76);
    EXPECT_EQ(files.Drives().size(), 1U);
}

TEST_F(MemoryFileSystemTest, DeletingATreeSparesWhatIsInUse) {
    files.AddFile(L"C:\\t\\free", "1", {.readOnly = true});
    files.AddFile(L"C:\\t\\sub\\held", "2");
    files.AddLink(L"C:\\t\\link", L"D:\\");
    files.AddFile(L"D:\\kept", "3");
    files.Lock(L"C:\\t\\sub\\held");
    files.DeleteTree(L"C:\\t");
    const MemoryFileSystem::Tree expected = {
        {L"C:\\t\\", ""}, {L"C:\\t\\sub\\", ""}, {L"C:\\t\\sub\\held", "2"}, {L"D:\\kept", "3"}};
    EXPECT_EQ(files.Snapshot(), expected);
    files.Unlock(L"C:\\t\\sub\\held");
    files.DeleteTree(L"C:\\t");
    EXPECT_FALSE(files.Exists(L"C:\\t"));
    EXPECT_TRUE(files.Exists(L"D:\\kept"));
}

TEST_F(MemoryFileSystemTest, HeldFileIsWaitedForUntilItsHolderLetsGo) {
    files.AddFile(L"C:\\a", "old");
    files.HoldFor(L"C:\\a", 3);
    files.Write(L"C:\\a", "new");
    EXPECT_EQ(files.Contents(L"C:\\a"), "new");
    EXPECT_EQ(files.Waited(), Patience::Milliseconds{10 + 20 + 40});
    files.HoldFor(L"C:\\a", 100'000);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(L"C:\\a"); }), 70);
    EXPECT_EQ(files.Contents(L"C:\\a"), "new");
    EXPECT_GE(files.Waited(), Patience::usual);
    EXPECT_LE(files.Waited(), Patience::usual + Patience::Milliseconds{200});
}

TEST_F(MemoryFileSystemTest, DeletedFileStaysListedUntilItsHolderLetsGo) {
    files.AddFile(L"C:\\t\\a", "old");
    files.HoldFor(L"C:\\t\\a", 2, MemoryFileSystem::HolderShares::Deletion);
    files.Delete(L"C:\\t\\a");
    EXPECT_EQ(files.List(L"C:\\t").size(), 1U);
    files.Write(L"C:\\t\\a", "new");
    EXPECT_EQ(files.Contents(L"C:\\t\\a"), "new");
    files.HoldFor(L"C:\\t\\a", 2, MemoryFileSystem::HolderShares::Deletion);
    files.Delete(L"C:\\t\\a");
    files.RemoveFolder(L"C:\\t");
    EXPECT_FALSE(files.Exists(L"C:\\t"));
}

TEST_F(MemoryFileSystemTest, DeletionThatIsPendingForTooLongKeepsTheFolder) {
    files.AddFile(L"C:\\t\\a", "old");
    files.HoldFor(L"C:\\t\\a", 1'000, MemoryFileSystem::HolderShares::Deletion);
    files.Delete(L"C:\\t\\a");
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(L"C:\\t"); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Read(L"C:\\t\\a"); }), 70);
}

TEST_F(MemoryFileSystemTest, DeniedFolderIsSeenAndNotEntered) {
    files.AddFile(L"C:\\t\\sub\\a");
    files.AddFile(L"C:\\t\\b");
    files.DenyAccess(L"C:\\t\\sub");
    EXPECT_TRUE(files.Find(L"C:\\t\\sub"));
    for (const int number : {ThrownNumber([&] { files.List(L"C:\\t\\sub"); }),
                             ThrownNumber([&] { files.List(L"C:\\t\\sub\\below"); }),
                             ThrownNumber([&] { files.Find(L"C:\\t\\sub\\a"); }),
                             ThrownNumber([&] { files.Write(L"C:\\t\\sub\\b", ""); }),
                             ThrownNumber([&] { files.MakeFolder(L"C:\\t\\sub\\c"); })})
        EXPECT_EQ(number, 75);
    files.DeleteTree(L"C:\\t\\sub\\a");
    EXPECT_FALSE(files.RecycleTree(L"C:\\t"));
    files.DeleteTree(L"C:\\t");
    EXPECT_TRUE(files.Exists(L"C:\\t\\sub\\a"));
    EXPECT_FALSE(files.Exists(L"C:\\t\\b"));
    files.AllowAccess(L"C:\\t\\sub");
    files.DeleteTree(L"C:\\t");
    EXPECT_FALSE(files.Exists(L"C:\\t"));
}

TEST_F(MemoryFileSystemTest, PowerCutLosesWhatWasNotFlushedAndStopsEverything) {
    files.AddFile(L"C:\\loose", "unpacked");
    files.LeaveUnflushed(L"C:\\loose");
    files.AddFile(L"C:\\firm", "old");
    files.CutPower(3);
    files.Rename(L"C:\\loose", L"C:\\moved");
    files.Write(L"C:\\second", "flushed");
    EXPECT_THROW(files.Write(L"C:\\firm", "new"), MemoryFileSystem::PowerCut);
    EXPECT_THROW(files.Find(L"C:\\"), MemoryFileSystem::PowerCut);
    files.ReturnPower();
    EXPECT_EQ(files.Read(L"C:\\moved"), "");
    EXPECT_EQ(files.Read(L"C:\\second"), "flushed");
    EXPECT_EQ(files.Read(L"C:\\firm"), "old");
}

TEST_F(MemoryFileSystemTest, PowerCutLeavesAPartOfANewFileAndWhatHasReplacedAnother) {
    files.AddFile(L"C:\\from", "new");
    files.AddFile(L"C:\\to", "old");
    files.LeaveUnflushed(L"C:\\from");
    files.CutPower(2);
    files.Replace(L"C:\\from", L"C:\\to");
    EXPECT_THROW(files.Write(L"C:\\new", "1234"), MemoryFileSystem::PowerCut);
    files.ReturnPower();
    EXPECT_EQ(files.Read(L"C:\\new"), "12");
    EXPECT_EQ(files.Read(L"C:\\to"), "new");
}

} // namespace
} // namespace tamblin
