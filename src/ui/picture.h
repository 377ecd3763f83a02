// A picture of the program's resources, which hold each drawing of assets in several heights. It is
// never scaled, so that it is as sharp as it was drawn. COM has to be up.
#pragma once

#include <cstdint>

#include "ui/gdi_object.h"

namespace tamblin {

class Picture {
  public:
    // In the largest height that is at most this. Empty when there is none.
    Picture(const wchar_t* name, int greatestHeight);

    int Width() const { return width; }
    int Height() const { return height; }

    // Gives all that is drawn one colour.
    void Tint(COLORREF colour);

    // Draws over what is there, as far as the picture covers it. `strength` is 0 to 255.
    void Draw(HDC target, int left, int top, BYTE strength = 255) const;

  private:
    int width = 0;
    int height = 0;
    GdiObject<HBITMAP> handle;
    // Rows from the top; 0xAARRGGBB, the colours multiplied by the opacity.
    std::uint32_t* pixels = nullptr;
};

} // namespace tamblin
