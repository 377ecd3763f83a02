// Lets the messages that wait for this thread's windows be handled.
#pragma once

#include <windows.h>

#include <functional>

// After <windows.h>, whose macro of the name Yield it undoes.
#include "platform/event_loop.h"

namespace tamblin {

class Win32EventLoop : public EventLoop {
  public:
    // Sees every message first; one that it handles (a key that moves the focus) goes no further.
    using Filter = std::function<bool(MSG&)>;

    explicit Win32EventLoop(Filter messageFilter = {}) : filter(std::move(messageFilter)) {}

    // Asking for messages can take as long as what is done between two yields, so within a few
    // milliseconds of the last time it is left out: nobody notices.
    // Stops at the message that ends the program, and leaves it for the outer loop.
    void Yield() override;

  private:
    Filter filter;
    ULONGLONG lastYield = 0;
};

} // namespace tamblin
