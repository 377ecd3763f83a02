// A desktop shell over a MemoryFileSystem. Its deletions are operations of the file system too:
// they stand in its log ("DeleteTree C:\a", "MoveToRecycleBin C:\a"), and one that is to fail does
// so without a word.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_shell.h"
#include "support/memory_file_system.h"

namespace tamblin {

class DesktopShellFake : public DesktopShell {
  public:
    explicit DesktopShellFake(MemoryFileSystem& memoryFiles) : files(memoryFiles) {}

    struct Opened {
        std::wstring document;
        std::wstring workingFolder;

        bool operator==(const Opened&) const = default;
    };

    std::vector<std::wstring> deleted;  // paths as requested
    std::vector<std::wstring> recycled; // paths of what went
    std::vector<Opened> opened;
    std::optional<std::wstring> desktopFolder;
    std::wstring refused; // a path that stays whatever is asked

    void DeleteTree(const std::wstring& path) override {
        const bool succeeds = files.BeginForeign(L"DeleteTree " + path);
        deleted.push_back(path);
        if (succeeds && path != refused)
            files.DeleteTree(path);
    }
    void MoveToRecycleBin(const std::wstring& path) override {
        if (files.BeginForeign(L"MoveToRecycleBin " + path) && files.RecycleTree(path))
            recycled.push_back(path);
    }
    void Open(const std::wstring& document, const std::wstring& workingFolder) override {
        opened.push_back({document, workingFolder});
    }
    std::optional<std::wstring> DesktopFolder() override { return desktopFolder; }

  private:
    MemoryFileSystem& files;
};

} // namespace tamblin
