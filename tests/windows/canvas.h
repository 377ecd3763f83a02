// A bitmap to draw on, whose pixels can be looked at.
#pragma once

#include <cstdint>
#include <vector>

#include "ui/windows_headers.h"

namespace tamblin {

class Canvas {
  public:
    Canvas(int itsWidth, int itsHeight, COLORREF ground)
        : width(itsWidth), height(itsHeight), target(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = static_cast<const std::uint32_t*>(bits);
        former = SelectObject(target, bitmap);
        const HBRUSH brush = CreateSolidBrush(ground);
        Fill(brush);
        DeleteObject(brush);
    }
    ~Canvas() {
        SelectObject(target, former);
        DeleteObject(bitmap);
        DeleteDC(target);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Target() const { return target; }
    RECT Area() const { return {0, 0, width, height}; }
    void Fill(HBRUSH brush) {
        const RECT all = Area();
        FillRect(target, &all, brush);
    }
    // Row by row, without their unused bits.
    std::vector<std::uint32_t> Pixels() const {
        GdiFlush();
        std::vector<std::uint32_t> all(pixels,
                                       pixels + static_cast<std::ptrdiff_t>(width) * height);
        for (std::uint32_t& pixel : all)
            pixel &= 0xFFFFFF;
        return all;
    }
    COLORREF At(int x, int y) const {
        GdiFlush();
        const std::uint32_t pixel = pixels[y * width + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }

  private:
    int width;
    int height;
    HDC target;
    HBITMAP bitmap = nullptr;
    HGDIOBJ former = nullptr;
    const std::uint32_t* pixels = nullptr;
};

} // namespace tamblin
