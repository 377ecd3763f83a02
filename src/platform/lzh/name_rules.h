// Which names Windows takes as they stand. Everything else is refused, since it would end up
// elsewhere: in a device, in a stream of another file, or under another name.
#pragma once

#include <string_view>

namespace tamblin::lzh {

// Longest name of a file or folder, in UTF-16 units, and longest path below the target folder.
inline constexpr std::size_t longestName = 255;
inline constexpr std::size_t longestPath = 259;

// The name in UTF-16 units, whatever the platform's wchar_t is.
std::size_t Utf16Size(std::wstring_view name);

bool IsAllowedName(std::wstring_view name);

} // namespace tamblin::lzh
