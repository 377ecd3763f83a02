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

    std::vector<std::wstring> deleted; // paths as requested
    std::vector<Opened> opened;
    std::optional<std::wstring> desktopFolder;
    std::wstring refused; // a path that stays whatever is asked

    // What lies in the recycle bin, by the paths it had.
    std::vector<std::wstring> Recycled() const;
    // Puts it back where it was; false when it is not in the bin or its place is taken.
    bool Restore(const std::wstring& path);

    void DeleteTree(const std::wstring& path) override;
    void MoveToRecycleBin(const std::wstring& path) override;
    void Open(const std::wstring& document, const std::wstring& workingFolder) override;
    std::optional<std::wstring> DesktopFolder() override { return desktopFolder; }

  private:
    struct RecycledTree {
        std::wstring path;
        MemoryFileSystem::NodePointer tree;
    };

    MemoryFileSystem& files;
    std::vector<RecycledTree> recycleBin;
};

} // namespace tamblin
