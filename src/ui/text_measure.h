// How much room texts take in a font, and lengths that grow with the font. Results are pixels.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/windows_headers.h"

namespace tamblin {

struct Size {
    int width = 0;
    int height = 0;
};

class TextMeasure {
  public:
    // The font outlives the measure.
    explicit TextMeasure(HFONT measuredFont);
    ~TextMeasure();
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;

    HFONT Font() const { return font; }
    int LineHeight() const { return lineHeight; }
    // From a line's top.
    int Baseline() const { return baseline; }

    int Width(std::wstring_view line) const;
    // Lines end at "\n", with or without a "\r" before it. "&" counts as a plain character.
    Size Of(std::wstring_view text) const;
    // The height of a text that wraps at a width.
    int WrappedHeight(const std::wstring& text, int width) const;

    // The widest of many lines, each to within a pixel or two: the width of every character is
    // measured only once.
    int Widest(const std::vector<std::wstring>& lines) const;

    // Lengths in the units of dialog boxes: a quarter of the average character's width and an
    // eighth of a line's height.
    int Across(int units) const { return MulDiv(units, averageWidth, 4); }
    int Down(int units) const { return MulDiv(units, lineHeight, 8); }

  private:
    HFONT font;
    HDC screen;
    int lineHeight = 0;
    int baseline = 0;
    int averageWidth = 0;
    mutable std::vector<short> widths; // by character, -1 when not yet measured
};

} // namespace tamblin
