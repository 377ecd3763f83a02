#include "base/text.h"

#include <algorithm>

namespace tamblin {

std::wstring UpperCase(std::wstring_view text) {
    std::wstring upper(text);
    for (wchar_t& letter : upper)
        letter = UpperCase(letter);
    return upper;
}

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return UpperCase(x) == UpperCase(y); });
}

bool EndsWithIgnoringCase(std::wstring_view text, std::wstring_view end) {
    return text.size() >= end.size() &&
           EqualIgnoringCase(text.substr(text.size() - end.size()), end);
}

std::wstring_view WithoutLast(std::wstring_view text, size_t count) {
    return text.substr(0, text.size() - std::min(count, text.size()));
}

std::wstring WithBackslash(std::wstring_view folder) {
    std::wstring path(folder);
    if (!path.ends_with(L'\\'))
        path += L'\\';
    return path;
}

std::wstring WithoutBackslash(std::wstring_view folder) {
    const bool isRoot = folder.size() == 3 && folder[1] == L':';
    return std::wstring(!isRoot && folder.ends_with(L'\\') ? WithoutLast(folder, 1) : folder);
}

std::wstring WithGapFilled(std::wstring_view sentence, std::wstring_view filling) {
    constexpr std::wstring_view gap = L"{}";
    return std::wstring(sentence).replace(sentence.find(gap), gap.size(), filling);
}

std::wstring_view NameOf(std::wstring_view path) {
    const size_t backslash = path.rfind(L'\\');
    return backslash == std::wstring_view::npos ? path : path.substr(backslash + 1);
}

} // namespace tamblin
