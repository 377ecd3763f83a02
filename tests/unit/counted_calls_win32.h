// The end of this process at one of its calls of Windows that change something on the disk.
#pragma once

#ifdef _WIN32

#include <windows.h>

namespace tamblin {

// The code that the process ends with then.
constexpr UINT KilledCode = 77;

// The process ends before the call that makes this 0. None does while it is 0.
extern unsigned long callsUntilKilled;

// From now on such calls count.
void CountCallsThatChangeTheDisk();

// A killed program's files need not have reached the disk, which would take most of the time.
class WithoutFlushing {
  public:
    WithoutFlushing();
    ~WithoutFlushing();
    WithoutFlushing(const WithoutFlushing&) = delete;
    WithoutFlushing& operator=(const WithoutFlushing&) = delete;

  private:
    ULONG_PTR real;
};

} // namespace tamblin

#endif
