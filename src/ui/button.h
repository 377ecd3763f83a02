// A push button.
#pragma once

#include "ui/control.h"

namespace tamblin {

class Button : public Control {
  public:
    Button(Form& owner, int number, const std::wstring& caption);

    std::function<void()> onClick;

    // No wider than the caption asks, where room is scarce.
    void MakeCompact() { compact = true; }

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;
    bool TakeReturn() override;

  protected:
    Button(Form& owner, int number, const std::wstring& caption, DWORD style);

  private:
    bool compact = false;
};

} // namespace tamblin
