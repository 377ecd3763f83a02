// The desktop shell of this computer. The thread that uses it has COM initialised (apartment).
#pragma once

#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

#include <utility>

#include "platform/desktop_shell.h"
#include "platform/win32/win32_held_file.h"

namespace tamblin {

class Win32DesktopShell : public DesktopShell {
  public:
    using FileOperation = int(WINAPI*)(SHFILEOPSTRUCTW*);
    // `shellFileOperation` does the deletions; `waitsFor` is how long one waits for files that
    // another program holds.
    explicit Win32DesktopShell(FileOperation shellFileOperation = SHFileOperationW,
                               Patience waitsFor = PatienceOfWindows())
        : fileOperation(shellFileOperation), patience(std::move(waitsFor)) {}

    void DeleteTree(const std::wstring& path) override;
    void MoveToRecycleBin(const std::wstring& path) override;
    void Open(const std::wstring& document, const std::wstring& workingFolder) override;
    std::optional<std::wstring> DesktopFolder() override;

  private:
    void Delete(const std::wstring& path, FILEOP_FLAGS flags);
    bool WaitUntilFree(const std::wstring& tree, bool isFile);
    void DeleteByShell(const std::wstring& fullPath, FILEOP_FLAGS flags);

    FileOperation fileOperation;
    Patience patience;
};

} // namespace tamblin
