// The drives, folders and files of this computer.
//
// Paths may be longer than MAX_PATH (but not the current folder, which Windows itself limits).
// While an object of this class exists, Windows shows no boxes of its own for empty drives. What
// another program holds for a moment is waited for; meanwhile windows paint themselves.
#pragma once

#include <functional>

#include "platform/file_system.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_held_file.h"

namespace tamblin {

class Win32FileSystem : public FileSystem {
  public:
    // `waitsFor` is how long an operation waits for a file that another program holds; `meanwhile`
    // is called again and again during long work.
    explicit Win32FileSystem(Patience waitsFor = PatienceOfWindows(),
                             std::function<void()> meanwhile = nullptr);
    ~Win32FileSystem() override;
    Win32FileSystem(const Win32FileSystem&) = delete;
    Win32FileSystem& operator=(const Win32FileSystem&) = delete;

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
    Patience patience;
    BusyWatch busy;
    UniqueHandle heldFolder;
    std::wstring heldFolderPath;
    unsigned previousErrorMode;
};

} // namespace tamblin
