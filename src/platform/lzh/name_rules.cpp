#include "platform/lzh/name_rules.h"

#include <algorithm>
#include <cstdint>

#include "base/device_name.h"
#include "base/path_limits.h"

namespace tamblin::lzh {
namespace {

constexpr std::wstring_view forbidden = L"<>:\"|?*\\/";

bool IsForbiddenCharacter(wchar_t letter) {
    return static_cast<unsigned>(letter) < 0x20 ||
           forbidden.find(letter) != std::wstring_view::npos;
}

} // namespace

std::size_t Utf16Size(std::wstring_view name) {
    const auto pairs = std::count_if(name.begin(), name.end(), [](wchar_t letter) {
        return static_cast<std::uint32_t>(letter) >> 16 != 0;
    });
    return name.size() + static_cast<std::size_t>(pairs);
}

bool IsAllowedName(std::wstring_view name) {
    if (name.empty() || Utf16Size(name) > LongestName)
        return false;
    if (std::any_of(name.begin(), name.end(), IsForbiddenCharacter))
        return false;
    return !name.ends_with(L'.') && !name.ends_with(L' ') && !IsDeviceName(name);
}

} // namespace tamblin::lzh
