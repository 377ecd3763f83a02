// How long an operation waits for a file that another program holds for a moment, as virus scanners
// and indexers do with every new file. Whoever implements FileSystem waits here; nothing above the
// seam tries anything again.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

namespace tamblin {

class Patience {
  public:
    using Milliseconds = std::chrono::milliseconds;
    // Lets about as much time pass as it is told.
    using Pause = std::function<void(Milliseconds)>;

    static constexpr Milliseconds usual{5000};

    Patience(Milliseconds longestWait, Pause betweenTries)
        : limit(longestWait), pause(std::move(betweenTries)) {}

    // Calls isHeld() until it answers false, or until the time is up. The last call's answer.
    template <typename Attempt>
    bool Outwait(const Attempt& isHeld) const {
        Milliseconds step{10};
        Milliseconds waited{0};
        while (isHeld()) {
            if (waited >= limit)
                return true;
            pause(step);
            waited += step;
            step = std::min(2 * step, Milliseconds{50});
        }
        return false;
    }

  private:
    Milliseconds limit;
    Pause pause;
};

} // namespace tamblin
