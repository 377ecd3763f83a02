// The desktop shell of this computer. The thread that uses it has COM initialised (apartment).
#pragma once

#include "platform/desktop_shell.h"

namespace tamblin {

class Win32DesktopShell : public DesktopShell {
  public:
    void DeleteTree(const std::wstring& path) override;
    void MoveToRecycleBin(const std::wstring& path) override;
    void Open(const std::wstring& document, const std::wstring& workingFolder) override;
    std::optional<std::wstring> DesktopFolder() override;
};

} // namespace tamblin
