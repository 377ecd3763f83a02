// A longer text that wraps at the pane's width.
#pragma once

#include "ui/control.h"

namespace tamblin {

class TextPane : public Control {
  public:
    TextPane(Form& owner, int number, int columns, int rows);

    Size NaturalSize(const TextMeasure& measure) const override;

  private:
    int minimumColumns;
    int minimumRows;
};

} // namespace tamblin
