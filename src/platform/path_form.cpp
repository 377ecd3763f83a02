#include "platform/path_form.h"

#include <algorithm>

#include "base/file_name.h"

namespace tamblin {
namespace {

bool IsSeparator(wchar_t letter) {
    return letter == L'\\' || letter == L'/';
}

bool IsAsciiLetter(wchar_t letter) {
    return (letter >= L'a' && letter <= L'z') || (letter >= L'A' && letter <= L'Z');
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
