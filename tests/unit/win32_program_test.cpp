// Starting programs, and what the program knows of itself.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

#include "base/text.h"
#include "platform/win32/own_process.h"
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

struct Executed {
    std::wstring program, arguments;
    int show = 0;
    DWORD error = ERROR_SUCCESS; // what the shell answers
};
Executed executed;

Win32ProgramStarter StarterOfElevatedPrograms(DWORD shellError) {
    executed = {};
    executed.error = shellError;
    const auto create = [](auto...) -> BOOL {
        SetLastError(740);
        return FALSE;
    };
    const auto execute = [](SHELLEXECUTEINFOW* execution) -> BOOL {
        executed.program = execution->lpFile;
        executed.arguments = execution->lpParameters;
        executed.show = execution->nShow;
        SetLastError(executed.error);
        return executed.error == ERROR_SUCCESS;
    };
    return Win32ProgramStarter(create, execute);
}

TEST(Win32ProgramStarter, LetsTheShellStartWhatWantsElevation) {
    StarterOfElevatedPrograms(ERROR_SUCCESS).StartMinimised(L"\"C:\\a b\\ombrel.exe\" /n");
    EXPECT_EQ(executed.program, L"C:\\a b\\ombrel.exe");
    EXPECT_EQ(executed.arguments, L"/n");
    EXPECT_EQ(executed.show, SW_SHOWMINIMIZED);
    StarterOfElevatedPrograms(ERROR_SUCCESS).StartMinimised(L"host.exe a b");
    EXPECT_EQ(executed.program, L"host.exe");
    EXPECT_EQ(executed.arguments, L"a b");
    StarterOfElevatedPrograms(ERROR_SUCCESS).StartMinimised(L"host.exe");
    EXPECT_EQ(executed.program, L"host.exe");
    EXPECT_EQ(executed.arguments, L"");
}

TEST(Win32ProgramStarter, TakesARefusalToElevateForTheUsersWill) {
    StarterOfElevatedPrograms(ERROR_CANCELLED).StartMinimised(L"\"C:\\ombrel.exe\" /n");
    EXPECT_EQ(ThrownNumber([] {
                  StarterOfElevatedPrograms(ERROR_FILE_NOT_FOUND).StartMinimised(L"host.exe");
              }),
              53);
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
        EXPECT_FALSE(first.IsRunning());
        EXPECT_TRUE(ProgramInstance(name).IsRunning());
        EXPECT_FALSE(ProgramInstance(name + L".other").IsRunning());
    }
    EXPECT_FALSE(ProgramInstance(name).IsRunning());
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
}

TEST(Win32AnsiCodePage, HoldsWhatTheCodePageHasAndNothingThatLooksLikeIt) {
    Win32AnsiCodePage ansi(932);
    EXPECT_EQ(ansi.Decode("\x95\x5C\x83\x5C\x94\x5C"), L"表ソ能");
    EXPECT_EQ(ansi.Encode(L"表ソ能"), "\x95\x5C\x83\x5C\x94\x5C");
    EXPECT_EQ(ansi.Encode(L"a?z"), "a?z");
    for (const wchar_t* text : {L"a\x0E01z", L"caf\x00E9", L"\x00A5", L"\x301C", L"\xD83D\xDE00"})
        EXPECT_EQ(ansi.Encode(text), std::nullopt);
    EXPECT_EQ(Win32AnsiCodePage(1252).Encode(L"caf\x00E9"), "caf\xE9");
    EXPECT_EQ(Win32AnsiCodePage(1252).Encode(L"表"), std::nullopt);
}

// A user can make UTF-8 the system's code page.
TEST(Win32AnsiCodePage, HoldsAllTextsInUtf8) {
    Win32AnsiCodePage ansi(CP_UTF8);
    EXPECT_EQ(ansi.Encode(L"表\xD83D\xDE00"), "\xE8\xA1\xA8\xF0\x9F\x98\x80");
    EXPECT_EQ(ansi.Decode("\xE8\xA1\xA8"), L"表");
    EXPECT_EQ(ansi.Encode(L"a\xD83Dz"), std::nullopt);
    EXPECT_EQ(ansi.Encode(L""), "");
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

TEST(Win32EventLoop, LeavesMessagesWaitingForAFewMilliseconds) {
    bool heldUp = true; // then a round says nothing
    while (heldUp) {
        int seen = 0;
        Win32EventLoop events([&](MSG& message) {
            seen += message.message == WM_APP;
            return true;
        });
        const ULONGLONG start = GetTickCount64();
        events.Yield();
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
        events.Yield();
        const int seenAtOnce = seen;
        heldUp = GetTickCount64() - start >= 5;
        if (!heldUp) {
            EXPECT_EQ(seenAtOnce, 0);
        }
        while (seen == 0)
            events.Yield();
    }
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
