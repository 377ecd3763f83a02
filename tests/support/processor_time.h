// How long this thread has worked. On a busy machine, and while other processes work for it, it
// waits besides.
#pragma once

#include <windows.h>

namespace tamblin {

inline double ProcessorMilliseconds() {
    FILETIME created{};
    FILETIME ended{};
    ULARGE_INTEGER kernel{};
    ULARGE_INTEGER user{};
    GetThreadTimes(GetCurrentThread(), &created, &ended, reinterpret_cast<FILETIME*>(&kernel),
                   reinterpret_cast<FILETIME*>(&user));
    return static_cast<double>(kernel.QuadPart + user.QuadPart) / 10000;
}

} // namespace tamblin
