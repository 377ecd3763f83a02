// Files in use, links to elsewhere, other names of a folder.
#include "file_system_contract.h"

#include "base/text.h"

namespace tamblin {
namespace {

// --- What others do -------------------------------------------------------------------------

TEST_P(FileSystemContract, FileInUseElsewhere) {
    files.Write(In(L"a"), "old");
    files.Write(In(L"free"), "free");
    disk->Lock(In(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"a"), "new"); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"free"), In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"free"), In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"a")); }), 70);
    EXPECT_TRUE(IsThere(L"a"));
    EXPECT_EQ(files.List(folder).size(), 2U);
    disk->Unlock(In(L"a"));
    files.CheckReplaceable(In(L"a"));
    EXPECT_EQ(files.Read(In(L"a")), "old");
}

// Wine renames it.
TEST_P(FileSystemContract, FolderThatHoldsAFileInUseIsNotRenamed) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine looks at the folder only";
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"sub\\a"), "1");
    disk->Lock(In(L"sub\\a"));
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"other")); }), 75);
    disk->Unlock(In(L"sub\\a"));
}

TEST_P(FileSystemContract, LinkLeadsToAFolderElsewhere) {
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\a"), "1");
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "links cannot be made here";
    ASSERT_TRUE(IsThere(L"link"));
    EXPECT_EQ(files.Find(In(L"link"))->attributes, (FileAttributes{.folder = true, .link = true}));
    EXPECT_TRUE(files.List(folder)[0].attributes.link);
    EXPECT_THAT(NamesOf(files.List(In(L"link"))), ElementsAre(L"a"));
    EXPECT_EQ(files.Read(In(L"link\\a")), "1");
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"link")); }), 75);
    files.SetCurrentFolder(In(L"link"));
    EXPECT_EQ(files.CurrentFolder(), In(L"link"));
    files.SetCurrentFolder(folder);
}

TEST_P(FileSystemContract, VolumesAreTheRootsOfDrives) {
    const std::wstring root = Root();
    const auto volume = files.FixedVolumeAt(root);
    ASSERT_TRUE(volume);
    EXPECT_EQ(files.FixedVolumeAt(root), volume);
    EXPECT_FALSE(files.FixedVolumeAt(folder));
    EXPECT_FALSE(files.FixedVolumeAt(In(L"nosuch")));
    EXPECT_FALSE(files.FixedVolumeAt(disk->MissingDrive() + L"\\"));
}

TEST_P(FileSystemContract, LinkToAFolderIsNoVolume) {
    files.MakeFolder(In(L"real"));
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "no links here";
    EXPECT_FALSE(files.FixedVolumeAt(In(L"link")));
}

TEST_P(FileSystemContract, RealPathIsTheSameByWhateverWayOneComes) {
    files.MakeFolder(In(L"real"));
    files.MakeFolder(In(L"real\\below"));
    const std::wstring real = files.RealPath(In(L"real"));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"REAL\\")), real));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"real\\Below")), real + L"\\below"));
    EXPECT_FALSE(EqualIgnoringCase(files.RealPath(folder), real));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"nosuch")), In(L"nosuch")));
    EXPECT_EQ(files.RealPath(disk->MissingDrive() + L"\\a"), disk->MissingDrive() + L"\\a");
    if (!disk->IsWine() && disk->MakeLink(In(L"link"), In(L"real"))) { // which knows drives only
        EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"link\\below")), real + L"\\below"));
    }
}

// Wine follows the link in every call, so that there it can only be left alone.
TEST_P(FileSystemContract, RenamingAndRemovingALinkLeavesWhatItPointsTo) {
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\a"), "1");
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "links cannot be made here";
    if (disk->IsWine()) {
        EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"link"), In(L"moved")); }), 75);
        EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"link")); }), 75);
        EXPECT_TRUE(IsThere(L"link"));
    } else {
        files.Rename(In(L"link"), In(L"moved"));
        EXPECT_EQ(files.Read(In(L"moved\\a")), "1");
        files.RemoveFolder(In(L"moved"));
        EXPECT_FALSE(IsThere(L"moved"));
    }
    EXPECT_EQ(files.Read(In(L"real\\a")), "1");
}

} // namespace
} // namespace tamblin
