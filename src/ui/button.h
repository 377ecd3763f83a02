// A push button.
#pragma once

#include "ui/control.h"

namespace tamblin {

class Button : public Control {
  public:
    Button(Form& owner, int number, const std::wstring& caption);

    std::function<void()> onClick;
    // The key that is a letter of the caption.
    void SetAccessKey(wchar_t letter) { Control::SetAccessKey(letter, *this); }
    // What a click does, which is nothing while the button is disabled. The focus stays.
    void Press();
    // The label beside the button, which is grey when the button is.
    void SetLabel(Control& beside);

    // No wider than the caption asks, where room is scarce.
    void MakeCompact() { compact = true; }

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;
    bool TakeKey(const KeyPress& press) override;
    void TakeAccessKey() override;
    LRESULT CustomDraw(const NMCUSTOMDRAW& stage) override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;
    Button(Form& owner, int number, const std::wstring& caption, DWORD style);

  private:
    POINT CaptionIn(const RECT& area) const;

    bool compact = false;
    Control* label = nullptr;
};

} // namespace tamblin
