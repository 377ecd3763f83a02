#include "ui/tick_button.h"

namespace tamblin {

bool TickButton::IsTicked() const {
    return Send(BM_GETCHECK) == BST_CHECKED;
}

void TickButton::SetTicked(bool on) {
    Send(BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

Size TickButton::NaturalSize(const TextMeasure& measure) const {
    const Size text = measure.Of(Text());
    return {text.width + measure.Across(18), text.height + measure.Down(2)};
}

void TickButton::Notified(UINT code) {
    if (code == BN_CLICKED && onClick)
        onClick();
}

} // namespace tamblin
