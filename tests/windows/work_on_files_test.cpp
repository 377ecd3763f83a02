// What the user sees while files are worked on for long: windows that are painted, the busy
// pointer, and, where the work tells how far it has come, a bar.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <fstream>

#include "platform/win32/busy_wait.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_work_progress.h"
#include "support/temporary_folder.h"
#include "windows/progress_scene.h"

namespace tamblin {
namespace {

class WorkOnFiles : public testing::Test {
  protected:
    WorkOnFiles() { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); }

    static bool PointerIsBusy() { return GetCursor() == LoadCursorW(nullptr, IDC_WAIT); }

    ProgressOwner owner;
    Win32WorkProgress progress{[this] {
        return owner.Handle();
    }};
    TemporaryFolder temporary;
};

TEST_F(WorkOnFiles, ShowsTheBusyPointerUntilItEnds) {
    {
        const WorkUnderWay work(progress, L"tidying", L"C:\\somewhere");
        EXPECT_TRUE(PointerIsBusy());
    }
    EXPECT_FALSE(PointerIsBusy());
}

TEST_F(WorkOnFiles, ShowsABarOnceItHasLastedHalfASecond) {
    const ULONGLONG begin = GetTickCount64();
    {
        WorkUnderWay work(progress, L"tidying", L"C:\\somewhere");
        LRESULT former = -1;
        int pictures = 0;
        for (int step = 0; pictures < 5; ++step) {
            owner.Invalidate();
            owner.SendClick();
            work.Advance(step / 1000.0);
            const ULONGLONG passed = GetTickCount64() - begin;
            const HWND bar = ShownProgressBar();
            if (bar == nullptr) {
                ASSERT_LT(passed, 10000u);
                Sleep(10);
                continue;
            }
            EXPECT_GE(passed, 500u);
            EXPECT_EQ(GetWindow(ShownProgressWindow(), GW_OWNER), owner.Handle());
            EXPECT_TRUE(Says(ShownProgressWindow(), L"tidying"));
            EXPECT_TRUE(Says(ShownProgressWindow(), L"C:\\somewhere"));
            const LRESULT part = SendMessageW(bar, PBM_GETPOS, 0, 0);
            EXPECT_LE(part, step);
            if (part > former)
                ++pictures;
            former = part;
            Sleep(10);
        }
        EXPECT_GT(former, 0);
    }
    EXPECT_EQ(ShownProgressWindow(), nullptr);
    EXPECT_GE(ProgressOwner::paintings, 5);
    EXPECT_EQ(ProgressOwner::clicks, 0);
}

TEST_F(WorkOnFiles, ShowsNothingBeforeAndAgainOnlyAfterAnotherHalfSecond) {
    for (int times = 0; times < 2; ++times) {
        const ULONGLONG begin = GetTickCount64();
        WorkUnderWay work(progress, L"tidying", L"C:\\somewhere");
        do {
            const bool early = GetTickCount64() - begin < 450;
            work.Advance(0.5);
            if (early && GetTickCount64() - begin < 500) {
                EXPECT_EQ(ShownProgressWindow(), nullptr);
            }
            Sleep(10);
        } while (ShownProgressWindow() == nullptr);
    }
}

// A virus scanner may hold the first file, so that no part gets done.
TEST_F(WorkOnFiles, ShowsTheBarWhileAFileIsWaitedFor) {
    Win32FileSystem files(PatienceOfWindows(Patience::usual, [&] { progress.ShowIfLong(); }));
    const std::wstring file = temporary.Path() + L"\\held";
    files.Write(file, "");
    HANDLE holder = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    const ULONGLONG begin = GetTickCount64();
    std::atomic<bool> seen = false;
    {
        const Watcher watcher([&] {
            owner.Invalidate();
            seen = seen || ShownProgressBar() != nullptr;
            if (holder && (seen || GetTickCount64() - begin > 4000))
                CloseHandle(std::exchange(holder, nullptr));
        });
        const WorkUnderWay work(progress, L"tidying", temporary.Path());
        files.Delete(file);
    }
    EXPECT_TRUE(seen);
    EXPECT_GE(ProgressOwner::paintings, 2);
}

// A call that lasts until it has been seen three times that windows paint meanwhile.
TEST_F(WorkOnFiles, PaintsWindowsDuringOneLongCall) {
    bool busy = false;
    std::atomic<int> pictures = 0;
    BusyWatch watch([&] {
        owner.SendClick();
        busy = busy || PointerIsBusy();
        ++pictures;
    });
    const ULONGLONG begin = GetTickCount64();
    const bool succeeded = watch.During([&] {
        while (pictures < 3 && GetTickCount64() - begin < 10000) {
            owner.Invalidate();
            Sleep(5);
        }
        SetLastError(ERROR_DISK_FULL);
        return false;
    });
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    EXPECT_FALSE(succeeded);
    EXPECT_GE(ProgressOwner::paintings, 3);
    EXPECT_EQ(ProgressOwner::clicks, 0);
    EXPECT_TRUE(busy);
    EXPECT_FALSE(PointerIsBusy());
    EXPECT_TRUE(watch.During([] { return true; }));
}

void MakeBigFile(const std::wstring& path, LONGLONG bytes) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_NE(file.get(), INVALID_HANDLE_VALUE) << GetLastError();
    LARGE_INTEGER end{};
    end.QuadPart = bytes;
    ASSERT_TRUE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
    ASSERT_TRUE(SetEndOfFile(file.get()));
}

// As big as it has to be on a quick drive to be long work.
TEST_F(WorkOnFiles, PaintsWindowsWhileABigFileIsCopied) {
    const std::wstring first = temporary.Path() + L"\\1";
    const std::wstring second = temporary.Path() + L"\\2";
    int pictures = 0;
    Win32FileSystem files(PatienceOfWindows(), [&] {
        if (IsHeld(first)) // as long as it is read
            ++pictures;
        owner.Invalidate();
    });
    for (LONGLONG bytes = 64 << 20; pictures < 3 && bytes <= 1024 << 20; bytes *= 2) {
        pictures = 0;
        ProgressOwner::paintings = 0;
        MakeBigFile(first, bytes);
        files.Copy(first, second); // new the first time, over another one then
    }
    EXPECT_GE(pictures, 3);
    EXPECT_GE(ProgressOwner::paintings, 2);
}

// Commands that do not tell how far they have come work on files, too.
TEST_F(WorkOnFiles, PaintsWindowsWhenOneOperationFollowsTheOther) {
    Win32FileSystem files;
    const std::wstring first = temporary.Path() + L"\\1";
    const std::wstring second = temporary.Path() + L"\\2";
    const std::wstring folder = temporary.Path() + L"\\folder";
    files.Write(first, "");
    const ULONGLONG begin = GetTickCount64();
    bool busy = false;
    while (ProgressOwner::paintings < 3 && GetTickCount64() - begin < 10000) {
        owner.Invalidate();
        owner.SendClick();
        files.Copy(first, second);
        files.Delete(second);
        files.MakeFolder(folder);
        files.RemoveFolder(folder);
        busy = busy || PointerIsBusy();
    }
    EXPECT_GE(ProgressOwner::paintings, 3);
    EXPECT_EQ(ProgressOwner::clicks, 0);
    EXPECT_TRUE(busy);
}

} // namespace
} // namespace tamblin
