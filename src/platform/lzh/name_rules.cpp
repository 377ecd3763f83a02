#include "platform/lzh/name_rules.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/text.h"

namespace tamblin::lzh {
namespace {

constexpr std::wstring_view devices[] = {L"CON",    L"PRN",     L"AUX",   L"NUL",
                                         L"CONIN$", L"CONOUT$", L"CLOCK$"};
constexpr std::wstring_view numberedDevices[] = {L"COM", L"LPT"};
constexpr std::wstring_view deviceNumbers = L"0123456789¹²³";

constexpr std::wstring_view forbidden = L"<>:\"|?*\\/";

bool IsForbiddenCharacter(wchar_t letter) {
    return static_cast<unsigned>(letter) < 0x20 ||
           forbidden.find(letter) != std::wstring_view::npos;
}

// Windows looks at what stands before the first dot, less the blanks there.
std::wstring DeviceStem(std::wstring_view name) {
    std::wstring_view stem = name.substr(0, name.find_first_of(L".:"));
    while (stem.ends_with(L' '))
        stem.remove_suffix(1);
    return UpperCase(stem);
}

} // namespace

std::size_t Utf16Size(std::wstring_view name) {
    const auto pairs = std::count_if(name.begin(), name.end(), [](wchar_t letter) {
        return static_cast<std::uint32_t>(letter) >> 16 != 0;
    });
    return name.size() + static_cast<std::size_t>(pairs);
}

bool IsDeviceName(std::wstring_view name) {
    const std::wstring stem = DeviceStem(name);
    if (std::find(std::begin(devices), std::end(devices), stem) != std::end(devices))
        return true;
    if (stem.size() != 4 || deviceNumbers.find(stem[3]) == std::wstring_view::npos)
        return false;
    return std::find(std::begin(numberedDevices), std::end(numberedDevices), stem.substr(0, 3)) !=
           std::end(numberedDevices);
}

bool IsAllowedName(std::wstring_view name) {
    if (name.empty() || Utf16Size(name) > longestName)
        return false;
    if (std::any_of(name.begin(), name.end(), IsForbiddenCharacter))
        return false;
    return !name.ends_with(L'.') && !name.ends_with(L' ') && !IsDeviceName(name);
}

} // namespace tamblin::lzh
