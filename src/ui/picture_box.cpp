#include "ui/picture_box.h"

#include "ui/form.h"

namespace tamblin {

PictureBox::PictureBox(Form& owner, int number, const std::wstring& text, Drawing whatToDraw,
                       Size sizeInUnits)
    : Control(owner, {ControlKind::Image, number}, WC_STATICW, text, SS_OWNERDRAW),
      drawPicture(whatToDraw),
      units(sizeInUnits) {
    PictureBox::SetFont(form.Measure());
}

// Drawings keep their proportions, so their units are alike in both directions.
Size PictureBox::NaturalSize(const TextMeasure& measure) const {
    return {measure.Down(units.width), measure.Down(units.height)};
}

void PictureBox::SetFont(const TextMeasure& measure) {
    const Size size = NaturalSize(measure);
    Picture picture(size.width, size.height);
    picture.SetUnit(static_cast<float>(size.height) / static_cast<float>(units.height));
    drawPicture(picture);
    bitmap = std::make_unique<Bitmap>(picture);
}

void PictureBox::Draw(const DRAWITEMSTRUCT& drawing) {
    form.PaintBehind(drawing.hDC, Handle(), drawing.rcItem);
    bitmap->Draw(drawing.hDC, 0, 0);
}

} // namespace tamblin
