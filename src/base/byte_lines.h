// Text files as lines of bytes, whatever their code page. A line ends at CR LF, at a lone CR or at
// a lone LF; line ends, commas and quotes never are part of a two-byte character.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamblin {

inline constexpr std::string_view LineEnd = "\r\n";

// Adds a line that begins with `start`.
inline void AddLine(std::string& text, std::string_view start, std::string_view rest = {}) {
    text.append(start).append(rest).append(LineEnd);
}

// Whole lines, commas and all. The views live as long as the bytes.
class LineReader {
  public:
    explicit LineReader(std::string_view bytes) : rest(bytes) {}

    // The next line without its end; nothing at the end of the file.
    std::optional<std::string_view> Next();

  private:
    std::string_view rest;
};

// Comma-delimited fields: a field ends at a comma or at the line's end, loses its leading blanks
// and the double quotes that enclose it. An empty line is one empty field.
class FieldReader {
  public:
    explicit FieldReader(std::string_view bytes) : rest(bytes) {}

    std::optional<std::string_view> Next();

  private:
    std::optional<std::string_view> NextQuoted();

    std::string_view rest;
};

} // namespace tamblin
