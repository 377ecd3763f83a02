#include "ui/text_box.h"

namespace tamblin {

TextBox::TextBox(Form& owner, int number, Access access)
    : Control(owner, {ControlKind::Text, number}, WC_EDITW, L"",
              ES_LEFT | ES_AUTOHSCROLL | WS_TABSTOP |
                  (access == Access::ReadOnly ? static_cast<DWORD>(ES_READONLY) : 0u),
              WS_EX_CLIENTEDGE) {}

Size TextBox::NaturalSize(const TextMeasure& measure) const {
    return {measure.Across(60), measure.LineHeight() + measure.Down(4)};
}

} // namespace tamblin
