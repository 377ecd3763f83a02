#include "ui/picture_button.h"

#include <uxtheme.h>
#include <vsstyle.h>

#include <algorithm>

#include "base/win32/function_of.h"
#include "ui/form.h"
#include "ui/system_library.h"

namespace tamblin {
namespace {

constexpr BYTE DisabledStrength = 90;

// On a high-contrast screen pictures have the colour of the text beside them.
bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

// Not imported: Windows would take a uxtheme.dll that lies beside the program.
struct Themes {
    HMODULE library = SystemLibrary(L"uxtheme.dll");
    decltype(&OpenThemeData) open = FunctionOf<decltype(OpenThemeData)>(library, "OpenThemeData");
    decltype(&CloseThemeData) close =
        FunctionOf<decltype(CloseThemeData)>(library, "CloseThemeData");
    decltype(&DrawThemeBackground) draw =
        FunctionOf<decltype(DrawThemeBackground)>(library, "DrawThemeBackground");
};

// As the system's visual style draws push buttons; `state` is one of PBS_NORMAL, PBS_HOT ... False
// when visual styles are off.
bool DrawThemedButton(HWND button, HDC target, const RECT& area, int state) {
    static const Themes themes;
    const HTHEME theme =
        themes.open && themes.close && themes.draw ? themes.open(button, L"Button") : nullptr;
    if (!theme)
        return false;
    themes.draw(theme, target, BP_PUSHBUTTON, state, &area, nullptr);
    themes.close(theme);
    return true;
}

} // namespace

PictureButton::PictureButton(Form& owner, int number, const std::wstring& text,
                             const wchar_t* namedPicture, Caption caption)
    : Button(owner, number, text, BS_OWNERDRAW),
      pictureName(namedPicture),
      captionShown(caption == Caption::Shown) {
    PictureButton::SetFont(form.Measure());
}

Size PictureButton::NaturalSize(const TextMeasure& measure) const {
    const int side = picture->Height();
    Size size{side + measure.Across(8), std::max(side + measure.Down(4), measure.Down(14))};
    if (captionShown)
        size.width += measure.Width(Text()) + measure.Across(4);
    return size;
}

void PictureButton::SetFont(const TextMeasure& measure) {
    Button::SetFont(measure);
    const int side = captionShown ? measure.LineHeight() * 5 / 4 : measure.LineHeight() * 2;
    picture = std::make_unique<Picture>(pictureName, side);
    if (IsHighContrast())
        picture->Tint(GetSysColor(COLOR_BTNTEXT));
}

// An owner-drawn button turns the second of two quick clicks into a double-click.
void PictureButton::Notified(UINT code) {
    Button::Notified(code == BN_DBLCLK ? static_cast<UINT>(BN_CLICKED) : code);
}

LRESULT PictureButton::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEMOVE)
        SetHovered(true);
    else if (message == WM_MOUSELEAVE)
        SetHovered(false);
    else if (message == WM_ENABLE)
        hovered = false;
    return Button::Received(message, wParam, lParam);
}

void PictureButton::SetHovered(bool on) {
    if (on == hovered)
        return;
    hovered = on;
    if (hovered) {
        TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, Handle(), 0};
        TrackMouseEvent(&leave);
    }
    InvalidateRect(Handle(), nullptr, FALSE);
}

void PictureButton::Draw(const DRAWITEMSTRUCT& drawing) {
    const bool enabled = (drawing.itemState & ODS_DISABLED) == 0;
    const bool pressed = (drawing.itemState & ODS_SELECTED) != 0;
    DrawSurface(drawing, enabled, pressed);
    DrawContents(drawing, enabled, pressed);
    if ((drawing.itemState & ODS_FOCUS) && !(drawing.itemState & ODS_NOFOCUSRECT)) {
        RECT inner = drawing.rcItem;
        InflateRect(&inner, -3, -3);
        DrawFocusRect(drawing.hDC, &inner);
    }
}

void PictureButton::DrawSurface(const DRAWITEMSTRUCT& drawing, bool enabled, bool pressed) const {
    RECT area = drawing.rcItem;
    FillRect(drawing.hDC, &area, GetSysColorBrush(COLOR_BTNFACE));
    int state = hovered ? PBS_HOT : PBS_NORMAL;
    if (!enabled)
        state = PBS_DISABLED;
    else if (pressed)
        state = PBS_PRESSED;
    if (DrawThemedButton(Handle(), drawing.hDC, area, state))
        return;
    const UINT plainState = (pressed ? DFCS_PUSHED : 0u) | (enabled ? 0u : DFCS_INACTIVE);
    DrawFrameControl(drawing.hDC, &area, DFC_BUTTON, DFCS_BUTTONPUSH | plainState);
}

void PictureButton::DrawContents(const DRAWITEMSTRUCT& drawing, bool enabled, bool pressed) const {
    const TextMeasure& measure = form.Measure();
    const RECT& area = drawing.rcItem;
    const std::wstring text = captionShown ? Text() : std::wstring();
    const int gap = captionShown ? measure.Across(4) : 0;
    const int width = picture->Width() + gap + (captionShown ? measure.Width(text) : 0);
    const int shift = pressed ? 1 : 0;
    const int left = static_cast<int>(area.left + area.right - width) / 2 + shift;
    const int middle = static_cast<int>(area.top + area.bottom) / 2 + shift;
    picture->Draw(drawing.hDC, left, middle - picture->Height() / 2,
                  enabled ? BYTE{255} : DisabledStrength);
    if (!captionShown)
        return;
    const HGDIOBJ former = SelectObject(drawing.hDC, measure.Font());
    SetBkMode(drawing.hDC, TRANSPARENT);
    SetTextColor(drawing.hDC, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    TextOutW(drawing.hDC, left + picture->Width() + gap, middle - measure.LineHeight() / 2,
             text.c_str(), static_cast<int>(text.size()));
    SelectObject(drawing.hDC, former);
}

} // namespace tamblin
