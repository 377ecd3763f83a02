// Deleting trees for good and finding the desktop, by the real shell.
#ifdef _WIN32

#include "platform/win32/win32_desktop_shell.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>

#include "platform/win32/win32_file_system.h"
#include "support/folder_link.h"
#include "support/temporary_folder.h"

namespace tamblin {
namespace {

class Win32DesktopShellTest : public testing::Test {
  protected:
    std::wstring In(const std::wstring& name) const { return folder.Path() + L'\\' + name; }
    bool IsThere(const std::wstring& name) { return files.Find(In(name)).has_value(); }

    void MakeTree() {
        files.MakeFolder(In(L"tree"));
        files.MakeFolder(In(L"tree\\sub"));
        files.Write(In(L"tree\\a.txt"), "1");
        files.Write(In(L"tree\\sub\\表.txt"), "2");
        files.SetAttributes(In(L"tree\\a.txt"), {.readOnly = true, .hidden = true});
        files.Write(In(L"beside"), "3");
    }

    TemporaryFolder folder;
    Win32FileSystem files;
    Win32DesktopShell shell;
};

TEST_F(Win32DesktopShellTest, DeletesAndRecyclesATreeWithAllItHolds) {
    for (const bool forGood : {true, false}) {
        MakeTree();
        if (forGood)
            shell.DeleteTree(In(L"tree"));
        else
            shell.MoveToRecycleBin(In(L"tree"));
        EXPECT_FALSE(IsThere(L"tree"));
        EXPECT_TRUE(IsThere(L"beside"));
    }
}

TEST_F(Win32DesktopShellTest, DeletesASingleFileAndTakesPathsAsTheyCome) {
    MakeTree();
    shell.DeleteTree(In(L"beside"));
    EXPECT_FALSE(IsThere(L"beside"));
    files.SetCurrentFolder(folder.Path());
    shell.DeleteTree(L".\\tree\\\\sub");
    EXPECT_FALSE(IsThere(L"tree\\sub"));
    EXPECT_TRUE(IsThere(L"tree\\a.txt"));
}

TEST_F(Win32DesktopShellTest, DeletesNothingThatIsNotOnePath) {
    MakeTree();
    files.SetCurrentFolder(In(L"tree"));
    for (const std::wstring& path : {std::wstring(), In(L"tree\\*"), In(L"*.*"), In(L"nosuch"),
                                     In(L"tree\\"), In(L"tree/"), folder.Path().substr(0, 3)})
        shell.DeleteTree(path);
    files.SetCurrentFolder(folder.Path());
    EXPECT_TRUE(IsThere(L"tree\\a.txt"));
    EXPECT_TRUE(IsThere(L"tree\\sub\\表.txt"));
    EXPECT_TRUE(IsThere(L"beside"));
}

// Windows takes "tree." for "tree"; a folder that other systems have called so must not cost its
// neighbour.
TEST_F(Win32DesktopShellTest, NameThatWindowsWouldChangeDeletesNothing) {
    MakeTree();
    for (const wchar_t* name : {L"tree.", L"tree ", L"tree. .", L"tree\\sub.", L"tree.\\"}) {
        shell.DeleteTree(In(name));
        shell.MoveToRecycleBin(In(name));
    }
    EXPECT_TRUE(IsThere(L"tree\\a.txt"));
    EXPECT_TRUE(IsThere(L"tree\\sub\\表.txt"));
}

struct Deletion {
    std::wstring source; // with every end mark but the last
    UINT operation = 0;
    unsigned flags = 0;
    bool hasOwner = false;

