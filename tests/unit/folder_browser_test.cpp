// The folder tree and the file list: rows, paths, double-clicks.
#include "unit/folder_browser_scene.h"

namespace tamblin {
namespace {

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
    browser.GoUp();
    EXPECT_EQ(browser.ShownFolder(), L"C:\\");
    const auto log = files.Log();
    browser.GoUp();
    EXPECT_EQ(browser.ShownFolder(), L"C:\\");
    EXPECT_EQ(files.Log(), log);
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
    for (int time = 0; time < 2; ++time) // of which the second finds none to take
        browser.RebuildBrowser();
    EXPECT_TRUE(browser.TakeSelectionLost());
    EXPECT_FALSE(browser.TakeSelectionLost());
}

} // namespace
} // namespace tamblin
