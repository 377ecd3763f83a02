// Starts programs on this computer. A started program begins in the current folder.
#pragma once

#include "platform/program_starter.h"

namespace tamblin {

class Win32ProgramStarter : public ProgramStarter {
  public:
    void StartMinimised(const std::wstring& commandLine) override;
    void ShowMinimised(const std::wstring& document) override;
};

} // namespace tamblin
