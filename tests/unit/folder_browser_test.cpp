// The folder tree and the file list: rows, paths, what is offered, drives that are not ready.
#include "install/folder_browser.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t Desktop[] = L"ﾃﾞｽｸﾄｯﾌﾟ";
constexpr wchar_t NotReady[] = L"ドライブの準備ができていません。";

class FolderBrowserTest : public testing::Test {
  protected:
    FolderBrowserTest() {
        files.AddDrive(L"D:");
        fake.shell.desktopFolder = L"C:\\Users\\me\\Desktop";
        files.AddFolder(L"C:\\Users\\me\\Desktop\\one");
        files.AddFile(L"C:\\Users\\me\\Desktop\\two\\b.lzh");
        files.AddFile(L"C:\\Users\\me\\Desktop\\a.lzh");
        files.AddFolder(L"C:\\A\\B\\x");
        files.AddFolder(L"C:\\A\\B\\y");
        files.AddFolder(L"C:\\A\\other");
        files.AddFile(L"C:\\A\\B\\p.lzh");
    }
    void Show(const std::wstring& folder) {
        start = folder;
        browser.RebuildBrowser();
    }
    std::wstring SelectedText() const { return browser.Rows().at(browser.SelectedRow()); }
    const std::vector<std::wstring>& Files() { return browser.Files().Entries(); }
    // Double-clicks the row with this text.
    void Open(const std::wstring& row) {
        const auto& rows = browser.Rows();
        const auto found = std::find(rows.begin(), rows.end(), row);
        ASSERT_NE(found, rows.end());
        browser.OpenTreeRow(static_cast<size_t>(found - rows.begin()));
    }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    std::wstring start;
    FolderBrowser browser{fake.platform, start, [](const std::wstring&, const std::wstring&) {
                              return true;
                          }};
};

// --- Rows ---------------------------------------------------------------------------------------

TEST_F(FolderBrowserTest, DriveRootShowsItsSubfoldersBelowTheDrive) {
    Show(L"C:\\");
    EXPECT_THAT(browser.Rows(),
                ElementsAre(Desktop, L"C:", L"  + A", L"  + Tamblin", L"  + Users", L"D:"));
    EXPECT_THAT(browser.Paths(), ElementsAre(L"C:\\Users\\me\\Desktop\\", L"C:", L"C:\\A",
                                             L"C:\\Tamblin", L"C:\\Users", L"D:"));
    EXPECT_EQ(SelectedText(), L"C:");
}

TEST_F(FolderBrowserTest, FolderShowsItsAncestorsAndItsSubfolders) {
    Show(L"C:\\A\\B\\");
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"  + A", L"    + B", L"      + x",
                                            L"      + y", L"D:"));
    EXPECT_THAT(browser.Paths(), ElementsAre(L"C:\\Users\\me\\Desktop\\", L"C:", L"C:\\A",
                                             L"C:\\A\\B", L"C:\\A\\B\\x", L"C:\\A\\B\\y", L"D:"));
    EXPECT_EQ(SelectedText(), L"    + B");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\B\\");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\B\\");
}

TEST_F(FolderBrowserTest, FolderIsFoundOnAnyLevelInAnyLettersOnAnyDrive) {
    Show(L"C:\\A");
    EXPECT_THAT(browser.Rows(),
                ElementsAre(Desktop, L"C:", L"  + A", L"    + B", L"    + other", L"D:"));
    EXPECT_EQ(SelectedText(), L"  + A");
    EXPECT_EQ(start, L"C:\\A\\"); // kept with a trailing backslash
    Show(L"c:\\a\\b");
    EXPECT_EQ(SelectedText(), L"    + B");
    EXPECT_EQ(browser.Paths()[browser.SelectedRow()], L"C:\\A\\B");
    files.AddFolder(L"C:\\表ソ能\\ｶﾅ\\ア");
    Show(L"C:\\表ソ能\\ｶﾅ");
    EXPECT_THAT(browser.Rows(),
                ElementsAre(Desktop, L"C:", L"  + 表ソ能", L"    + ｶﾅ", L"      + ア", L"D:"));
    files.AddFolder(L"D:\\d\\e");
    Show(L"D:\\d");
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"D:", L"  + d", L"    + e"));
}

