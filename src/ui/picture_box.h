// A drawing in a form; a screen reader is told its text.
#pragma once

#include <memory>

#include "ui/bitmap.h"
#include "ui/control.h"

namespace tamblin {

class PictureBox : public Control {
  public:
    // The drawing covers so many units, which are as wide as the font's dialog units.
    using Drawing = void (*)(Picture& picture);
    PictureBox(Form& owner, int number, const std::wstring& text, Drawing whatToDraw,
               Size sizeInUnits);

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;

  private:
    Drawing drawPicture;
    Size units;
    std::unique_ptr<Bitmap> bitmap;
};

} // namespace tamblin
