// What the user ticks: a check box, whose caption may have more than one line, or one of a row of
// choices that exclude each other.
#pragma once

#include "ui/control.h"

namespace tamblin {

class TickButton : public Control {
  public:
    std::function<void()> onClick;

    bool IsTicked() const;
    void SetTicked(bool on);

    Size NaturalSize(const TextMeasure& measure) const override;
    void Notified(UINT code) override;

  protected:
    TickButton(Form& owner, ControlName controlName, const std::wstring& caption, DWORD style)
        : Control(owner, controlName, WC_BUTTONW, caption, style) {}
};

class CheckBox : public TickButton {
  public:
    CheckBox(Form& owner, int number, const std::wstring& caption)
        : TickButton(owner, {ControlKind::Check, number}, caption,
                     BS_AUTOCHECKBOX | BS_MULTILINE | WS_TABSTOP) {}
};

class OptionButton : public TickButton {
  public:
    // The choice with index 0 begins the row.
    OptionButton(Form& owner, int number, int index, const std::wstring& caption)
        : TickButton(owner, {ControlKind::Option, number, index}, caption,
                     BS_AUTORADIOBUTTON | (index == 0 ? WS_GROUP | WS_TABSTOP : 0u)) {}
};

} // namespace tamblin
