// What Windows takes of names and paths, in UTF-16 units.
#pragma once

#include <cstddef>

namespace tamblin {

inline constexpr std::size_t LongestName = 255; // of a file or folder
// Without the "\\?\" that lifts the limit. CreateDirectory leaves room for a short file name, so it
// is the first to refuse; no folder with a longer path can be made current either.
inline constexpr std::size_t LongestPath = 259;
inline constexpr std::size_t LongestFolder = LongestPath - 12;

} // namespace tamblin
