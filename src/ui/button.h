// A push button.
#pragma once

#include "ui/control.h"

namespace tamblin {

class Button : public Control {
  public:
    Button(Form& owner, int number, const std::wstring& caption);

    std::function<void()> onClick;

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;
    bool TakeReturn() override;

  protected:
    Button(Form& owner, int number, const std::wstring& caption, DWORD style);
};

} // namespace tamblin
