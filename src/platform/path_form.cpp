#include "platform/path_form.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"

namespace tamblin {
namespace {

constexpr size_t longestName = 255;

bool IsSeparator(wchar_t letter) {
    return letter == L'\\' || letter == L'/';
}

bool IsAsciiLetter(wchar_t letter) {
    return (letter >= L'a' && letter <= L'z') || (letter >= L'A' && letter <= L'Z');
}

bool IsForbidden(wchar_t letter) {
    return static_cast<unsigned>(letter) < 0x20 ||
           std::wstring_view(L"*?<>|\":").find(letter) != std::wstring_view::npos;
}

// Windows counts the superscript digits one, two and three as digits here.
bool IsPortDigit(wchar_t letter) {
    return (letter >= L'1' && letter <= L'9') || letter == 0x00B9 || letter == 0x00B2 ||
           letter == 0x00B3;
}

bool IsWellFormedName(std::wstring_view name) {
    return name.size() <= longestName && std::none_of(name.begin(), name.end(), IsForbidden) &&
           !IsDeviceName(name);
}

bool IsNameSpacePrefix(std::wstring_view path) {
    return path.size() >= 3 && IsSeparator(path[0]) && IsSeparator(path[1]) &&
           (path[2] == L'.' || path[2] == L'?') && (path.size() == 3 || IsSeparator(path[3]));
}

} // namespace

bool IsDeviceName(std::wstring_view name) {
    std::wstring base = UpperCase(name.substr(0, name.find(L'.')));
    base.erase(base.find_last_not_of(L' ') + 1);
    static constexpr std::array<std::wstring_view, 6> devices = {L"CON", L"PRN",    L"AUX",
                                                                 L"NUL", L"CONIN$", L"CONOUT$"};
    if (std::find(devices.begin(), devices.end(), base) != devices.end())
        return true;
    return base.size() == 4 && (StartsWith(base, L"COM") || StartsWith(base, L"LPT")) &&
           IsPortDigit(base[3]);
}

bool IsFullPath(std::wstring_view path) {
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]))
        return true;
    return path.size() >= 3 && IsAsciiLetter(path[0]) && path[1] == L':' && IsSeparator(path[2]);
}

bool IsWellFormedPath(std::wstring_view path) {
    if (IsNameSpacePrefix(path))
        return false;
    if (path.size() >= 2 && path[1] == L':' && IsAsciiLetter(path[0]))
        path.remove_prefix(2);
    while (!path.empty()) {
        const auto* const end = std::find_if(path.begin(), path.end(), IsSeparator);
        const auto length = static_cast<size_t>(end - path.begin());
        if (!IsWellFormedName(path.substr(0, length)))
            return false;
        path.remove_prefix(std::min(length + 1, path.size()));
    }
    return true;
}

} // namespace tamblin
