// A line of text that the user can read, select and copy, and change unless it is read-only. A
// status line is left out by the Tab key. The text stands in the middle of the box's height.
#pragma once

#include "ui/control.h"

namespace tamblin {

class TextBox : public Control {
  public:
    enum class Access { Status, ReadOnly, Editable };
    TextBox(Form& owner, int number, Access access);

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    std::optional<CutOffText> CutOffAt(POINT position) const override;
    void TakeAccessKey() override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT MakeRoomAround(LPARAM lParam);
    void PaintRoomAround() const;

    int above = 0; // pixels between the border and the text
    int below = 0;
};

} // namespace tamblin
