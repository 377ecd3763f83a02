// What Windows takes of names and paths. Lengths are in UTF-16 units.
#pragma once

#include <cstddef>
#include <string_view>

namespace tamblin {

inline constexpr std::size_t LongestName = 255; // of a file or folder
// Without the "\\?\" that lifts the limit. CreateDirectory leaves room for a short file name, so it
// is the first to refuse; no folder with a longer path can be made current either.
inline constexpr std::size_t LongestPath = 259;
inline constexpr std::size_t LongestFolder = LongestPath - 12;

// The length, whatever the platform's wchar_t is.
std::size_t Utf16Size(std::wstring_view name);

// Names that Windows takes for devices, in whichever folder they seem to be: CON, NUL.txt, COM1,
// LPT¹ and the like, in any letter case.
bool IsDeviceName(std::wstring_view name);

// False for what no drive accepts (wildcards, separators, colons, < > | ", control characters, more
// than LongestName), and for devices.
bool IsWellFormedName(std::wstring_view name);

} // namespace tamblin
