// A copy that runs if the test says so, and counts how often it was brought to the front.
#pragma once

#include "platform/earlier_copy.h"

namespace tamblin {

class EarlierCopyFake : public EarlierCopy {
  public:
    bool running = false;
    mutable int timesInFront = 0;

    bool IsRunning() const override { return running; }
    void BringToFront() const override { ++timesInFront; }
};

} // namespace tamblin
