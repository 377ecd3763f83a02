// Texts that the user only reads.
#pragma once

#include "ui/control.h"

namespace tamblin {

// On one or more lines. Where the text has not its width, it wraps. It ends the row of choices
// before it.
class Label : public Control {
  public:
    // With `markers`, "&&" displays as "&"; otherwise every "&" displays as it is.
    enum class Ampersands { Plain, Markers };
    // `index` counts in a row of equal labels.
    Label(Form& owner, int number, const std::wstring& text, int index = 0,
          Ampersands ampersands = Ampersands::Plain);

    Size NaturalSize(const TextMeasure& measure) const override;
    int HeightFor(int width, const TextMeasure& measure) const override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    std::wstring ShownText() const;

    bool hasMarkers;
};

// A path, on one line. Where it has not its width it is shortened in the middle, so that a long
// path widens no form.
class PathLabel : public Control {
  public:
    PathLabel(Form& owner, int number)
        : Control(owner, {ControlKind::Label, number}, WC_STATICW, L"",
                  SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS | WS_GROUP) {}

    Size NaturalSize(const TextMeasure& measure) const override {
        return {measure.Across(60), measure.LineHeight()};
    }
};

// A longer text that wraps at the pane's width.
class TextPane : public Control {
  public:
    TextPane(Form& owner, int number, int columns, int rows)
        : Control(owner, {ControlKind::Label, number}, WC_STATICW, L"",
                  SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL),
          minimumColumns(columns),
          minimumRows(rows) {}

    Size NaturalSize(const TextMeasure& measure) const override {
        return {measure.Across(4 * minimumColumns), minimumRows * measure.LineHeight()};
    }

  private:
    int minimumColumns;
    int minimumRows;
};

} // namespace tamblin
