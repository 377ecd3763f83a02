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

LRESULT Button::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE && label)
        label->SetEnabled(wParam != 0);
    return Control::Received(message, wParam, lParam);
}

// The system centres captions.
POINT Button::CaptionIn(const RECT& area) const {
    const TextMeasure& measure = form.Measure();
    return {(area.left + area.right - measure.Width(Text())) / 2,
            (area.top + area.bottom - measure.LineHeight()) / 2};
}

LRESULT Button::CustomDraw(const NMCUSTOMDRAW& stage) {
    if (stage.dwDrawStage == CDDS_PREPAINT)
        return ShowsAccessKey() ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
    if (stage.dwDrawStage == CDDS_POSTPAINT)
        UnderlineAccessKey(stage.hdc, CaptionIn(stage.rc));
    return CDRF_DODEFAULT;
}

bool Button::TakeKey(const KeyPress& press) {
    if (press.key != VK_RETURN)
        return false;
    TakeAccessKey();
    return true;
}

void Button::TakeAccessKey() {
    if (IsEnabled())
        Send(BM_CLICK);
}

} // namespace tamblin
