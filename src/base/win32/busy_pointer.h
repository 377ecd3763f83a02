// While one of these lives, the pointer over the program's windows is the hourglass.
#pragma once

#include <windows.h>

namespace tamblin {

class BusyPointer {
  public:
    BusyPointer() : previous(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) { ++count; }
    ~BusyPointer() {
        if (--count == 0)
            SetCursor(previous);
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

    static bool IsShown() { return count > 0; }

    // While one of these lives, the pointer is the usual one all the same: the user is being asked.
    class Pause {
      public:
        Pause() : paused(count) {
            count = 0;
            SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        }
        ~Pause() { count = paused; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        int paused;
    };

  private:
    static inline int count = 0;
    HCURSOR previous;
};

} // namespace tamblin
