// Comparing and cutting names. Upper-casing keeps a text's length.
#pragma once

#include <string>
#include <string_view>

#include "base/upper_case.h"

namespace tamblin {

std::wstring UpperCase(std::wstring_view text);

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b);
bool EndsWithIgnoringCase(std::wstring_view text, std::wstring_view end);

// The text without its last `count` characters; empty when it is not longer than that.
std::wstring_view WithoutLast(std::wstring_view text, size_t count);

// The folder with "\" appended, unless it already ends in one.
std::wstring WithBackslash(std::wstring_view folder);
// The folder without its trailing "\"; a drive root ("C:\") keeps it.
std::wstring WithoutBackslash(std::wstring_view folder);

// A sentence with its one gap, "{}", filled.
std::wstring WithGapFilled(std::wstring_view sentence, std::wstring_view filling);

// The text after the last "\" of a path.
std::wstring_view NameOf(std::wstring_view path);

} // namespace tamblin
