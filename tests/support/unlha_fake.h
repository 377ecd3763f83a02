// Stands for the archive library: records its calls and lets a test unpack what it likes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/lzh/lzh_error.h"
#include "platform/lzh/unlha_command.h"
#include "platform/unlha.h"

namespace tamblin {

class UnlhaFake : public Unlha {
  public:
    struct Call {
        void* window;
        std::wstring command;
        std::wstring output;
        unsigned outputSize;

        bool operator==(const Call&) const = default;
    };

    std::vector<Call> calls;
    // Given the archive's path; fills the current folder and returns what Run returns. Without
    // it nothing is unpacked and Run returns 0.
    std::function<std::int16_t(const std::wstring& archive)> onUnpack;

    std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                     unsigned outputSize) override {
        calls.push_back({window, command, output, outputSize});
        const auto archive = lzh::ArchiveOfCommand(command);
        if (!archive)
            return static_cast<std::int16_t>(lzh::LzhFailure::BadCommand);
        return onUnpack ? onUnpack(*archive) : std::int16_t{0};
    }
};

} // namespace tamblin
