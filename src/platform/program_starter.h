// Starts programs. Returns as soon as the program has been started and keeps nothing of it.
#pragma once

#include <string>

namespace tamblin {

class ProgramStarter {
  public:
    virtual ~ProgramStarter() = default;

    // Runs a command line, its window minimised and active. Throws RunTimeError 53 when the program
    // does not exist, and as FileSystem does when it cannot be started.
    virtual void StartMinimised(const std::wstring& commandLine) = 0;

    // Shows a document in its associated program, minimised and active. A document that no program
    // shows stays unshown.
    virtual void ShowMinimised(const std::wstring& document) = 0;
};

} // namespace tamblin
