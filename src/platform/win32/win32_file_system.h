// The drives, folders and files of this computer.
//
// Paths may be longer than MAX_PATH (but not the current folder, which Windows itself limits).
// While an object of this class exists, Windows shows no boxes of its own for empty drives.
#pragma once

#include "platform/file_system.h"

namespace tamblin {

class Win32FileSystem : public FileSystem {
  public:
    Win32FileSystem();
    ~Win32FileSystem() override;
    Win32FileSystem(const Win32FileSystem&) = delete;
    Win32FileSystem& operator=(const Win32FileSystem&) = delete;

    std::optional<FolderEntry> Find(const std::wstring& path) override;
    std::vector<FolderEntry> List(const std::wstring& folder) override;
    std::string Read(const std::wstring& file) override;
    void Write(const std::wstring& file, std::string_view bytes) override;
    void Copy(const std::wstring& from, const std::wstring& to) override;
    void Rename(const std::wstring& from, const std::wstring& to) override;
    void Delete(const std::wstring& file) override;
    void MakeFolder(const std::wstring& folder) override;
    void RemoveFolder(const std::wstring& folder) override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    std::wstring CurrentFolder() override;
    void SetCurrentFolder(const std::wstring& folder) override;
    std::vector<Drive> Drives() override;

  private:
    unsigned previousErrorMode;
};

} // namespace tamblin
