// Starting programs, and what the program knows of itself.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include "base/text.h"
#include "platform/win32/program_folder.h"
#include "platform/win32/program_instance.h"
#include "platform/win32/win32_ansi_code_page.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_program_starter.h"
#include "support/temporary_folder.h"
#include "support/thrown_number.h"

namespace tamblin {
namespace {

bool WaitFor(FileSystem& files, const std::wstring& path) {
    for (int turn = 0; turn < 500; ++turn) {
        if (files.Find(path))
            return true;
        Sleep(10);
    }
    return false;
}

TEST(Win32ProgramStarter, StartsAProgramInTheCurrentFolder) {
    TemporaryFolder folder;
    Win32FileSystem files;
    files.SetCurrentFolder(folder.Path());
    Win32ProgramStarter().StartMinimised(L"cmd.exe /c mkdir \"made here\"");
    EXPECT_TRUE(WaitFor(files, folder.Path() + L"\\made here"));
}

TEST(Win32ProgramStarter, TellsAMissingProgramFromOneThatIsNone) {
    TemporaryFolder folder;
    Win32FileSystem files;
    Win32ProgramStarter starter;
    const std::wstring file = folder.Path() + L"\\program.exe";
    EXPECT_EQ(ThrownNumber([&] { starter.StartMinimised(L"\"" + file + L"\" x"); }), 53);
    EXPECT_EQ(ThrownNumber([&] { starter.StartMinimised(folder.Path() + L"\\no\\such.exe"); }), 53);
    files.Write(file, "no program");
    EXPECT_EQ(ThrownNumber([&] { starter.StartMinimised(L"\"" + file + L"\" x"); }), 75);
}

TEST(Win32ProgramStarter, DocumentThatNoProgramShowsStaysUnshown) {
    TemporaryFolder folder;
    Win32ProgramStarter().ShowMinimised(folder.Path() + L"\\nosuch.tamblin-unknown");
    SUCCEED();
}

TEST(ProgramInstance, FirstOneHoldsThePlaceWhileItLives) {
    const std::wstring name = L"Local\\Tamblin.Test." + std::to_wstring(GetCurrentProcessId());
    {
        const ProgramInstance first(name);
        EXPECT_TRUE(first.IsFirst());
        EXPECT_FALSE(ProgramInstance(name).IsFirst());
        EXPECT_TRUE(ProgramInstance(name + L".other").IsFirst());
    }
    EXPECT_TRUE(ProgramInstance(name).IsFirst());
}

TEST(ProgramFolder, HoldsTheProgramFile) {
    wchar_t file[1024];
    ASSERT_NE(GetModuleFileNameW(nullptr, file, 1024), 0U);
    EXPECT_EQ(WithBackslash(ProgramFolder()) + std::wstring(NameOf(file)), file);
}

TEST(Win32AnsiCodePage, ConvertsThereAndBackWhateverTheCodePage) {
    Win32AnsiCodePage ansi;
    EXPECT_EQ(ansi.Decode("C:\\Tamblin"), L"C:\\Tamblin");
    EXPECT_EQ(ansi.Encode(L"C:\\Tamblin"), "C:\\Tamblin");
    EXPECT_EQ(ansi.Decode(""), L"");
    EXPECT_EQ(ansi.Encode(L""), "");
    if (GetACP() != 932)
        GTEST_SKIP() << "the rest needs a Japanese system";
    EXPECT_EQ(ansi.Decode("\x95\x5C\x83\x5C\x94\x5C"), L"表ソ能");
    EXPECT_EQ(ansi.Encode(L"表ソ能"), "\x95\x5C\x83\x5C\x94\x5C");
    EXPECT_EQ(ansi.Encode(L"a\x0E01z"), "a?z");
}

TEST(Win32EventLoop, HandlesWhatWaitsAndReturns) {
    int seen = 0;
    Win32EventLoop events([&](MSG& message) {
        seen += message.message == WM_APP;
        return true;
    });
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    events.Yield();
    EXPECT_EQ(seen, 2);
    events.Yield();
    EXPECT_EQ(seen, 2);
}

TEST(Win32EventLoop, LeavesTheEndOfTheProgramToTheOuterLoop) {
    Win32EventLoop events;
    PostQuitMessage(7);
    events.Yield();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7U);
}

} // namespace
} // namespace tamblin

#endif
