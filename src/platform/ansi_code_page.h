// The system's ANSI code page, in which the program's text files are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamblin {

class AnsiCodePage {
  public:
    virtual ~AnsiCodePage() = default;

    // What is no character of the code page becomes a replacement; nothing throws.
    virtual std::wstring Decode(std::string_view bytes) = 0;
    // Nothing for a text with a character that the code page does not have. Look-alikes (a yen sign
    // for a backslash) do not count: they would name another file.
    virtual std::optional<std::string> Encode(std::wstring_view text) = 0;

    // Encode for what goes into a file: throws RunTimeError 52 with the text and an advice.
    std::string EncodeName(std::wstring_view name);
};

} // namespace tamblin
