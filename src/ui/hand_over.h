// The one way from a window to another one. Which window that is, the rules say; how it comes
// about, the application knows.
#pragma once

#include "base/next_window.h"

namespace tamblin {

class HandOver {
  public:
    virtual ~HandOver() = default;
    virtual void Show(NextWindow next) = 0;
};

} // namespace tamblin
