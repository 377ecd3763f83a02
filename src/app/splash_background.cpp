// What lies behind the splash window's labels.
#include <cmath>

#include "app/splash_window.h"

namespace tamblin {
namespace {

constexpr COLORREF Sea = RGB(0x15, 0x6F, 0x7E);
constexpr COLORREF DeepSea = RGB(0x0B, 0x3A, 0x55);
constexpr COLORREF Cream = RGB(0xFF, 0xF4, 0xE0);

COLORREF Mix(COLORREF from, COLORREF to, double share) {
    const auto channel = [&](BYTE a, BYTE b) {
        return static_cast<BYTE>(std::lround(a + (b - a) * share));
    };
    return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
               channel(GetBValue(from), GetBValue(to)));
}

// From one colour in the upper left corner to another in the lower right one.
void FillDiagonally(HDC target, SIZE size, COLORREF from, COLORREF to) {
    const auto corner = [&](LONG x, LONG y) {
        const auto along = static_cast<double>(x * size.cx + y * size.cy);
        const COLORREF colour =
            Mix(from, to, along / static_cast<double>(size.cx * size.cx + size.cy * size.cy));
        const auto channel = [](BYTE value) {
            return static_cast<COLOR16>(value << 8);
        };
        return TRIVERTEX{x,
                         y,
                         channel(GetRValue(colour)),
                         channel(GetGValue(colour)),
                         channel(GetBValue(colour)),
                         0};
    };
    TRIVERTEX corners[] = {corner(0, 0), corner(size.cx, 0), corner(0, size.cy),
                           corner(size.cx, size.cy)};
    GRADIENT_TRIANGLE halves[] = {{0, 1, 2}, {1, 2, 3}};
    // As GradientFill of msimg32.dll, which a program does not surely get from Windows' own folder.
    GdiGradientFill(target, corners, 4, halves, 2, GRADIENT_FILL_TRIANGLE);
}

// Each ring is a little lighter than the one around it.
void DrawRipples(HDC target, SIZE size) {
    constexpr int rings = 5;
    const LONG x = size.cx + size.cy * 3 / 100;
    const LONG y = size.cy * 105 / 100;
    for (int ring = 1; ring <= rings; ++ring) {
        const LONG radius = size.cy * 24 * (rings + 1 - ring) / 100;
        const GdiObject<HRGN> circle(
            CreateEllipticRgn(x - radius, y - radius, x + radius, y + radius));
        SelectClipRgn(target, circle.get());
        const double light = 0.045 * ring;
        FillDiagonally(target, size, Mix(Sea, Cream, light), Mix(DeepSea, Cream, light));
    }
    SelectClipRgn(target, nullptr);
}

void DrawFrame(HDC target, SIZE size, int inset, int lineWidth, COLORREF colour) {
    const GdiObject<HPEN> pen(CreatePen(PS_INSIDEFRAME, lineWidth, colour));
    const HGDIOBJ formerPen = SelectObject(target, pen.get());
    const HGDIOBJ formerBrush = SelectObject(target, GetStockObject(NULL_BRUSH));
    Rectangle(target, inset, inset, static_cast<int>(size.cx) - inset,
              static_cast<int>(size.cy) - inset);
    SelectObject(target, formerBrush);
    SelectObject(target, formerPen);
}

} // namespace

GdiObject<HBRUSH> MakeSplashBackground(SIZE size, int unit) {
    const HDC screen = GetDC(nullptr);
    const HDC target = CreateCompatibleDC(screen);
    const GdiObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen, size.cx, size.cy));
    const HGDIOBJ former = SelectObject(target, bitmap.get());
    FillDiagonally(target, size, Sea, DeepSea);
    DrawRipples(target, size);
    const int thin = unit * 3 / 4;
    DrawFrame(target, size, 0, thin, DeepSea);
    DrawFrame(target, size, 4 * unit - thin / 2, thin, Mix(Mix(Sea, DeepSea, 0.5), Cream, 0.55));
    SelectObject(target, former);
    GdiObject<HBRUSH> brush(CreatePatternBrush(bitmap.get()));
    DeleteDC(target);
    ReleaseDC(nullptr, screen);
    return brush;
}

} // namespace tamblin
