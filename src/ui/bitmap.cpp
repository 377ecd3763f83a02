#include "ui/bitmap.h"

#include <algorithm>

namespace tamblin {

Bitmap::Bitmap(const Picture& picture) : width(picture.Width()), height(picture.Height()) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    handle = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bits)
        std::copy(picture.Pixels().begin(), picture.Pixels().end(),
                  static_cast<std::uint32_t*>(bits));
}

Bitmap::~Bitmap() {
    DeleteObject(handle);
}

void Bitmap::Draw(HDC target, int left, int top, BYTE strength) const {
    const HDC source = CreateCompatibleDC(target);
    const HGDIOBJ former = SelectObject(source, handle);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, strength, AC_SRC_ALPHA};
    // As AlphaBlend of msimg32.dll, which a program does not surely get from Windows' own folder.
    GdiAlphaBlend(target, left, top, width, height, source, 0, 0, width, height, blend);
    SelectObject(source, former);
    DeleteDC(source);
}

} // namespace tamblin
