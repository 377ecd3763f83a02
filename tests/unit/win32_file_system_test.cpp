// What the real file system does beyond the contract: times, foreign attributes, error boxes, the
// translation of paths.
#ifdef _WIN32

#include "platform/win32/win32_file_system.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

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

TEST_F(Win32FileSystemTest, ErrorsNameInFullWhatTheyAreAbout) {
    const auto expectNamed = [&](const wchar_t* named, const std::function<void()>& operation) {
        try {
            operation();
            ADD_FAILURE();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Path(), In(named));
        }
    };
    const std::wstring former = files.CurrentFolder();
    files.Write(In(L"a"), "1");
    files.Write(In(L"b"), "2");
    expectNamed(L"nosuch", [&] { files.Copy(In(L"nosuch"), In(L"b")); });
    expectNamed(L"b", [&] { files.Rename(In(L"a"), In(L"b")); });
    files.SetCurrentFolder(folder.Path());
    expectNamed(L"nosuch", [&] { files.Read(L"nosuch"); });
    files.SetCurrentFolder(former);
}

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

// The name is as long as names can be, so that the one beside it has to be shorter.
TEST_F(Win32FileSystemTest, FileWithALongNameIsReplaced) {
    const std::wstring path = In(std::wstring(255, L'a'));
    files.Write(path, "1");
    files.Write(path, "2");
    EXPECT_EQ(files.Read(path), "2");
    EXPECT_EQ(files.List(folder.Path()).size(), 1U);
}

std::vector<std::byte> PermissionsOf(const std::wstring& path) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> descriptor(size);
    EXPECT_TRUE(
        GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size));
    return descriptor;
}

// Takes their rights from those who come last in the descriptor.
void MakePrivate(const std::wstring& path) {
    std::vector<std::byte> descriptor = PermissionsOf(path);
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    ASSERT_TRUE(GetSecurityDescriptorDacl(descriptor.data(), &present, &list, &defaulted));
    ASSERT_GT(list->AceCount, 1U);
    ASSERT_TRUE(DeleteAce(list, list->AceCount - 1U));
    SECURITY_DESCRIPTOR only;
    ASSERT_TRUE(InitializeSecurityDescriptor(&only, SECURITY_DESCRIPTOR_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&only, TRUE, list, FALSE));
    ASSERT_TRUE(SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, &only));
}

TEST_F(Win32FileSystemTest, ReplacedFilesKeepTheirPermissions) {
    for (const wchar_t* name : {L"written", L"copied", L"replaced"}) {
        files.Write(In(name), "old");
        const auto usual = PermissionsOf(In(name));
        MakePrivate(In(name));
        const auto own = PermissionsOf(In(name));
        ASSERT_NE(own, usual);
        files.Write(In(L"from"), "new");
        if (name == std::wstring(L"written"))
            files.Write(In(name), "new");
        else if (name == std::wstring(L"copied"))
            files.Copy(In(L"from"), In(name));
        else
            files.Replace(In(L"from"), In(name));
        EXPECT_EQ(files.Read(In(name)), "new");
        EXPECT_EQ(PermissionsOf(In(name)), own) << name;
    }
}

TEST_F(Win32FileSystemTest, FolderMadeLikeAnotherHasItsPermissions) {
    files.MakeFolder(In(L"model"));
    files.MakeFolder(In(L"plain"));
    MakePrivate(In(L"model"));
    files.MakeFolderLike(In(L"like"), In(L"model"));
    EXPECT_EQ(PermissionsOf(In(L"like")), PermissionsOf(In(L"model")));
    EXPECT_NE(PermissionsOf(In(L"like")), PermissionsOf(In(L"plain")));
    files.Write(In(L"like\\a"), "1");
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
    EXPECT_FALSE(IsUnixLink(found));
    found.dwReserved0 = IO_REPARSE_TAG_SYMLINK;
    EXPECT_TRUE(AttributesOf(found).link);
    found.dwReserved0 = 0x9000001A; // a folder kept in a cloud
    EXPECT_FALSE(AttributesOf(found).link);
    found.dwReserved0 = 0;
    EXPECT_TRUE(IsUnixLink(found));
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
