// Lets a long operation give way: events that wait (clicks, painting) run before Yield returns.
#pragma once

namespace tamblin {

class EventLoop {
  public:
    virtual ~EventLoop() = default;
    virtual void Yield() = 0;
};

} // namespace tamblin
