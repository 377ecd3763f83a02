// Starts programs on this computer. A started program begins in the current folder.
#pragma once

#include <windows.h>
// After <windows.h>, which it needs.
#include <shellapi.h>

#include "platform/program_starter.h"

namespace tamblin {

class Win32ProgramStarter : public ProgramStarter {
  public:
    using Create = decltype(&CreateProcessW);
    using Execute = decltype(&ShellExecuteExW);
    explicit Win32ProgramStarter(Create createProcess = CreateProcessW,
                                 Execute shellExecute = ShellExecuteExW)
        : create(createProcess), execute(shellExecute) {}

    void StartMinimised(const std::wstring& commandLine) override;
    void ShowMinimised(const std::wstring& document) override;

  private:
    void StartElevated(const std::wstring& commandLine);

    Create create;
    Execute execute;
};

} // namespace tamblin
