// Records the programs that a test starts.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "platform/program_starter.h"

namespace tamblin {

class ProgramStarterFake : public ProgramStarter {
  public:
    std::vector<std::wstring> started; // command lines
    std::vector<std::wstring> shown;   // documents
    // Called at the moment of the start, so that a test can look at the disk as the program does.
    std::function<void(const std::wstring&)> onStart;
    std::function<void(const std::wstring&)> onShow;
    // With a number here, StartMinimised records, calls onStart and throws.
    std::optional<ErrorNumber> failure;

    void StartMinimised(const std::wstring& commandLine) override {
        started.push_back(commandLine);
        if (onStart)
            onStart(commandLine);
        if (failure)
            throw RunTimeError(*failure);
    }
    void ShowMinimised(const std::wstring& document) override {
        shown.push_back(document);
        if (onShow)
            onShow(document);
    }
};

} // namespace tamblin
