// What the user sees of an extraction: nothing of a short one, a bar over the main window during a
// long one, windows that are painted all the time, the busy pointer.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "platform/win32/lzh_progress_window.h"
#include "platform/win32/win32_unlha.h"
#include "support/lzh_writer.h"
#include "support/temporary_folder.h"

namespace tamblin {
namespace {

std::atomic<int> paintings = 0;
std::atomic<int> clicks = 0;
HFONT ownersFont = nullptr;

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT)
        ++paintings;
    if (message == WM_LBUTTONDOWN)
        ++clicks;
    if (message == WM_GETFONT)
        return reinterpret_cast<LRESULT>(ownersFont);
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeOwner() {
    WNDCLASSW ownerClass{};
    ownerClass.lpfnWndProc = OwnerProcedure;
    ownerClass.hInstance = GetModuleHandleW(nullptr);
    ownerClass.lpszClassName = L"UnlhaTestOwner";
    RegisterClassW(&ownerClass);
    return CreateWindowW(ownerClass.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                         600, 400, nullptr, nullptr, ownerClass.hInstance, nullptr);
}

// Looks at the screen from another thread, as another program would.
class Watcher {
  public:
    explicit Watcher(std::function<void()> atEachLook)
        : look(std::move(atEachLook)), thread([this] {
              while (!ended) {
                  look();
                  Sleep(20);
              }
          }) {}
    ~Watcher() {
        ended = true;
        thread.join();
    }

  private:
    std::function<void()> look;
    std::atomic<bool> ended = false;
    std::thread thread;
};

HWND ProgressWindow() {
    return FindWindowW(L"Tamblin.Extraction", nullptr);
}

// Whether one of its labels says so.
bool Says(HWND window, const std::wstring& wanted) {
    HWND label = nullptr;
    while ((label = FindWindowExW(window, label, L"Static", nullptr)) != nullptr) {
        wchar_t text[100]{};
        SendMessageW(label, WM_GETTEXT, 100, reinterpret_cast<LPARAM>(text));
        if (text == wanted)
            return true;
    }
    return false;
}

class UnlhaWindow : public testing::Test {
  protected:
    UnlhaWindow() : owner(MakeOwner()) {
        SetCurrentDirectoryW(temporary.Path().c_str());
        paintings = clicks = 0;
    }
    ~UnlhaWindow() override { DestroyWindow(owner); }

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
    const HWND owner;
};

TEST_F(UnlhaWindow, ShortExtractionShowsNothing) {
    Save(lzh::LzhWriter().AddFile(L"a", "text").Finish());
    const ULONGLONG start = GetTickCount64();
    std::atomic<ULONGLONG> firstSeen = 0;
    {
        const Watcher watcher([&] {
            if (firstSeen == 0 && ProgressWindow() != nullptr)
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
            InvalidateRect(owner, nullptr, TRUE);
            PostMessageW(owner, WM_LBUTTONDOWN, 0, 0);
            const HWND window = ProgressWindow();
            const HWND bar =
                window ? FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr) : nullptr;
            if (bar == nullptr || !IsWindowVisible(window))
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
    EXPECT_GE(paintings, 5);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(ProgressWindow(), nullptr);
}

// The owner's font has the density of the monitor that both stand on.
TEST_F(UnlhaWindow, ProgressWindowGrowsWithItsOwnersFont) {
    const auto sizeOf = [](HWND window) {
        RECT area{};
        GetClientRect(window, &area);
        return area;
    };
    LOGFONTW description{};
    description.lfHeight = -20;
    ownersFont = CreateFontIndirectW(&description);
    RECT usual{};
    {
        const LzhProgressWindow progress(owner, L"a.lzh");
        usual = sizeOf(ProgressWindow());
        const HWND label = FindWindowExW(ProgressWindow(), nullptr, L"Static", nullptr);
        LOGFONTW shown{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof shown,
                   &shown);
        EXPECT_EQ(shown.lfHeight, -20);
    }
    DeleteObject(ownersFont);
    description.lfHeight = -40;
    ownersFont = CreateFontIndirectW(&description);
    {
        const LzhProgressWindow progress(owner, L"a.lzh");
        EXPECT_EQ(sizeOf(ProgressWindow()).right, 2 * usual.right);
        EXPECT_EQ(sizeOf(ProgressWindow()).bottom, 2 * usual.bottom);
    }
    DeleteObject(ownersFont);
    ownersFont = nullptr;
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
