// What the user sees of an extraction: nothing of a short one, a bar over the main window during a
// long one, windows that are painted all the time, the busy pointer.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <atomic>
#include <filesystem>
#include <fstream>

#include "platform/win32/progress_window.h"
#include "platform/win32/win32_unlha.h"
#include "support/lzh_writer.h"
#include "support/temporary_folder.h"
#include "windows/progress_scene.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class UnlhaWindow : public testing::Test {
  protected:
    UnlhaWindow() { SetCurrentDirectoryW(temporary.Path().c_str()); }

    void Save(const std::string& archive) {
        std::ofstream(std::filesystem::path(path), std::ios::binary) << archive;
    }

    std::int16_t Run() { return Win32Unlha().Run(owner, L"x \"" + path + L"\"", L"", 0); }

    // Takes some seconds, however fast data are unpacked: every file takes the place of the one
    // before.
    static std::string LongArchive() {
        lzh::LzhWriter writer;
        for (int i = 0; i < 6000; ++i)
            writer.AddFile(L"same name", "text");
        return writer.Finish();
    }

    TemporaryFolder temporary;
    const std::wstring path = temporary.Path() + L"\\a.lzh";
    const ProgressOwner ownerWindow;
    const HWND owner = ownerWindow.Handle();
};

TEST_F(UnlhaWindow, ShortExtractionShowsNothing) {
    Save(lzh::LzhWriter().AddFile(L"a", "text").Finish());
    const ULONGLONG start = GetTickCount64();
    std::atomic<ULONGLONG> firstSeen = 0;
    {
        const Watcher watcher([&] {
            if (firstSeen == 0 && ShownProgressWindow() != nullptr)
                firstSeen = GetTickCount64();
        });
        EXPECT_EQ(Run(), 0);
    }
    // On a machine under load even this may become a long one.
    if (firstSeen != 0) {
        EXPECT_GE(firstSeen - start, 450u);
    }
}

TEST_F(UnlhaWindow, LongExtractionShowsABarAndEverythingStaysPainted) {
    Save(LongArchive());
    std::atomic<bool> hasOwner = false;
    std::atomic<bool> namesArchive = false;
    std::atomic<int> first = -1;
    std::atomic<int> last = -1;
    const ULONGLONG start = GetTickCount64();
    std::atomic<ULONGLONG> firstSeen = 0;
    {
        const Watcher watcher([&] {
            ownerWindow.Invalidate();
            ownerWindow.SendClick();
            const HWND window = ShownProgressWindow();
            const HWND bar = ShownProgressBar();
            if (bar == nullptr)
                return;
            if (firstSeen == 0)
                firstSeen = GetTickCount64();
            hasOwner = GetWindow(window, GW_OWNER) == owner;
            namesArchive = namesArchive || Says(window, L"a.lzh");
            const auto part = static_cast<int>(SendMessageW(bar, PBM_GETPOS, 0, 0));
            if (!IsWindow(bar)) // gone meanwhile, it has answered nothing
                return;
            if (first < 0)
                first = part;
            EXPECT_GE(part, last);
            last = part;
        });
        EXPECT_EQ(Run(), 0);
    }
    EXPECT_GE(firstSeen - start, 450u);
    EXPECT_TRUE(hasOwner);
    EXPECT_TRUE(namesArchive);
    EXPECT_GT(last, first);
    EXPECT_LE(last, 1000);
    EXPECT_GE(ProgressOwner::paintings, 5);
    EXPECT_EQ(ProgressOwner::clicks, 0);
    EXPECT_EQ(ShownProgressWindow(), nullptr);
}

// The owner's font has the density of the monitor that both stand on.
TEST_F(UnlhaWindow, ProgressWindowGrowsWithItsOwnersFont) {
    LOGFONTW description{};
    description.lfHeight = -20;
    ProgressOwner::font = CreateFontIndirectW(&description);
    RECT usual{};
    {
        const ProgressWindow progress(owner, L"", L"a.lzh");
        usual = ClientAreaOf(ShownProgressWindow());
        const HWND label = FindWindowExW(ShownProgressWindow(), nullptr, L"Static", nullptr);
        LOGFONTW shown{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof shown,
                   &shown);
        EXPECT_EQ(shown.lfHeight, -20);
    }
    DeleteObject(ProgressOwner::font);
    description.lfHeight = -40;
    ProgressOwner::font = CreateFontIndirectW(&description);
    {
        const ProgressWindow progress(owner, L"", L"a.lzh");
        EXPECT_EQ(ClientAreaOf(ShownProgressWindow()).right, 2 * usual.right);
        EXPECT_EQ(ClientAreaOf(ShownProgressWindow()).bottom, 2 * usual.bottom);
    }
    DeleteObject(ProgressOwner::font);
    ProgressOwner::font = nullptr;
}

TEST_F(UnlhaWindow, PointerIsAsBeforeAfterwards) {
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    SetCursor(arrow);
    Save("no archive");
    EXPECT_NE(Run(), 0);
    EXPECT_EQ(GetCursor(), arrow);
}

} // namespace
} // namespace tamblin
