#include "ui/path_label.h"

namespace tamblin {

PathLabel::PathLabel(Form& owner, int number)
    : Control(owner, {ControlKind::Label, number}, WC_STATICW, L"",
              SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS | WS_GROUP) {}

Size PathLabel::NaturalSize(const TextMeasure& measure) const {
    return {measure.Across(60), measure.LineHeight()};
}

} // namespace tamblin
