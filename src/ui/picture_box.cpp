#include "ui/picture_box.h"

#include "ui/form.h"

namespace tamblin {

PictureBox::PictureBox(Form& owner, int number, const std::wstring& text,
                       const wchar_t* namedPicture, int heightInUnits)
    : Control(owner, {ControlKind::Image, number}, WC_STATICW, text, SS_OWNERDRAW),
      pictureName(namedPicture),
      units(heightInUnits) {
    PictureBox::SetFont(form.Measure());
}

Size PictureBox::NaturalSize(const TextMeasure&) const {
    return {picture->Width(), picture->Height()};
}

void PictureBox::SetFont(const TextMeasure& measure) {
    picture = std::make_unique<Picture>(pictureName, measure.Down(units));
}

void PictureBox::Draw(const DRAWITEMSTRUCT& drawing) {
    form.PaintBehind(drawing.hDC, Handle(), drawing.rcItem);
    picture->Draw(drawing.hDC, 0, 0);
}

} // namespace tamblin
