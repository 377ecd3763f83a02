// The number of the error that an action throws, 0 when it throws none.
#pragma once

#include "base/run_time_error.h"

namespace tamblin {

template <typename Action>
int ThrownNumber(Action action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

} // namespace tamblin