TEST_F(FolderBrowserTest, HiddenFoldersAreListedAndHiddenFilesAreNot) {
    files.AddFolder(L"D:\\h", {.hidden = true, .system = true});
    files.AddFile(L"D:\\a.lzh", "", {.hidden = true});
    files.AddFile(L"D:\\b.lzh", "", {.system = true});
    files.AddFile(L"D:\\c.lzh", "", {.readOnly = true});
    Show(L"D:\\");
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"D:", L"  + h"));
    EXPECT_THAT(Files(), ElementsAre(L"c.lzh"));
}

TEST_F(FolderBrowserTest, RebuildStartsFromScratch) {
    Show(L"C:\\A\\B");
    files.AddFolder(L"D:\\new");
    Show(L"D:\\");
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"D:", L"  + new"));
    EXPECT_EQ(browser.Rows().size(), browser.Paths().size());
    EXPECT_THAT(Files(), IsEmpty());
}

// --- The desktop --------------------------------------------------------------------------------

TEST_F(FolderBrowserTest, DesktopFolderIsShownBelowTheDesktopRow) {
    Show(L"C:\\Users\\me\\Desktop");
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"  + one", L"  + two", L"C:", L"D:"));
    EXPECT_EQ(browser.Paths()[1], L"C:\\Users\\me\\Desktop\\one");
    EXPECT_EQ(SelectedText(), Desktop);
    EXPECT_EQ(browser.ShownFolder(), L"C:\\Users\\me\\Desktop\\");
    EXPECT_THAT(Files(), ElementsAre(L"a.lzh"));
}

TEST_F(FolderBrowserTest, ParkedFolderIsTakenBackByTheNextRebuild) {
    Show(L"C:\\Users\\me\\Desktop\\two");
    EXPECT_EQ(start, L"");
    EXPECT_EQ(SelectedText(), L"  + two");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\Users\\me\\Desktop\\two\\");
    const auto rows = browser.Rows();
    browser.RebuildBrowser();
    EXPECT_EQ(browser.Rows(), rows);
    EXPECT_EQ(browser.ShownFolder(), L"C:\\Users\\me\\Desktop\\two\\");
    EXPECT_THAT(Files(), ElementsAre(L"b.lzh"));
}

TEST_F(FolderBrowserTest, DoubleClickOnTheDesktopRowOpensTheDesktopOnItsDrive) {
    Show(L"D:\\");
    Open(Desktop);
    EXPECT_EQ(start, L"C:\\Users\\me\\Desktop\\");
    EXPECT_EQ(SelectedText(), L"      + Desktop");
    EXPECT_THAT(Files(), ElementsAre(L"a.lzh"));
    browser.RebuildBrowser(); // by activation: now the desktop branch
    EXPECT_EQ(SelectedText(), Desktop);
}

TEST_F(FolderBrowserTest, DesktopThatTheShellDoesNotKnowKeepsItsFormerPathIfAny) {
    const auto desktop = std::exchange(fake.shell.desktopFolder, std::nullopt);
    Show(L"D:\\");
    browser.OpenTreeRow(0);
    EXPECT_EQ(start, L"D:\\");
    EXPECT_EQ(browser.ShownFolder(), L"D:\\");
    fake.shell.desktopFolder = desktop;
    browser.RebuildBrowser();
    fake.shell.desktopFolder.reset();
    browser.RebuildBrowser();
    EXPECT_THAT(browser.Rows(), ElementsAre(Desktop, L"C:", L"D:"));
    EXPECT_EQ(browser.Paths()[0], L"C:\\Users\\me\\Desktop\\");
}

// Whether the browser stands on the desktop is told by the letters as they are.
TEST_F(FolderBrowserTest, FolderThatIsOnlyLikeTheDesktopIsNotOnIt) {
    files.AddFolder(L"C:\\Users\\me\\Desktop2");
    Show(L"C:\\Users\\me\\Desktop2");
    EXPECT_EQ(SelectedText(), L"      + Desktop2");
    Show(L"C:\\users\\me\\desktop");
    EXPECT_EQ(start, L"C:\\users\\me\\desktop\\");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\users\\me\\desktop\\");
}

// --- Double-clicks ------------------------------------------------------------------------------

