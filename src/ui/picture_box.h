// A picture in a form; a screen reader is told its text.
#pragma once

#include <memory>

#include "ui/control.h"
#include "ui/picture.h"

namespace tamblin {

class PictureBox : public Control {
  public:
    // Up to so many of the font's dialog units high.
    PictureBox(Form& owner, int number, const std::wstring& text, const wchar_t* namedPicture,
               int heightInUnits);

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;

  private:
    const wchar_t* pictureName;
    int units;
    std::unique_ptr<Picture> picture;
};

} // namespace tamblin
