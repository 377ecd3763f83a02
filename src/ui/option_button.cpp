#include "ui/option_button.h"

namespace tamblin {

OptionButton::OptionButton(Form& owner, int number, int index, const std::wstring& caption)
    : Control(owner, {ControlKind::Option, number, index}, WC_BUTTONW, caption,
              BS_AUTORADIOBUTTON | (index == 0 ? WS_GROUP | WS_TABSTOP : 0u)) {}

bool OptionButton::IsChosen() const {
    return ::SendMessageW(Handle(), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void OptionButton::SetChosen(bool on) {
    ::SendMessageW(Handle(), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

Size OptionButton::NaturalSize(const TextMeasure& measure) const {
    const Size text = measure.Of(Text());
    return {text.width + measure.Across(18), text.height + measure.Down(2)};
}

void OptionButton::Notified(UINT code) {
    if (code == BN_CLICKED && onClick)
        onClick();
}

} // namespace tamblin
