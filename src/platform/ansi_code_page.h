// The system's ANSI code page, in which the program's text files are written.
#pragma once

#include <string>
#include <string_view>

namespace tamblin {

class AnsiCodePage {
  public:
    virtual ~AnsiCodePage() = default;

    // What is no character of the code page becomes a replacement; nothing throws.
    virtual std::wstring Decode(std::string_view bytes) = 0;
    virtual std::string Encode(std::wstring_view text) = 0;
};

} // namespace tamblin
