#include "ui/text_pane.h"

namespace tamblin {

TextPane::TextPane(Form& owner, int number, int columns, int rows)
    : Control(owner, {ControlKind::Label, number}, WC_STATICW, L"",
              SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL),
      minimumColumns(columns),
      minimumRows(rows) {}

Size TextPane::NaturalSize(const TextMeasure& measure) const {
    return {measure.Across(4 * minimumColumns), minimumRows * measure.LineHeight()};
}

} // namespace tamblin
