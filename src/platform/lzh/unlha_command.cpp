#include "platform/lzh/unlha_command.h"

namespace tamblin::lzh {
namespace {

std::wstring_view WithoutBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

bool IsQuoted(std::wstring_view text) {
    return text.size() > 2 && text.front() == L'"' && text.back() == L'"';
}

} // namespace

std::optional<std::wstring> ArchiveOfCommand(std::wstring_view command) {
    std::wstring_view path = WithoutBlanks(command);
    if (!path.starts_with(L"x ") && !path.starts_with(L"X "))
        return std::nullopt;
    path = WithoutBlanks(path.substr(2));
    if (IsQuoted(path))
        path = path.substr(1, path.size() - 2);
    if (path.empty() || path.find(L'"') != std::wstring_view::npos)
        return std::nullopt;
    return std::wstring(path);
}

} // namespace tamblin::lzh
