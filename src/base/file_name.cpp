#include "base/file_name.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/text.h"

namespace tamblin {
namespace {

constexpr std::wstring_view devices[] = {L"CON",    L"PRN",     L"AUX",   L"NUL",
                                         L"CONIN$", L"CONOUT$", L"CLOCK$"};
// Windows counts the superscript digits one, two and three as digits here.
constexpr std::wstring_view portNumbers = L"123456789\x00B9\x00B2\x00B3";

// Windows looks at what stands before the first dot, less the blanks there.
std::wstring StemOf(std::wstring_view name) {
    std::wstring_view stem = name.substr(0, name.find(L'.'));
    while (stem.ends_with(L' '))
        stem.remove_suffix(1);
    return UpperCase(stem);
}

bool IsForbidden(wchar_t letter) {
    return static_cast<unsigned>(letter) < 0x20 ||
           std::wstring_view(L"*?<>|\":\\/").find(letter) != std::wstring_view::npos;
}

} // namespace

std::size_t Utf16Size(std::wstring_view name) {
    const auto pairs = std::count_if(name.begin(), name.end(), [](wchar_t letter) {
        return static_cast<std::uint32_t>(letter) >> 16 != 0;
    });
    return name.size() + static_cast<std::size_t>(pairs);
}

bool IsDeviceName(std::wstring_view name) {
    const std::wstring stem = StemOf(name);
    if (std::find(std::begin(devices), std::end(devices), stem) != std::end(devices))
        return true;
    return stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")) &&
           portNumbers.find(stem[3]) != std::wstring_view::npos;
}

bool IsWellFormedName(std::wstring_view name) {
    return Utf16Size(name) <= LongestName && std::none_of(name.begin(), name.end(), IsForbidden) &&
           !IsDeviceName(name);
}

} // namespace tamblin
