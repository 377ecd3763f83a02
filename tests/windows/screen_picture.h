// What the screen shows of a window, to be compared with what it shows later.
#pragma once

#include <algorithm>
#include <string>

#include "windows/canvas.h"

namespace tamblin {

class ScreenPicture {
  public:
    explicit ScreenPicture(HWND window) {
        RECT area{};
        GetWindowRect(window, &area);
        const RECT screenArea{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        IntersectRect(&area, &area, &screenArea);
        width = static_cast<int>(area.right - area.left);
        const int height = static_cast<int>(area.bottom - area.top);
        const Canvas canvas(width, height, 0);
        const HDC screen = GetDC(nullptr);
        BitBlt(canvas.Target(), 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
        ReleaseDC(nullptr, screen);
        pixels = canvas.Pixels();
    }

    struct Differences {
        size_t count = 0;
        RECT around{}; // in pixels of the window
    };
    // From a picture of the same size.
    Differences DifferencesTo(const ScreenPicture& other) const {
        Differences found;
        for (size_t i = 0; i < pixels.size(); ++i) {
            if (pixels[i] == other.pixels[i])
                continue;
            const auto x = static_cast<LONG>(i % static_cast<size_t>(width));
            const auto y = static_cast<LONG>(i / static_cast<size_t>(width));
            const RECT pixel{x, y, x + 1, y + 1};
            UnionRect(&found.around, &found.around, &pixel);
            ++found.count;
        }
        return found;
    }
    // The same in words; empty when no pixel differs.
    std::string DifferencesFrom(const ScreenPicture& other) const {
        if (pixels.size() != other.pixels.size())
            return "other size";
        const auto [count, around] = DifferencesTo(other);
        if (count == 0)
            return "";
        return std::to_string(count) + " pixels from " + std::to_string(around.left) + "," +
               std::to_string(around.top) + " to " + std::to_string(around.right) + "," +
               std::to_string(around.bottom);
    }
    size_t Colours() const {
        std::vector<std::uint32_t> sorted = pixels;
        std::sort(sorted.begin(), sorted.end());
        return static_cast<size_t>(std::unique(sorted.begin(), sorted.end()) - sorted.begin());
    }

  private:
    int width = 0;
    std::vector<std::uint32_t> pixels;
};

} // namespace tamblin
