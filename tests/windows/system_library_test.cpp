// Libraries that somebody has laid beside the program or into the current folder stay unloaded.
#include "ui/system_library.h"

#include <gtest/gtest.h>

#include <string>

#include "base/win32/function_of.h"
#include "platform/win32/own_process.h"
#include "support/temporary_folder.h"

namespace tamblin {
namespace {

std::wstring FileOf(HMODULE library) {
    wchar_t file[1024] = L"";
    GetModuleFileNameW(library, file, 1024);
    return file;
}

// Any file of a program loads as a library.
class PlantedLibrary {
  public:
    explicit PlantedLibrary(std::wstring fileToMake) : file(std::move(fileToMake)) {
        EXPECT_TRUE(CopyFileW(FileOf(nullptr).c_str(), file.c_str(), FALSE));
    }
    ~PlantedLibrary() { DeleteFileW(file.c_str()); }
    PlantedLibrary(const PlantedLibrary&) = delete;
    PlantedLibrary& operator=(const PlantedLibrary&) = delete;

  private:
    std::wstring file;
};

bool Loads(const wchar_t* name) {
    const HMODULE library = LoadLibraryW(name);
    if (library)
        FreeLibrary(library);
    return library != nullptr;
}

class SystemLibraryTest : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t folder[1024];
        GetCurrentDirectoryW(1024, folder);
        former = folder;
        SetCurrentDirectoryW(current.Path().c_str());
    }
    void TearDown() override { SetCurrentDirectoryW(former.c_str()); }

    static std::wstring BesideTheProgram(const std::wstring& name) {
        const std::wstring program = FileOf(nullptr);
        return program.substr(0, program.rfind(L'\\') + 1) + name;
    }

    TemporaryFolder current;
    std::wstring former;
    PlantedLibrary inCurrentFolder{current.Path() + L"\\planted_here.dll"};
    PlantedLibrary besideProgram{BesideTheProgram(L"planted_beside.dll")};
};

TEST_F(SystemLibraryTest, ComesFromWindowsOwnFolderAlone) {
    EXPECT_EQ(SystemLibrary(L"planted_here.dll"), nullptr);
    EXPECT_EQ(SystemLibrary(L"planted_beside.dll"), nullptr);
    const HMODULE version = SystemLibrary(L"version.dll");
    ASSERT_NE(version, nullptr);
    EXPECT_NE(FunctionOf<int()>(version, "GetFileVersionInfoW"), nullptr);
    EXPECT_EQ(FunctionOf<int()>(version, "NoSuchFunction"), nullptr);
    EXPECT_EQ(FunctionOf<int()>(nullptr, "GetFileVersionInfoW"), nullptr);
}

// It holds for the rest of the process, which no other test here minds.
TEST_F(SystemLibraryTest, NothingElseIsSearchedOnceThatIsAskedFor) {
    ASSERT_TRUE(Loads(L"planted_here.dll"));
    ASSERT_TRUE(Loads(L"planted_beside.dll"));
    LoadDllsFromSystemOnly();
    EXPECT_FALSE(Loads(L"planted_here.dll"));
    EXPECT_FALSE(Loads(L"planted_beside.dll"));
    EXPECT_TRUE(Loads(L"version.dll"));
}

} // namespace
} // namespace tamblin
