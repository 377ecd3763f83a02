// A copy of the program that was running when this one was started.
#pragma once

namespace tamblin {

class EarlierCopy {
  public:
    virtual ~EarlierCopy() = default;

    virtual bool IsRunning() const = 0;
    // Shows its window to the user, restored if it is minimised.
    virtual void BringToFront() const = 0;
};

} // namespace tamblin
