// The LZH archive library: one entry that takes a command as text.
#pragma once

#include <cstdint>
#include <string>

namespace tamblin {

class Unlha {
  public:
    virtual ~Unlha() = default;

    // Runs `command`: "x " and an archive's path in double quotes unpacks the whole archive, with
    // its folders, into the current folder. `window` owns the progress window. `output` is taken
    // for as many characters as `outputSize` says, and nothing is ever written to it. Returns 0, or
    // the number of the failure. Never throws.
    virtual std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                             unsigned outputSize) = 0;
};

} // namespace tamblin
