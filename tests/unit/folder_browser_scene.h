// Drives with folders to browse, a desktop among them.
#pragma once

#include "install/folder_browser.h"
#include "unit/rules_fixture.h"

namespace tamblin {

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

} // namespace tamblin
