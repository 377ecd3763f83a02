#include "ui/check_box.h"

namespace tamblin {

CheckBox::CheckBox(Form& owner, int number, const std::wstring& caption)
    : Control(owner, {ControlKind::Check, number}, WC_BUTTONW, caption,
              BS_AUTOCHECKBOX | BS_MULTILINE | WS_TABSTOP) {}

bool CheckBox::IsTicked() const {
    return ::SendMessageW(Handle(), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CheckBox::SetTicked(bool on) {
    ::SendMessageW(Handle(), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

Size CheckBox::NaturalSize(const TextMeasure& measure) const {
    const Size text = measure.Of(Text());
    return {text.width + measure.Across(18), text.height + measure.Down(2)};
}

void CheckBox::Notified(UINT code) {
    if (code == BN_CLICKED && onClick)
        onClick();
}

} // namespace tamblin
