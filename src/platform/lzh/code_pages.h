// The system's knowledge of character encodings, by Windows' numbers for them (932, 65001 …).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamblin::lzh {

class CodePages {
  public:
    virtual ~CodePages() = default;

    virtual bool Knows(unsigned codePage) = 0;

    // The text, or nothing when any of the bytes is no character of the code page. Characters
    // outside the basic plane come as the platform's wchar_t has them.
    virtual std::optional<std::wstring> Decode(unsigned codePage, std::string_view bytes) = 0;
};

} // namespace tamblin::lzh
