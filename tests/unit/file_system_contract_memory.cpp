// The contract of FileSystem, kept by the drives in memory.
#include "file_system_contract.h"
#include "support/memory_file_system.h"

namespace tamblin {
namespace {

class MemoryDisk : public DiskUnderTest {
  public:
    MemoryDisk() {
        files.AddDrive(L"C:");
        files.AddDrive(L"D:");
        files.AddFolder(Folder());
    }

    FileSystem& Files() override { return files; }
    std::wstring Folder() override { return L"C:\\contract"; }
    std::wstring MissingDrive() override { return L"Q:"; }
    std::optional<std::wstring> OtherDrive() override { return L"D:"; }
    void Lock(const std::wstring& file) override { files.Lock(file); }
    void Unlock(const std::wstring& file) override { files.Unlock(file); }
    void HoldElsewhere(const std::wstring& folder) override { files.HoldElsewhere(folder); }
    bool MakeLink(const std::wstring& path, const std::wstring& target) override {
        files.AddLink(path, target);
        return true;
    }
    bool NamesPaths() const override { return false; }

  private:
    MemoryFileSystem files;
};

INSTANTIATE_TEST_SUITE_P(Memory, FileSystemContract,
                         testing::Values(DiskMaker{"Memory",
                                                   [] {
                                                       return std::make_unique<MemoryDisk>();
                                                   }}),
                         [](const auto& maker) { return maker.param.name; });

} // namespace
} // namespace tamblin
