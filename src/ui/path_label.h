// A path that the user only reads, on one line. Where it has not its width it is shortened in the
// middle, so that a long path widens no form.
#pragma once

#include "ui/control.h"

namespace tamblin {

class PathLabel : public Control {
  public:
    PathLabel(Form& owner, int number);

    Size NaturalSize(const TextMeasure& measure) const override;
};

} // namespace tamblin
