// A line of text that the user can read, select and copy, and change unless it is read-only.
#pragma once

#include "ui/control.h"

namespace tamblin {

class TextBox : public Control {
  public:
    enum class Access { ReadOnly, Editable };
    TextBox(Form& owner, int number, Access access);

    Size NaturalSize(const TextMeasure& measure) const override;
};

} // namespace tamblin
