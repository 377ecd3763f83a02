// Drives that are not ready and folders that cannot be listed; what the file list offers.
#include "unit/folder_browser_scene.h"

namespace tamblin {
namespace {

// --- Failures -----------------------------------------------------------------------------------

class NotReadyDriveTest : public FolderBrowserTest {
  protected:
    NotReadyDriveTest() {
        files.AddFolder(L"D:\\d");
        Show(L"C:\\A");
        files.SetReady(L"D:", false);
    }
};

TEST_F(NotReadyDriveTest, RetryRepeatsTheStepUntilTheDriveIsReady) {
    int asked = 0;
    fake.messages.onShow = [&](const Box&) {
        if (++asked == 3)
            files.SetReady(L"D:", true);
    };
    Open(L"D:");
    const Box box{MessageBoxesFake::Kind::AskRetryCancel, NotReady};
    EXPECT_THAT(fake.messages.shown, ElementsAre(box, box, box));
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"D:", L"  + d"));
    EXPECT_EQ(browser.ShownFolder(), L"D:\\");
}

// The former folder is listed again, and no question comes back with every activation.
TEST_F(NotReadyDriveTest, CancelLeavesTheBrowserUsableInItsFolder) {
    browser.RebuildBrowser(); // which does not show the drive
    EXPECT_THAT(fake.messages.shown, IsEmpty());
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
    fake.messages.answer = false;
    Open(L"D:");
    files.AddFile(L"C:\\A\\new.lzh");
    browser.RebuildBrowser();
    EXPECT_EQ(fake.messages.shown.size(), 1U);
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
    EXPECT_THAT(browser.Files().Entries(), testing::Contains(L"new.lzh"));
    Open(L"C:");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\");
}

// Before there is a tree, the rows that could be listed are shown: there must be a way on.
TEST_F(FolderBrowserTest, CancelInTheFirstRebuildShowsTheRowsBuiltSoFar) {
    fake.messages.answer = false;
    start = L"C:\\A\\B";
    files.ForgetOperations();
    files.FailOperation(3, ErrorNumber::DeviceUnavailable); // the root, on the way down
    browser.RebuildBrowser();
    EXPECT_EQ(fake.messages.shown.size(), 1U);
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:"));
    EXPECT_EQ(SelectedText(), L"C:");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\B\\");
    Open(L"C:");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\");
}

TEST_F(FolderBrowserTest, FirstRebuildOfAFolderThatIsGoneShowsNothing) {
    Show(L"C:\\Gone");
    EXPECT_EQ(browser.ShownFolder(), L"");
    EXPECT_THAT(browser.Rows(), IsEmpty());
}

// Whichever of its listings fails, and whatever the user answers: rows, highlight, path and files.
TEST_F(FolderBrowserTest, FailureLeavesAllAsItWas) {
    fake.messages.answer = false;
    for (const ErrorNumber error :
         {ErrorNumber::DeviceUnavailable, ErrorNumber::PathFileAccess, ErrorNumber::PathNotFound}) {
        for (size_t n = 1; n <= 4; ++n) {
            SCOPED_TRACE(n);
            Show(L"C:\\A");
            browser.SelectTreeRow(1);
            files.AddFile(L"C:\\A\\kept.lzh");
            browser.RebuildBrowser();
            browser.SelectTreeRow(3);
            browser.Files().Select(0);
            browser.TakeSelectionLost();
            const auto rows = browser.Rows();
            const auto paths = browser.Paths();
            files.ForgetOperations();
            files.FailOperation(n, error);
            Open(L"    + B"); // B, the drives, the root, A
            ASSERT_GE(files.OperationCount(), n);
            files.FailNothing();
            EXPECT_EQ(browser.Rows(), rows);
            EXPECT_EQ(browser.Paths(), paths);
            EXPECT_EQ(browser.SelectedRow(), 3U);
            EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
            EXPECT_EQ(start, L"C:\\A\\");
            EXPECT_THAT(SelectedEntries(browser.Files()), ElementsAre(L"kept.lzh"));
            EXPECT_FALSE(browser.TakeSelectionLost());
        }
    }
}

// The rebuild after a Cancel counts as one by a double-click, which never opens the desktop rows.
TEST_F(NotReadyDriveTest, RebuildAfterCancelDoesNotParkTheDesktop) {
    fake.messages.answer = false;
    Open(L"D:");
    start = L"C:\\Users\\me\\Desktop\\two\\";
    browser.RebuildBrowser();
    EXPECT_EQ(start, L"C:\\Users\\me\\Desktop\\two\\");
    browser.RebuildBrowser();
    EXPECT_EQ(start, L"");
}

