// Unlha over our own reader. The archive is unpacked on a thread of its own; meanwhile the calling
// one shows the busy pointer and, after half a second, a progress window, and lets every window
// paint itself. It passes on nothing else: clicks and keys of that time are dropped, everything
// that was posted waits.
#pragma once

#include "platform/unlha.h"

namespace tamblin {

class Win32Unlha : public Unlha {
  public:
    std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                     unsigned outputSize) override;
};

} // namespace tamblin
