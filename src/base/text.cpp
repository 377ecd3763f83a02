#include "base/text.h"

#include <algorithm>
#include <type_traits>

namespace tamblin {
namespace {

// Runs of lower-case letters and the distance to their upper-case forms. With a step of 2 the
// lower-case letters are every second one, from `first` on.
struct CaseRun {
    unsigned first;
    unsigned last;
    int distance;
    unsigned step;
};

constexpr CaseRun caseRuns[] = {
    {0x0061, 0x007A, -32, 1}, {0x00E0, 0x00F6, -32, 1}, {0x00F8, 0x00FE, -32, 1},
    {0x00FF, 0x00FF, 121, 1}, {0x0101, 0x012F, -1, 2},  {0x0133, 0x0137, -1, 2},
    {0x013A, 0x0148, -1, 2},  {0x014B, 0x0177, -1, 2},  {0x017A, 0x017E, -1, 2},
    {0x01CE, 0x01DC, -1, 2},  {0x01DF, 0x01EF, -1, 2},  {0x01F9, 0x021F, -1, 2},
    {0x0223, 0x0233, -1, 2},  {0x03AC, 0x03AC, -38, 1}, {0x03AD, 0x03AF, -37, 1},
    {0x03B1, 0x03C1, -32, 1}, {0x03C2, 0x03C2, -31, 1}, {0x03C3, 0x03CB, -32, 1},
    {0x03CC, 0x03CC, -64, 1}, {0x03CD, 0x03CE, -63, 1}, {0x03D9, 0x03EF, -1, 2},
    {0x0430, 0x044F, -32, 1}, {0x0450, 0x045F, -80, 1}, {0x0461, 0x0481, -1, 2},
    {0x048B, 0x04BF, -1, 2},  {0x04C2, 0x04CE, -1, 2},  {0x04D1, 0x0523, -1, 2},
    {0x0561, 0x0586, -48, 1}, {0x1E01, 0x1E95, -1, 2},  {0x1EA1, 0x1EFF, -1, 2},
    {0x2170, 0x217F, -16, 1}, {0x24D0, 0x24E9, -26, 1}, {0xFF41, 0xFF5A, -32, 1},
};

} // namespace

wchar_t UpperCase(wchar_t letter) {
    const unsigned code = static_cast<std::make_unsigned_t<wchar_t>>(letter);
    if (code < 0x61)
        return letter;
    const auto* run = std::lower_bound(std::begin(caseRuns), std::end(caseRuns), code,
                                       [](const CaseRun& r, unsigned c) { return r.last < c; });
    if (run == std::end(caseRuns) || code < run->first || (code - run->first) % run->step != 0)
        return letter;
    return static_cast<wchar_t>(static_cast<int>(code) + run->distance);
}

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
    return text.size() >= end.size() && EqualIgnoringCase(Last(text, end.size()), end);
}

bool StartsWith(std::wstring_view text, std::wstring_view start) {
    return text.substr(0, start.size()) == start;
}

std::wstring_view Last(std::wstring_view text, size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
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
