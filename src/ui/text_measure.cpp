#include "ui/text_measure.h"

#include <algorithm>

namespace tamblin {

TextMeasure::TextMeasure(HFONT measuredFont)
    : font(measuredFont), screen(CreateCompatibleDC(nullptr)), widths(0x10000, short{-1}) {
    SelectObject(screen, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen, &metrics);
    lineHeight = metrics.tmHeight;
    baseline = metrics.tmAscent;
    averageWidth = (Width(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") / 26 + 1) / 2;
}

TextMeasure::~TextMeasure() {
    DeleteDC(screen);
}

int TextMeasure::Width(std::wstring_view line) const {
    SIZE extent{};
    GetTextExtentPoint32W(screen, line.data(), static_cast<int>(line.size()), &extent);
    return extent.cx;
}

Size TextMeasure::Of(std::wstring_view text) const {
    Size size;
    while (true) {
        const size_t end = text.find(L'\n');
        std::wstring_view line = text.substr(0, end);
        if (line.ends_with(L'\r'))
            line.remove_suffix(1);
        size.width = std::max(size.width, Width(line));
        size.height += lineHeight;
        if (end == std::wstring_view::npos)
            return size;
        text.remove_prefix(end + 1);
    }
}

int TextMeasure::WrappedHeight(const std::wstring& text, int width) const {
    RECT area{0, 0, width, 0};
    return DrawTextW(screen, text.c_str(), -1, &area,
                     DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
}

int TextMeasure::Widest(const std::vector<std::wstring>& lines) const {
    int widest = 0;
    for (const std::wstring& line : lines) {
        int sum = 0;
        for (const wchar_t& character : line) {
            short& width = widths[static_cast<size_t>(character)];
            if (width < 0)
                width = static_cast<short>(Width({&character, 1}));
            sum += width;
        }
        widest = std::max(widest, sum);
    }
    return widest;
}

} // namespace tamblin
