// Lets a long operation give way: events that wait (clicks, painting) run before Yield returns.
#pragma once

// <windows.h> defines an empty macro of this name, a relic of 16-bit days.
#ifdef Yield
#undef Yield
#endif

namespace tamblin {

class EventLoop {
  public:
    virtual ~EventLoop() = default;
    virtual void Yield() = 0;
};

} // namespace tamblin