    bool operator==(const Deletion&) const = default;
};

std::vector<Deletion> deletions;

int WINAPI RecordDeletion(SHFILEOPSTRUCTW* request) {
    const wchar_t* end = request->pFrom;
    while (end[0] != L'\0' || end[1] != L'\0')
        ++end;
    deletions.push_back(
        {{request->pFrom, end + 1}, request->wFunc, request->fFlags, request->hwnd != nullptr});
    EXPECT_EQ(request->pTo, nullptr);
    EXPECT_EQ(request->lpszProgressTitle, nullptr);
    return 0;
}

// Neither is silent: of a long deletion the user sees the progress. Where there is no recycle bin
// the user is asked, whatever else goes without a question.
TEST_F(Win32DesktopShellTest, AsksTheShellForOneTreeAtATimeWithoutConfirmation) {
    MakeTree();
    deletions.clear();
    Win32DesktopShell recorded(RecordDeletion);
    recorded.DeleteTree(In(L"tree"));
    recorded.MoveToRecycleBin(In(L"tree\\sub"));
    const std::wstring end(1, L'\0');
    EXPECT_EQ(deletions, (std::vector<Deletion>{{In(L"tree") + end, 3, 0x10, false},
                                                {In(L"tree\\sub") + end, 3, 0x4050, false}}));
}

int WINAPI RefuseDeletion(SHFILEOPSTRUCTW*) {
    return ERROR_SHARING_VIOLATION;
}

TEST_F(Win32DesktopShellTest, TreeThatTheShellDoesNotDeleteKeepsItsLinks) {
    MakeTree();
    files.MakeFolder(In(L"real"));
    if (!MakeJunction(In(L"tree\\sub\\link"), In(L"real")))
        GTEST_SKIP() << "this system has no reparse points";
    Win32DesktopShell refused(RefuseDeletion);
    refused.DeleteTree(In(L"tree"));
    EXPECT_TRUE(files.Find(In(L"tree\\sub\\link"))->attributes.link);
}

TEST_F(Win32DesktopShellTest, JunctionGoesAndWhatItPointsToStays) {
    MakeTree();
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\kept"), "4");
    if (!MakeJunction(In(L"tree\\link"), In(L"real")) || !MakeJunction(In(L"link"), In(L"real")))
        GTEST_SKIP() << "this system has no reparse points";
    shell.DeleteTree(In(L"link"));
    shell.DeleteTree(In(L"tree"));
    EXPECT_FALSE(IsThere(L"link"));
    EXPECT_FALSE(IsThere(L"tree"));
    EXPECT_EQ(files.Read(In(L"real\\kept")), "4");
}

TEST_F(Win32DesktopShellTest, WaitsForFilesThatAnotherProgramHolds) {
    MakeTree();
    HANDLE held = CreateFileW(In(L"tree\\sub\\表.txt").c_str(), GENERIC_READ, FILE_SHARE_READ,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    int pauses = 0;
    const Patience letsGo(Patience::usual, [&](Patience::Milliseconds) {
        if (++pauses == 5)
            CloseHandle(held);
    });
    Win32DesktopShell(SHFileOperationW, letsGo).DeleteTree(In(L"tree"));
    EXPECT_EQ(pauses, 5);
    EXPECT_FALSE(IsThere(L"tree"));
}

void ExpectLinksSpared(const std::wstring& place, Win32FileSystem& files,
                       const std::function<void(const std::wstring&)>& remove) {
    const std::wstring links[] = {place + L"\\tree\\sub\\link", place + L"\\link"};
    files.MakeFolder(place + L"\\real");
    files.Write(place + L"\\real\\kept", "4");
    for (const std::wstring& link : links)
        if (!MakeFolderLink(link, place + L"\\real"))
            GTEST_SKIP() << "links cannot be made here";
    remove(place + L"\\link");
    remove(place + L"\\tree");
    EXPECT_EQ(files.Read(place + L"\\real\\kept"), "4");
    // Wine follows links in every call, so that there they stay, and what holds one stays too.
    EXPECT_EQ(files.Find(place + L"\\link").has_value(), RunsUnderWine());
    EXPECT_EQ(files.Find(place + L"\\tree").has_value(), RunsUnderWine());
}

TEST_F(Win32DesktopShellTest, WhatALinkPointsToIsNeverDeleted) {
    MakeTree();
    ExpectLinksSpared(folder.Path(), files, [&](auto& path) { shell.DeleteTree(path); });
}

TEST_F(Win32DesktopShellTest, WhatALinkPointsToIsNeverRecycled) {
    MakeTree();
    ExpectLinksSpared(folder.Path(), files, [&](auto& path) { shell.MoveToRecycleBin(path); });
}

TEST_F(Win32DesktopShellTest, KnowsTheDesktop) {
    const auto desktop = shell.DesktopFolder();
    ASSERT_TRUE(desktop);
    EXPECT_EQ(desktop->substr(1, 2), L":\\");
    EXPECT_FALSE(desktop->ends_with(L'\\'));
}

} // namespace
} // namespace tamblin

#endif
