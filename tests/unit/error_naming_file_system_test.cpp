// What a failed operation says of the file or folder that it failed on.
#include "platform/error_naming_file_system.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/memory_file_system.h"

namespace tamblin {
namespace {

constexpr wchar_t A[] = L"C:\\Vimora\\a";
constexpr wchar_t B[] = L"C:\\Vimora\\b";

class ErrorNamingScene : public testing::Test {
  protected:
    ErrorNamingScene() {
        memory.AddDrive(L"C:");
        memory.AddFolder(L"C:\\Vimora");
        memory.SetCurrentFolder(L"C:\\Vimora");
    }
    std::wstring Named(const std::function<void()>& run) {
        try {
            run();
        } catch (const RunTimeError& error) {
            return error.Path();
        }
        return L"nothing thrown";
    }
    MemoryFileSystem memory;
    ErrorNamingFileSystem files{memory};
};

TEST_F(ErrorNamingScene, NamesWhatTheOperationWasAbout) {
    const auto expectNamed = [&](const wchar_t* named, const std::function<void()>& operation,
                                 ErrorNumber error = ErrorNumber::PathFileAccess) {
        memory.ForgetOperations();
        memory.FailOperation(1, error);
        EXPECT_EQ(Named(operation), named) << memory.Log().at(0);
        memory.FailNothing();
    };
    expectNamed(A, [&] { files.Find(A); });
    expectNamed(A, [&] { files.List(A); });
    expectNamed(A, [&] { files.Read(A); });
    expectNamed(A, [&] { files.Write(A, ""); });
    expectNamed(A, [&] { files.Copy(A, B); });
    expectNamed(A, [&] { files.Rename(A, B); });
    expectNamed(A, [&] { files.Replace(A, B); });
    expectNamed(A, [&] { files.CheckReplaceable(A); });
    expectNamed(A, [&] { files.MakeFolderLike(A, B); });
    expectNamed(A, [&] { files.HoldFolder(A); });
    expectNamed(A, [&] { files.OnOneDrive(A, B); });
    expectNamed(A, [&] { files.RealPath(A); });
    expectNamed(A, [&] { files.FreeBytes(A); });
    expectNamed(A, [&] { files.Delete(A); });
    expectNamed(A, [&] { files.MakeFolder(A); });
    expectNamed(A, [&] { files.RemoveFolder(A); });
    expectNamed(A, [&] { files.SetAttributes(A, {}); });
    expectNamed(A, [&] { files.SetCurrentFolder(A); });
    expectNamed(A, [&] { files.FixedVolumeAt(A); });
    expectNamed(
        B, [&] { files.Copy(A, B); }, ErrorNumber::DiskFull);
    expectNamed(
        B, [&] { files.Rename(A, B); }, ErrorNumber::FileAlreadyExists);
}

TEST_F(ErrorNamingScene, CompletesARelativePath) {
    EXPECT_EQ(Named([&] { files.Read(L"mikan.obl"); }), L"C:\\Vimora\\mikan.obl");
    EXPECT_EQ(Named([&] { files.Read(L""); }), L"C:\\Vimora");
    EXPECT_EQ(Named([&] { files.Read(L"Q:x"); }), L"Q:x");
    EXPECT_EQ(Named([&] { files.Read(L"\\x"); }), L"\\x");
}

TEST_F(ErrorNamingScene, LetsResultsAndNumbersThrough) {
    files.Write(L"a", "1");
    EXPECT_EQ(files.Read(A), "1");
    EXPECT_EQ(files.List(L"C:\\Vimora").size(), 1U);
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Vimora");
    EXPECT_EQ(files.Drives().size(), 1U);
    try {
        files.Read(L"nosuch");
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    }
}

} // namespace
} // namespace tamblin