TEST_F(FolderBrowserTest, DoubleClickOpensDrivesAncestorsAndSubfoldersAlsoWhileParked) {
    Show(L"C:\\A\\B");
    Open(L"      + x");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\B\\x\\");
    Open(L"  + A");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
    Open(L"D:");
    EXPECT_EQ(browser.ShownFolder(), L"D:\\");
    EXPECT_EQ(start, L"D:\\");
    Show(L"C:\\Users\\me\\Desktop");
    Open(L"  + two");
    EXPECT_EQ(browser.ShownFolder(), L"C:\\Users\\me\\Desktop\\two\\");
    EXPECT_EQ(SelectedText(), L"        + two");
}

TEST_F(FolderBrowserTest, ClicksBelowTheRowsDoNothing) {
    Show(L"D:\\");
    const size_t selected = browser.SelectedRow();
    for (const size_t row : {browser.Rows().size(), browser.Rows().size() + 1, size_t{99}}) {
        browser.OpenTreeRow(row);
        EXPECT_EQ(browser.ShownFolder(), L"D:\\");
        browser.SelectTreeRow(row);
        EXPECT_EQ(browser.SelectedRow(), selected);
    }
    browser.SelectTreeRow(browser.Rows().size() - 1);
    EXPECT_EQ(browser.SelectedRow(), browser.Rows().size() - 1);
}

TEST_F(FolderBrowserTest, TheWayUpEndsAtTheRootAndLeadsNowhereBeforeTheFirstRebuild) {
    browser.GoUp();
    EXPECT_EQ(browser.ShownFolder(), L"");
    Show(L"C:\\A\\B");
    browser.GoUp();
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
    EXPECT_EQ(SelectedText(), L"  + A");
    for (int time = 0; time < 2; ++time) {
        browser.GoUp();
        EXPECT_EQ(browser.ShownFolder(), L"C:\\");
    }
    EXPECT_EQ(start, L"C:\\");
}

TEST_F(FolderBrowserTest, FolderThatCannotBeListedIsNotShown) {
    Show(L"C:\\A\\B");
    EXPECT_FALSE(browser.ShowFolder(L"C:\\gone"));
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\B\\");
    EXPECT_EQ(start, L"C:\\A\\B\\");
    EXPECT_TRUE(browser.ShowFolder(L"C:\\A"));
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
}

TEST_F(FolderBrowserTest, RereadingKeepsTheSelectedRowByItsFolder) {
    Show(L"C:\\A\\B");
    browser.SelectTreeRow(5);
    ASSERT_EQ(SelectedText(), L"      + y");
    files.AddFolder(L"C:\\A\\B\\new");
    files.AddFile(L"C:\\A\\B\\q.lzh");
    browser.Reread();
    EXPECT_EQ(SelectedText(), L"      + y");
    EXPECT_EQ(browser.SelectedRow(), 6U);
    EXPECT_THAT(Files(), ElementsAre(L"p.lzh", L"q.lzh"));
    files.DeleteTree(L"C:\\A\\B\\y");
    browser.Reread();
    EXPECT_EQ(SelectedText(), L"    + B");
}

TEST_F(FolderBrowserTest, RereadingKeepsTheFormOfTheTree) {
    Show(L"C:\\Users\\me\\Desktop");
    const auto below = browser.Rows();
    ASSERT_EQ(below[1], L"  + one");
    browser.Reread();
    EXPECT_EQ(browser.Rows(), below);
    browser.OpenTreeRow(0);
    const auto opened = browser.Rows();
    ASSERT_NE(opened, below);
    browser.Reread();
    browser.Reread();
    EXPECT_EQ(browser.Rows(), opened);
}

TEST_F(FolderBrowserTest, RebuildTellsOnceThatItTookASelection) {
    Show(L"C:\\A\\B");
    EXPECT_FALSE(browser.TakeSelectionLost());
    browser.Files().Select(0);
    browser.RebuildBrowser();
    EXPECT_TRUE(browser.TakeSelectionLost());
    EXPECT_FALSE(browser.TakeSelectionLost());
}

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

TEST_F(FolderBrowserTest, FolderThatCannotBeOpenedLeavesTheBrowserInItsFolder) {
    Show(L"C:\\A");
    files.ForgetOperations();
    files.FailOperation(1, ErrorNumber::PathFileAccess);
    Open(L"    + B");
    files.FailNothing();
    EXPECT_EQ(browser.ShownFolder(), L"C:\\A\\");
    files.AddFile(L"C:\\A\\new.lzh");
    browser.RebuildBrowser();
    EXPECT_THAT(browser.Files().Entries(), testing::Contains(L"new.lzh"));
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
