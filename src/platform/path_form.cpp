#include "platform/path_form.h"

#include <algorithm>
#include <string>

#include "base/device_name.h"
#include "base/path_limits.h"

namespace tamblin {
namespace {

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

bool IsWellFormedName(std::wstring_view name) {
    return name.size() <= LongestName && std::none_of(name.begin(), name.end(), IsForbidden) &&
           !IsDeviceName(name);
}

bool IsNameSpacePrefix(std::wstring_view path) {
    return path.size() >= 3 && IsSeparator(path[0]) && IsSeparator(path[1]) &&
           (path[2] == L'.' || path[2] == L'?') && (path.size() == 3 || IsSeparator(path[3]));
}

} // namespace

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
