// A file system whose errors name the file or folder that they are about, in full, whether the one
// behind it has done so or not.
#pragma once

#include "platform/file_system.h"

namespace tamblin {

class ErrorNamingFileSystem : public FileSystem {
  public:
    explicit ErrorNamingFileSystem(FileSystem& behind) : files(behind) {}

    std::optional<FolderEntry> Find(const std::wstring& path) override;
    std::vector<FolderEntry> List(const std::wstring& folder) override;
    std::string Read(const std::wstring& file) override;
    void Write(const std::wstring& file, std::string_view bytes) override;
    void Copy(const std::wstring& from, const std::wstring& to) override;
    void Replace(const std::wstring& from, const std::wstring& to) override;
    void CheckReplaceable(const std::wstring& file) override;
    void Rename(const std::wstring& from, const std::wstring& to) override;
    void Delete(const std::wstring& file) override;
    void MakeFolder(const std::wstring& folder) override;
    void MakeFolderLike(const std::wstring& folder, const std::wstring& model) override;
    void RemoveFolder(const std::wstring& folder) override;
    bool HoldFolder(const std::wstring& folder) override;
    void ReleaseFolder() override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    std::wstring CurrentFolder() override;
    void SetCurrentFolder(const std::wstring& folder) override;
    bool OnOneDrive(const std::wstring& folder, const std::wstring& other) override;
    std::wstring RealPath(const std::wstring& folder) override;
    std::uint64_t FreeBytes(const std::wstring& folder) override;
    std::vector<Drive> Drives() override;
    std::optional<std::wstring> FixedVolumeAt(const std::wstring& folder) override;

  private:
    template <typename Operation>
    auto Naming(const std::wstring& path, const Operation& operation);
    template <typename Operation>
    auto NamingOneOf(const std::wstring& from, const std::wstring& to, const Operation& operation);
    std::wstring InFull(const std::wstring& path);

    FileSystem& files;
};

} // namespace tamblin
