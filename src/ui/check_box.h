// A box that the user ticks; its caption may have more than one line.
#pragma once

#include "ui/control.h"

namespace tamblin {

class CheckBox : public Control {
  public:
    CheckBox(Form& owner, int number, const std::wstring& caption);

    std::function<void()> onClick;

    bool IsTicked() const;
    void SetTicked(bool on);

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;
};

} // namespace tamblin
