#include "base/byte_lines.h"

#include <algorithm>

namespace tamblin {
namespace {

// Takes a line end from the front, if one stands there.
bool SkipLineEnd(std::string_view& rest) {
    if (rest.empty() || (rest[0] != '\r' && rest[0] != '\n'))
        return false;
    rest.remove_prefix(rest.starts_with(LineEnd) ? 2 : 1);
    return true;
}

std::string_view TakeUntil(std::string_view& rest, std::string_view ends) {
    const size_t length = std::min(rest.find_first_of(ends), rest.size());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(length);
    return taken;
}

void SkipBlanks(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
}

// Takes the comma or line end behind a field. False when something else stands there.
bool SkipFieldEnd(std::string_view& rest) {
    if (rest.empty() || SkipLineEnd(rest))
        return true;
    if (rest[0] != ',')
        return false;
    rest.remove_prefix(1);
    return true;
}

} // namespace

std::optional<std::string_view> LineReader::Next() {
    if (rest.empty())
        return std::nullopt;
    const std::string_view line = TakeUntil(rest, LineEnd);
    SkipLineEnd(rest);
    return line;
}

std::optional<std::string_view> FieldReader::Next() {
    if (rest.empty())
        return std::nullopt;
    SkipBlanks(rest);
    if (const auto quoted = NextQuoted())
        return quoted;
    const std::string_view field = TakeUntil(rest, ",\r\n");
    SkipFieldEnd(rest);
    return field;
}

// Quotes that enclose only a part of the field are not taken for quotes: nothing of it is lost.
std::optional<std::string_view> FieldReader::NextQuoted() {
    if (!rest.starts_with('"'))
        return std::nullopt;
    std::string_view behind = rest.substr(1);
    const std::string_view field = TakeUntil(behind, "\"\r\n");
    if (!behind.starts_with('"'))
        return std::nullopt;
    behind.remove_prefix(1);
    SkipBlanks(behind);
    if (!SkipFieldEnd(behind))
        return std::nullopt;
    rest = behind;
    return field;
}

} // namespace tamblin
