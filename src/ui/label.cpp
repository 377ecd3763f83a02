#include "ui/label.h"

namespace tamblin {

Label::Label(Form& owner, int number, const std::wstring& text, int index, Ampersands ampersands)
    : Control(owner, {ControlKind::Label, number, index}, WC_STATICW, text,
              SS_LEFT | WS_GROUP | (ampersands == Ampersands::Plain ? SS_NOPREFIX : 0u)),
      hasMarkers(ampersands == Ampersands::Markers) {}

std::wstring Label::ShownText() const {
    std::wstring text = Text();
    if (hasMarkers)
        for (size_t at = text.find(L"&&"); at != std::wstring::npos; at = text.find(L"&&", at + 1))
            text.erase(at, 1);
    return text;
}

// The system does not underline where "&" is a plain sign.
LRESULT Label::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Control::Received(message, wParam, lParam);
    if (message != WM_PAINT || !ShowsAccessKey())
        return result;
    const HDC target = GetDC(Handle());
    UnderlineAccessKey(target, {0, 0});
    ReleaseDC(Handle(), target);
    return result;
}

Size Label::NaturalSize(const TextMeasure& measure) const {
    const std::wstring text = ShownText();
    return text.empty() ? Size{0, measure.LineHeight()} : measure.Of(text);
}

int Label::HeightFor(int width, const TextMeasure& measure) const {
    const Size natural = MeasuredSize(measure);
    return natural.width <= width ? natural.height : measure.WrappedHeight(ShownText(), width);
}

} // namespace tamblin
