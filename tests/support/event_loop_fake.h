// Counts how often an operation gave way, and lets a test act at that moment.
#pragma once

#include <functional>

#include "platform/event_loop.h"

namespace tamblin {

class EventLoopFake : public EventLoop {
  public:
    size_t yields = 0;
    std::function<void()> onYield;

    void Yield() override {
        ++yields;
        if (onYield)
            onYield();
    }
};

} // namespace tamblin
