// Cuts stored names into components and decodes them, without judging them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/lzh/code_pages.h"

namespace tamblin::lzh {

// Empty components are kept: "\a" gives "" and "a", "a\" gives "a" and "".
std::vector<std::wstring> Components(std::string_view bytes, unsigned codePage,
                                     CodePages& codePages);
// U+FFFF separates here as 0xFF does in bytes.
std::vector<std::wstring> Components(std::u16string_view text);

} // namespace tamblin::lzh
