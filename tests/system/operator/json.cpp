#include "json.h"

#include <cstdio>

namespace tamblin {

namespace {

bool IsPlain(wchar_t unit) {
    return unit >= L' ' && unit < 0x7F && unit != L'"' && unit != L'\\';
}

// Everything that is not plain ASCII goes as \uXXXX, so that no console code page can spoil it.
std::string Escaped(wchar_t unit) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit) & 0xFFFFU);
    return escape;
}

// `values` between brackets of one kind.
std::string Joined(char opening, const std::vector<std::string>& values, char closing) {
    std::string text(1, opening);
    for (const std::string& value : values) {
        if (text.size() > 1)
            text += ',';
        text += value;
    }
    text += closing;
    return text;
}

} // namespace

std::string JsonText(const std::wstring& text) {
    std::string json = "\"";
    for (const wchar_t unit : text) {
        if (IsPlain(unit))
            json += static_cast<char>(unit);
        else
            json += Escaped(unit);
    }
    json += '"';
    return json;
}

std::string JsonArray(const std::vector<std::string>& values) {
    return Joined('[', values, ']');
}

std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members) {
    std::vector<std::string> values;
    values.reserve(members.size());
    for (const auto& [name, value] : members) {
        values.push_back(JsonText({name.begin(), name.end()}).append(":").append(value));
    }
    return Joined('{', values, '}');
}

} // namespace tamblin
