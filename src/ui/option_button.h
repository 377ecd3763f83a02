// One of a row of choices that exclude each other.
#pragma once

#include "ui/control.h"

namespace tamblin {

class OptionButton : public Control {
  public:
    // The choice with index 0 begins the row.
    OptionButton(Form& owner, int number, int index, const std::wstring& caption);

    std::function<void()> onClick;

    bool IsChosen() const;
    void SetChosen(bool on);

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;
};

} // namespace tamblin
