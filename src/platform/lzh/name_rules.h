// Which names Windows takes as they stand. Everything else is refused, since it would end up
// elsewhere: in a device, in a stream of another file, or under another name.
#pragma once

#include <string_view>

namespace tamblin::lzh {

// The name in UTF-16 units, whatever the platform's wchar_t is.
std::size_t Utf16Size(std::wstring_view name);

bool IsAllowedName(std::wstring_view name);

} // namespace tamblin::lzh
