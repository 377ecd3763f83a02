// Time that the processor has spent on this process and on those that it started and that ended.
#pragma once

#ifdef _WIN32
#include <chrono>
#else
#include <sys/resource.h>
#endif

namespace tamblin::bench {

#ifdef _WIN32

// Windows counts processor time in steps that are too coarse; the clock has to do.
inline double ProcessorSeconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

#else

inline double SecondsOf(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](timeval time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

inline double ProcessorSeconds() {
    return SecondsOf(RUSAGE_SELF) + SecondsOf(RUSAGE_CHILDREN);
}

#endif

} // namespace tamblin::bench
