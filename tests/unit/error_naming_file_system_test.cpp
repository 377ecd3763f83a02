// What a failed operation says of the file or folder that it failed on.
#include "platform/error_naming_file_system.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/memory_file_system.h"
#include "unit/case_name.h"

namespace tamblin {
namespace {

constexpr wchar_t A[] = L"C:\\Vimora\\a";
constexpr wchar_t B[] = L"C:\\Vimora\\b";

struct OperationRow {
    const char* name;
    std::function<void(FileSystem&)> run;
    ErrorNumber error = ErrorNumber::PathFileAccess;
    const wchar_t* named = A;
};

class ErrorNamingScene : public testing::Test {
  protected:
    ErrorNamingScene() {
        memory.AddDrive(L"C:");
        memory.AddFolder(L"C:\\Vimora");
        memory.SetCurrentFolder(L"C:\\Vimora");
    }
    std::wstring Named(const std::function<void(FileSystem&)>& run) {
        try {
            run(files);
        } catch (const RunTimeError& error) {
            return error.Path();
        }
        return L"nothing thrown";
    }
    MemoryFileSystem memory;
    ErrorNamingFileSystem files{memory};
};

class ErrorNaming : public ErrorNamingScene, public testing::WithParamInterface<OperationRow> {};

TEST_P(ErrorNaming, NamesWhatTheOperationWasAbout) {
    memory.FailOperation(1, GetParam().error);
    EXPECT_EQ(Named(GetParam().run), GetParam().named);
}

INSTANTIATE_TEST_SUITE_P(Operations, ErrorNaming,
                         testing::Values(OperationRow{"Find",
                                                      [](FileSystem& files) {
                                                          files.Find(A);
                                                      }},
                                         OperationRow{"List",
                                                      [](FileSystem& files) {
                                                          files.List(A);
                                                      }},
                                         OperationRow{"Read",
                                                      [](FileSystem& files) {
                                                          files.Read(A);
                                                      }},
                                         OperationRow{"Write",
                                                      [](FileSystem& files) {
                                                          files.Write(A, "");
                                                      }},
                                         OperationRow{"Copy",
                                                      [](FileSystem& files) {
                                                          files.Copy(A, B);
                                                      }},
                                         OperationRow{"CopyToAFullDisk",
                                                      [](FileSystem& files) { files.Copy(A, B); },
                                                      ErrorNumber::DiskFull, B},
                                         OperationRow{"Rename",
                                                      [](FileSystem& files) {
                                                          files.Rename(A, B);
                                                      }},
                                         OperationRow{"RenameToWhatExists",
                                                      [](FileSystem& files) { files.Rename(A, B); },
                                                      ErrorNumber::FileAlreadyExists, B},
                                         OperationRow{"Replace",
                                                      [](FileSystem& files) {
                                                          files.Replace(A, B);
                                                      }},
                                         OperationRow{"CheckReplaceable",
                                                      [](FileSystem& files) {
                                                          files.CheckReplaceable(A);
                                                      }},
                                         OperationRow{"MakeFolderLike",
                                                      [](FileSystem& files) {
                                                          files.MakeFolderLike(A, B);
                                                      }},
                                         OperationRow{"HoldFolder",
                                                      [](FileSystem& files) {
                                                          files.HoldFolder(A);
                                                      }},
                                         OperationRow{"OnOneDrive",
                                                      [](FileSystem& files) {
                                                          files.OnOneDrive(A, B);
                                                      }},
                                         OperationRow{"RealPath",
                                                      [](FileSystem& files) {
                                                          files.RealPath(A);
                                                      }},
                                         OperationRow{"FreeBytes",
                                                      [](FileSystem& files) {
                                                          files.FreeBytes(A);
                                                      }},
                                         OperationRow{"Delete",
                                                      [](FileSystem& files) {
                                                          files.Delete(A);
                                                      }},
                                         OperationRow{"MakeFolder",
                                                      [](FileSystem& files) {
                                                          files.MakeFolder(A);
                                                      }},
                                         OperationRow{"RemoveFolder",
                                                      [](FileSystem& files) {
                                                          files.RemoveFolder(A);
                                                      }},
                                         OperationRow{"SetAttributes",
                                                      [](FileSystem& files) {
                                                          files.SetAttributes(A, {});
                                                      }},
                                         OperationRow{"SetCurrentFolder",
                                                      [](FileSystem& files) {
                                                          files.SetCurrentFolder(A);
                                                      }},
                                         OperationRow{"FixedVolumeAt",
                                                      [](FileSystem& files) {
                                                          files.FixedVolumeAt(A);
                                                      }}),
                         CaseName);

TEST_F(ErrorNamingScene, CompletesARelativePath) {
    EXPECT_EQ(Named([](FileSystem& names) { names.Read(L"mikan.obl"); }), L"C:\\Vimora\\mikan.obl");
    EXPECT_EQ(Named([](FileSystem& names) { names.Read(L""); }), L"C:\\Vimora");
    EXPECT_EQ(Named([](FileSystem& names) { names.Read(L"Q:x"); }), L"Q:x");
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