TEST_F(FolderBrowserTest, OtherFailuresAreSilent) {
    Show(L"C:\\A");
    start = L"C:\\Gone\\";
    browser.RebuildBrowser();
    EXPECT_THAT(fake.messages.shown, IsEmpty());
    EXPECT_LT(browser.SelectedRow(), browser.Rows().size());
    Open(L"D:");
    EXPECT_EQ(browser.ShownFolder(), L"D:\\");
}

TEST_F(FolderBrowserTest, AnyFailingOperationLeavesAUsableTree) {
    for (const ErrorNumber error : {ErrorNumber::PathNotFound, ErrorNumber::DeviceUnavailable,
                                    ErrorNumber::PathFileAccess, ErrorNumber::DeviceIo}) {
        for (const wchar_t* folder : {L"C:\\A\\B", L"D:\\", L"C:\\Users\\me\\Desktop\\two"}) {
            fake.messages.answer = false;
            for (size_t n = 1;; ++n) {
                Show(L"C:\\A\\B");
                files.ForgetOperations();
                files.FailOperation(n, error);
                EXPECT_NO_THROW(Show(folder));
                EXPECT_LT(browser.SelectedRow(), browser.Rows().size());
                EXPECT_EQ(browser.Rows().size(), browser.Paths().size());
                files.FailNothing();
                if (files.OperationCount() < n)
                    break;
                Show(folder);
                EXPECT_EQ(browser.ShownFolder(), WithBackslash(folder));
            }
        }
    }
}

TEST_F(FolderBrowserTest, ListsEachLevelOfThePathOnce) {
    std::wstring deep = L"C:";
    for (int level = 0; level < 10; ++level) {
        deep += L"\\level" + std::to_wstring(level);
        for (int sibling = 0; sibling < 50; ++sibling)
            files.AddFolder(deep + L"\\" + std::to_wstring(sibling) + L"\\below");
    }
    Show(deep);
    files.ForgetOperations();
    browser.RebuildBrowser();
    EXPECT_EQ(browser.Rows().size(), 3U + 10U + 50U);
    EXPECT_LE(files.CountLogged(L"List "), 11U);
    EXPECT_LE(files.OperationCount(), 12U);
}

// --- What the main window's browser offers ------------------------------------------------------

class OfferedFilesTest : public testing::Test {
  protected:
    OfferedFilesTest() {
        for (const wchar_t* name :
             {L"a.lzh", L"B.LZH", L"c.lzh.bak", L"d.obl", L"E.OBL", L"e.txt", L"OMBREL.EXE",
              L"f.exe", L"xombrel.exe", L"lzh", L"ombrel.rc", L"ア.lzh"})
            fake.files.AddFile(std::wstring(L"C:\\Host\\") + name);
        fake.files.AddFolder(L"C:\\Host\\folder.lzh");
        state.BrowseStartFolder = L"C:\\Host";
    }
    const std::vector<std::wstring>& Offered(std::vector<std::wstring> hosts) {
        model.combo.entries = std::move(hosts);
        model.browser.RebuildBrowser();
        return model.browser.Files().Entries();
    }

    PlatformFake fake;
    SettingsState state;
    MainModel model{fake.platform, state};
};

TEST_F(OfferedFilesTest, AreArchivesAndOutsideOfHostsDefinitionsAndTheHostProgram) {
    EXPECT_THAT(Offered({L"C:\\Other", L"C:\\Host\\a", L"C:\\"}),
                ElementsAre(L"a.lzh", L"B.LZH", L"d.obl", L"E.OBL", L"OMBREL.EXE", L"ア.lzh"));
    for (const wchar_t* host : {L"C:\\Host", L"c:\\HOST", L"C:\\Host\\"})
        EXPECT_THAT(Offered({L"C:\\Other", host}), ElementsAre(L"a.lzh", L"B.LZH", L"ア.lzh"))
            << host;
    for (const wchar_t* name : {L"a.lzh", L"d.obl", L"ombrel.exe"})
        fake.files.AddFile(std::wstring(L"C:\\") + name);
    state.BrowseStartFolder = L"C:\\";
    EXPECT_THAT(Offered({L"c:\\"}), ElementsAre(L"a.lzh"));
}

} // namespace
} // namespace tamblin
