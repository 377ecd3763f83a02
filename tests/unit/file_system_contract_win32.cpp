// The contract of FileSystem, kept by the drives of this computer.
#ifdef _WIN32

#include <windows.h>

#include <vector>

#include "base/text.h"
#include "file_system_contract.h"
#include "platform/win32/win32_file_system.h"
#include "support/folder_link.h"
#include "support/temporary_folder.h"

namespace tamblin {
namespace {

class ComputersDisk : public DiskUnderTest {
  public:
    ~ComputersDisk() override {
        if (lock)
            CloseHandle(lock);
    }

    FileSystem& Files() override { return files; }
    std::wstring Folder() override { return temporary.Path(); }

    std::wstring MissingDrive() override {
        const DWORD present = GetLogicalDrives();
        wchar_t letter = L'Z';
        while ((present >> (letter - L'A') & 1U) != 0)
            --letter;
        return {letter, L':'};
    }

    std::optional<std::wstring> OtherDrive() override {
        for (const Drive& drive : files.Drives())
            if (drive.type == DriveType::Fixed && UpperCase(drive.name[0]) != temporary.Path()[0] &&
                GetFileAttributesW((drive.name + L'\\').c_str()) != INVALID_FILE_ATTRIBUTES)
                return UpperCase(drive.name);
        return std::nullopt;
    }

    void Lock(const std::wstring& file) override {
        lock = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    }

    void Unlock(const std::wstring&) override {
        CloseHandle(lock);
        lock = nullptr;
    }

    void HoldElsewhere(const std::wstring& folder) override {
        ASSERT_TRUE(otherSession.HoldFolder(folder));
    }

    bool MakeLink(const std::wstring& path, const std::wstring& target) override {
        return MakeFolderLink(path, target);
    }

    bool IsWine() const override { return RunsUnderWine(); }

  private:
    TemporaryFolder temporary;
    // What is locked here stays so: nothing is gained by waiting.
    Win32FileSystem files{PatienceOfWindows(Patience::Milliseconds{0})};
    Win32FileSystem otherSession;
    HANDLE lock = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Computer, FileSystemContract,
                         testing::Values(DiskMaker{"Win32",
                                                   [] {
                                                       return std::make_unique<ComputersDisk>();
                                                   }}),
                         [](const auto& maker) { return maker.param.name; });

} // namespace
} // namespace tamblin

#endif
