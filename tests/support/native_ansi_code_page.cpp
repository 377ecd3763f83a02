#include "support/native_ansi_code_page.h"

#ifdef _WIN32
#include "platform/win32/win32_ansi_code_page.h"
#else
#include <iconv.h>

#include <cstdint>
#include <stdexcept>
#endif

namespace tamblin {

#ifdef _WIN32

std::wstring NativeAnsiCodePage::Decode(std::string_view bytes) {
    return Win32AnsiCodePage(932).Decode(bytes);
}

std::optional<std::string> NativeAnsiCodePage::Encode(std::wstring_view text) {
    return Win32AnsiCodePage(932).Encode(text);
}

#else

namespace {

// One conversion of iconv, a character at a time, so that what is no character can be replaced as
// Windows replaces it.
class Converter {
  public:
    Converter(const char* to, const char* from) : handle(iconv_open(to, from)) {
        if (handle == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error("iconv does not know the code page");
    }
    ~Converter() { iconv_close(handle); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The bytes of the result, none when the input is no whole character.
    std::string Convert(std::string_view input) {
        char output[8];
        std::string copy(input);
        char* from = copy.data();
        char* to = output;
        size_t fromLeft = copy.size();
        size_t toLeft = sizeof output;
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle, &from, &fromLeft, &to, &toLeft) != 0 || fromLeft != 0)
            return {};
        return {output, sizeof output - toLeft};
    }

  private:
    iconv_t handle;
};

bool IsLeadByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return (code >= 0x81 && code <= 0x9F) || (code >= 0xE0 && code <= 0xFC);
}

// The single bytes that no standard defines and Windows gives a place nevertheless.
wchar_t DecodeStrayByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (code == 0x80 || code == 0xA0)
        return static_cast<wchar_t>(code);
    return static_cast<wchar_t>(0xF8F1 + (code - 0xFD));
}

wchar_t FirstOf(const std::string& utf32) {
    std::uint32_t code = 0;
    for (size_t index = 4; index > 0; --index)
        code = code << 8 | static_cast<unsigned char>(utf32[index - 1]);
    return static_cast<wchar_t>(code);
}

} // namespace

std::wstring NativeAnsiCodePage::Decode(std::string_view bytes) {
    constexpr wchar_t replacement = 0x30FB;
    Converter converter("UTF-32LE", "CP932");
    std::wstring text;
    while (!bytes.empty()) {
        const size_t length = IsLeadByte(bytes[0]) && bytes.size() > 1 ? 2 : 1;
        const std::string character = converter.Convert(bytes.substr(0, length));
        if (!character.empty())
            text += FirstOf(character);
        else
            text += IsLeadByte(bytes[0]) ? replacement : DecodeStrayByte(bytes[0]);
        bytes.remove_prefix(length);
    }
    return text;
}

// What does not come back as itself is a look-alike (glibc has a few, as Windows has).
std::optional<std::string> NativeAnsiCodePage::Encode(std::wstring_view text) {
    Converter converter("CP932", "UTF-32LE");
    Converter back("UTF-32LE", "CP932");
    std::string bytes;
    for (const wchar_t letter : text) {
        const auto code = static_cast<std::uint32_t>(letter);
        std::string utf32;
        for (int shift = 0; shift < 32; shift += 8)
            utf32 += static_cast<char>(code >> shift & 0xFF);
        const std::string character = converter.Convert(utf32);
        if (code == 0x80 || code == 0xA0)
            bytes += static_cast<char>(code);
        else if (code >= 0xF8F1 && code <= 0xF8F3)
            bytes += static_cast<char>(code - 0xF8F1 + 0xFD);
        else if (!character.empty() && FirstOf(back.Convert(character)) == letter)
            bytes += character;
        else
            return std::nullopt;
    }
    return bytes;
}

#endif

} // namespace tamblin
