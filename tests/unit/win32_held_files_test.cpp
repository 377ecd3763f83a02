// Files that another program holds are waited for, for a time.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <functional>
#include <string>

#include "platform/win32/win32_file_system.h"
#include "support/temporary_folder.h"
#include "support/thrown_number.h"

namespace tamblin {
namespace {

constexpr DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Another program that has a file open, and closes it in the middle of an operation of ours.
class Holder {
  public:
    Holder(const std::wstring& file, DWORD share)
        : handle(
              CreateFileW(file.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
    }
    ~Holder() { LetGo(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void LetGo() {
        if (handle != nullptr)
            CloseHandle(handle);
        handle = nullptr;
    }

  private:
    HANDLE handle;
};

// What a, b and c hold; nothing where they are not there.
using Contents = std::array<std::string, 3>;
using Operation = std::function<void(Win32FileSystem& files, const std::wstring& top)>;

void ForEachHeldFile(const std::function<void(const wchar_t* held, const Contents& after,
                                              const Operation&)>& visit) {
    const auto replace = [](auto& files, auto& top) {
        files.Replace(top + L"a", top + L"b");
    };
    visit(L"a", {"", "b", ""}, [](auto& files, auto& top) { files.Delete(top + L"a"); });
    visit(L"a", {"", "b", "a"},
          [](auto& files, auto& top) { files.Rename(top + L"a", top + L"c"); });
    visit(L"a", {"new", "b", ""}, [](auto& files, auto& top) { files.Write(top + L"a", "new"); });
    visit(L"b", {"a", "a", ""}, [](auto& files, auto& top) { files.Copy(top + L"a", top + L"b"); });
    visit(L"b", {"", "a", ""}, replace);
    visit(L"a", {"", "a", ""}, replace);
    visit(L"a", {"", "b", "a"},
          [](auto& files, auto& top) { files.Replace(top + L"a", top + L"c"); });
}

// A folder with the files a and b, of which another program holds one.
struct HeldFile {
    HeldFile(const std::wstring& held, DWORD share)
        : path(top + held), scanner((Fill(), path), share) {}

    void Expect(const Contents& contents) {
        size_t there = 1; // the subfolder
        for (size_t index = 0; index < 3; ++index) {
            const std::wstring file = top + L"abc"[index];
            const bool isThere = plain.Find(file).has_value();
            EXPECT_EQ(isThere ? plain.Read(file) : "", contents[index]) << file;
            there += isThere;
        }
        EXPECT_EQ(plain.List(top).size(), there); // and nothing that should have taken a place
    }

    TemporaryFolder folder;
    Win32FileSystem plain;
    const std::wstring top = folder.Path() + L"\\";
    const std::wstring path;
    Holder scanner;

  private:
    void Fill() {
        plain.MakeFolder(top + L"sub");
        plain.Write(top + L"a", "a");
        plain.Write(top + L"b", "b");
    }
};

// The scanner holds it until the operation has tried five times.
TEST(HeldFiles, AreWaitedFor) {
    for (const DWORD share : {DWORD{FILE_SHARE_READ}, everything})
        ForEachHeldFile(
            [&](const wchar_t* held, const Contents& after, const Operation& operation) {
                HeldFile file(held, share);
                int pauses = 0;
                Win32FileSystem files({Patience::usual, [&](Patience::Milliseconds) {
                                           if (++pauses == 5)
                                               file.scanner.LetGo();
                                       }});
                operation(files, file.top);
                file.scanner.LetGo();
                file.Expect(after);
                EXPECT_LE(pauses, 5);
            });
}

// One that never lets go is given up, and nothing has happened.
TEST(HeldFiles, AreGivenUpWhenTheTimeIsUp) {
    ForEachHeldFile([](const wchar_t* held, const Contents&, const Operation& operation) {
        HeldFile file(held, FILE_SHARE_READ);
        Patience::Milliseconds waited{0};
        Win32FileSystem files({Patience::usual, [&](Patience::Milliseconds time) {
                                   waited += time;
                               }});
        try {
            operation(files, file.top);
            ADD_FAILURE() << "it succeeds";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::PermissionDenied);
            EXPECT_EQ(error.Path(), file.path);
        }
        EXPECT_GE(waited, Patience::usual);
        file.scanner.LetGo();
        file.Expect({"a", "b", ""});
    });
}

class HeldWin32Files : public testing::Test {
  protected:
    std::wstring In(const std::wstring& name) const { return folder.Path() + L'\\' + name; }

    TemporaryFolder folder;
    Win32FileSystem files;
};

// Wine lets nobody feel a locked part of a file, so that the error is made here.
TEST_F(HeldWin32Files, WhatMayPassIsTriedAgain) {
    files.Write(In(L"a"), "1");
    const auto triesFor = [&](DWORD code) {
        int tries = 0;
        const bool succeeded = Persist({Patience::usual,
                                        [](Patience::Milliseconds) {
                                        }},
                                       In(L"a"), [&] {
                                           SetLastError(code);
                                           return ++tries == 3;
                                       });
        EXPECT_EQ(succeeded, tries == 3);
        EXPECT_EQ(GetLastError(), succeeded ? ERROR_SUCCESS : code);
        return tries;
    };
    for (const DWORD code : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_DELETE_PENDING})
        EXPECT_EQ(triesFor(code), 3) << code;
    for (const DWORD code : {ERROR_ACCESS_DENIED, ERROR_FILE_EXISTS, ERROR_ALREADY_EXISTS}) {
        EXPECT_EQ(triesFor(code), 1) << code; // nobody holds the file
        const Holder holder(In(L"a"), FILE_SHARE_READ | FILE_SHARE_DELETE);
        EXPECT_EQ(triesFor(code), 3) << code;
    }
    EXPECT_EQ(triesFor(ERROR_DISK_FULL), 1);
}

TEST_F(HeldWin32Files, DeletedFileThatIsStillOpenIsWaitedFor) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"sub\\a"), "old");
    Holder scanner(In(L"sub\\a"), everything);
    int pauses = 0;
    Win32FileSystem waiting({Patience::usual, [&](Patience::Milliseconds) {
                                 if (++pauses == 5)
                                     scanner.LetGo();
                             }});
    waiting.Delete(In(L"sub\\a"));
    waiting.RemoveFolder(In(L"sub"));
    EXPECT_FALSE(files.Find(In(L"sub")));
    EXPECT_LE(pauses, 5);
}

TEST_F(HeldWin32Files, FolderThatReallyHoldsSomethingIsNotWaitedFor) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"sub\\a"), "1");
    files.SetAttributes(In(L"sub\\a"), {.hidden = true});
    int pauses = 0;
    Win32FileSystem waiting({Patience::usual, [&](Patience::Milliseconds) {
                                 ++pauses;
                             }});
    EXPECT_EQ(ThrownNumber([&] { waiting.RemoveFolder(In(L"sub")); }), 75);
    waiting.SetCurrentFolder(In(L"sub"));
    EXPECT_EQ(ThrownNumber([&] { waiting.RemoveFolder(In(L"sub")); }), 75);
    waiting.SetCurrentFolder(folder.Path());
    EXPECT_EQ(pauses, 0);
}

} // namespace
} // namespace tamblin

#endif
