// A text that the user only reads, on one or more lines. Where it has not its width, it wraps. It
// ends the row of choices before it.
#pragma once

#include "ui/control.h"

namespace tamblin {

class Label : public Control {
  public:
    // With `markers`, "&&" displays as "&"; otherwise every "&" displays as it is.
    enum class Ampersands { Plain, Markers };
    Label(Form& owner, int number, const std::wstring& text,
          Ampersands ampersands = Ampersands::Plain);
    // One of a row of equal labels.
    Label(Form& owner, int number, const std::wstring& text, int index);

    Size NaturalSize(const TextMeasure& measure) const override;
    int HeightFor(int width, const TextMeasure& measure) const override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    std::wstring ShownText() const;
    Label(Form& owner, ControlName controlName, const std::wstring& text, Ampersands ampersands);

    bool hasMarkers;
};

} // namespace tamblin
