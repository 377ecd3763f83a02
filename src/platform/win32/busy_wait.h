// What a window's thread does while it has to wait: the pointer is the hourglass, windows paint
// themselves and answer the system, and what the user does to them is dropped.
#pragma once

#include <windows.h>

#include <functional>

namespace tamblin {

// Lets windows paint themselves and answer other programs.
void LetPaint();

// Waits until the event (or none) is set or the time, in milliseconds, is up. True when it is set.
bool PaintUntil(HANDLE event, DWORD time);

// Notices that a command has become long work, and lets windows paint from then on.
class BusyWatch {
  public:
    // `whilePainting` is called as often as windows paint.
    explicit BusyWatch(std::function<void()> whilePainting = nullptr)
        : meanwhile(std::move(whilePainting)) {}

    // Before every operation: those that follow each other closely are long work together.
    void Tick();
    // Makes a call of Windows that may be long work by itself, on a thread of its own. The call
    // answers whether it succeeded; so does this, and GetLastError() tells why not.
    bool During(const std::function<bool()>& call);

  private:
    std::function<void()> meanwhile;
    ULONGLONG begin = 0;
    ULONGLONG latest = 0;
    ULONGLONG painted = 0;
};

} // namespace tamblin
