#include "ui/button.h"

#include <algorithm>

#include "ui/form.h"

namespace tamblin {

Button::Button(Form& owner, int number, const std::wstring& caption)
    : Button(owner, number, caption, BS_PUSHBUTTON) {}

Button::Button(Form& owner, int number, const std::wstring& caption, DWORD style)
    : Control(owner, {ControlKind::Command, number}, WC_BUTTONW, caption, style | WS_TABSTOP) {}

Size Button::NaturalSize(const TextMeasure& measure) const {
    const int width = measure.Width(Text()) + measure.Across(10);
    return {compact ? width : std::max(width, measure.Across(42)), measure.Down(14)};
}

void Button::Notified(UINT code) {
    if (code == BN_CLICKED)
        Press();
}

void Button::Press() {
    if (IsEnabled() && onClick)
        onClick();
}

void Button::SetLabel(Control& beside) {
    label = &beside;
    label->SetEnabled(IsEnabled());
}

bool Button::Received(UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_ENABLE && label)
        label->SetEnabled(wParam != 0);
    return false;
}

bool Button::TakeReturn() {
    if (IsEnabled())
        ::SendMessageW(Handle(), BM_CLICK, 0, 0);
    return true;
}

} // namespace tamblin
