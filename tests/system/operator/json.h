// Writes JSON text, UTF-8, on one line.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tamblin {

std::string JsonText(const std::wstring& text);
std::string JsonArray(const std::vector<std::string>& values);

// `members` are names and values that are JSON already.
std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members);

inline std::string JsonBool(bool value) {
    return value ? "true" : "false";
}

template <typename Number>
std::string JsonNumber(Number value) {
    return std::to_string(value);
}

} // namespace tamblin
