// What the real file system does beyond the contract: times, foreign attributes, error boxes, the
// translation of paths.
#ifdef _WIN32

#include "platform/win32/win32_file_system.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_path.h"
#include "support/temporary_folder.h"
#include "support/thrown_number.h"

namespace tamblin {
namespace {

class Win32FileSystemTest : public testing::Test {
  protected:
    std::wstring In(const std::wstring& name) const { return folder.Path() + L'\\' + name; }

    TemporaryFolder folder;
    Win32FileSystem files;
};

FILETIME TimeOfChange(const std::wstring& file) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_TRUE(GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data));
    return data.ftLastWriteTime;
}

TEST_F(Win32FileSystemTest, CopyTakesTheTimeOfChangeAlong) {
    files.Write(In(L"a"), "1");
    const HANDLE handle =
        CreateFileW(In(L"a").c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    const FILETIME longAgo{0, 0x01C00000};
    ASSERT_TRUE(SetFileTime(handle, nullptr, nullptr, &longAgo));
    CloseHandle(handle);
    files.Copy(In(L"a"), In(L"b"));
    EXPECT_EQ(TimeOfChange(In(L"b")).dwHighDateTime, longAgo.dwHighDateTime);
}

TEST_F(Win32FileSystemTest, FailedCopyLeavesAHiddenTargetHidden) {
    files.Write(In(L"to"), "old");
    files.SetAttributes(In(L"to"), {.hidden = true, .archive = true});
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"nosuch"), In(L"to")); }), 53);
    EXPECT_TRUE(files.Find(In(L"to"))->attributes.hidden);
    EXPECT_EQ(files.Read(In(L"to")), "old");
}

TEST_F(Win32FileSystemTest, ReadsFilesThatAnotherProgramIsWriting) {
    files.Write(In(L"a"), "1");
    const HANDLE writer = CreateFileW(In(L"a").c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    EXPECT_EQ(files.Read(In(L"a")), "1");
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"a"), "2"); }), 70);
    CloseHandle(writer);
}

TEST_F(Win32FileSystemTest, ListsManyEntriesCompletely) {
    for (int index = 0; index < 500; ++index)
        files.MakeFolder(In(L"folder " + std::to_wstring(index)));
    EXPECT_EQ(files.List(folder.Path()).size(), 500U);
}

TEST_F(Win32FileSystemTest, ShowsNoBoxesForEmptyDrivesWhileItExists) {
    EXPECT_NE(GetErrorMode() & SEM_FAILCRITICALERRORS, 0U);
}

TEST_F(Win32FileSystemTest, ServersThatAreNotThereAreMissingDrives) {
    const std::wstring nowhere = L"\\\\tamblin-no-such-server\\share";
    EXPECT_EQ(ThrownNumber([&] { files.Find(nowhere + L"\\a"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.List(nowhere); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.Read(nowhere + L"\\a"); }), 76);
}

TEST(Win32Attributes, OnlyLinksElsewhereAreLinks) {
    WIN32_FIND_DATAW found{};
    found.dwFileAttributes = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    found.dwReserved0 = IO_REPARSE_TAG_MOUNT_POINT;
    EXPECT_TRUE(AttributesOf(found).link);
    EXPECT_FALSE(IsHostLink(found));
    found.dwReserved0 = IO_REPARSE_TAG_SYMLINK;
    EXPECT_TRUE(AttributesOf(found).link);
    found.dwReserved0 = 0x9000001A; // a folder kept in a cloud
    EXPECT_FALSE(AttributesOf(found).link);
    found.dwReserved0 = 0;
    EXPECT_TRUE(IsHostLink(found));
    found.dwFileAttributes = FILE_ATTRIBUTE_REPARSE_POINT; // a link to a file
    found.dwReserved0 = IO_REPARSE_TAG_SYMLINK;
    EXPECT_EQ(AttributesOf(found), FileAttributes{});
    found.dwFileAttributes = FILE_ATTRIBUTE_DIRECTORY; // the tag then means something else
    EXPECT_FALSE(AttributesOf(found).link);
}

TEST(Win32Attributes, ForeignBitsNeverReachTheProgram) {
    WIN32_FIND_DATAW found{};
    found.dwFileAttributes =
        FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_NORMAL;
    EXPECT_EQ(AttributesOf(found), FileAttributes{});
    EXPECT_EQ(WithAttributes(found.dwFileAttributes, {.hidden = true}),
              DWORD{FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_HIDDEN});
    EXPECT_EQ(WithAttributes(FILE_ATTRIBUTE_READONLY, {}), DWORD{FILE_ATTRIBUTE_NORMAL});
}

TEST(Win32Path, LongPathsGetTheFormThatLiftsTheLimit) {
    const std::wstring name(242, L'n');
    EXPECT_EQ(PathForWindows(L"C:\\a"), L"C:\\a");
    EXPECT_EQ(PathForWindows(L"C:\\" + name + L"\\b"), L"C:\\" + name + L"\\b");
    EXPECT_EQ(PathForWindows(L"C:\\a\\" + name + L"\\b"), L"\\\\?\\C:\\a\\" + name + L"\\b");
    EXPECT_EQ(PathForWindows(L"\\\\server\\share\\" + name), L"\\\\?\\UNC\\server\\share\\" + name);
}

TEST(Win32Path, RootsOfDrivesAndShares) {
    EXPECT_EQ(RootOf(L"C:\\a\\b"), L"C:\\");
    EXPECT_EQ(RootOf(L"\\\\server\\share\\a"), L"\\\\server\\share\\");
    EXPECT_EQ(RootOf(L"\\\\server\\share"), L"\\\\server\\share\\");
    EXPECT_TRUE(IsRoot(L"C:\\"));
    EXPECT_TRUE(IsRoot(L"\\\\server\\share"));
    EXPECT_FALSE(IsRoot(L"C:\\a"));
}

TEST(Win32Path, FullPathsHaveNoBackslashAtTheEndButForRoots) {
    EXPECT_EQ(FullPath(L"C:\\a\\.\\b\\..\\\\c\\"), L"C:\\a\\c");
    EXPECT_EQ(FullPath(L"C:\\a\\.."), L"C:\\");
    EXPECT_EQ(FullPath(L"C:/a"), L"C:\\a");
    EXPECT_EQ(ThrownNumber([] { FullPath(L"C:\\a?"); }), 52);
    const std::wstring deep = L"C:\\" + std::wstring(200, L'a') + L"\\" + std::wstring(200, L'b');
    EXPECT_EQ(FullPath(deep + L"\\"), deep);
}

} // namespace
} // namespace tamblin

#endif
