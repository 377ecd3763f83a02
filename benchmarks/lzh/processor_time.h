// Time that the processor has spent on this process and on those that it started and that ended.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/resource.h>
#endif

namespace tamblin::bench {

#ifdef _WIN32

inline double ProcessorSeconds() {
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto seconds = [](FILETIME time) {
        return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) * 1e-7;
    };
    return seconds(kernel) + seconds(user);
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
