#include "json.h"

#include <cstdio>

namespace tamblin {

namespace {

// Everything that is not plain ASCII goes as \uXXXX, so that no console code page can spoil it.
std::string Escaped(wchar_t unit) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit) & 0xFFFFU);
    return escape;
}

std::string Joined(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values) {
        text += text.empty() ? value : "," + value;
    }
    return text;
}

} // namespace

std::string JsonText(const std::wstring& text) {
    std::string json = "\"";
    for (const wchar_t unit : text) {
        const bool plain = unit >= L' ' && unit < 0x7F && unit != L'"' && unit != L'\\';
        json += plain ? std::string(1, static_cast<char>(unit)) : Escaped(unit);
    }
    return json + "\"";
}

std::string JsonArray(const std::vector<std::string>& values) {
    return "[" + Joined(values) + "]";
}

std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members) {
    std::vector<std::string> values;
    values.reserve(members.size());
    for (const auto& [name, value] : members) {
        values.push_back("\"" + name + "\":" + value);
    }
    return "{" + Joined(values) + "}";
}

} // namespace tamblin
