// The desktop shell of this computer. The thread that uses it has COM initialised (apartment).
#pragma once

#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

#include "platform/desktop_shell.h"

namespace tamblin {

class Win32DesktopShell : public DesktopShell {
  public:
    using FileOperation = int(WINAPI*)(SHFILEOPSTRUCTW*);
    // `shellFileOperation` does the deletions.
    explicit Win32DesktopShell(FileOperation shellFileOperation = SHFileOperationW)
        : fileOperation(shellFileOperation) {}

    void DeleteTree(const std::wstring& path) override;
    void MoveToRecycleBin(const std::wstring& path) override;
    void Open(const std::wstring& document, const std::wstring& workingFolder) override;
    std::optional<std::wstring> DesktopFolder() override;

  private:
    template <typename Visitor>
    void Delete(const std::wstring& path, FILEOP_FLAGS flags, const Visitor& visitLink);
    void DeleteByShell(const std::wstring& fullPath, FILEOP_FLAGS flags);

    FileOperation fileOperation;
};

} // namespace tamblin
