#include "platform/lzh/entry_text.h"

#include <algorithm>
#include <optional>

namespace tamblin::lzh {
namespace {

constexpr wchar_t replacement = 0xFFFD;
constexpr unsigned shiftJis = 932;
constexpr std::size_t longestCharacter = 4;

struct Range {
    unsigned first;
    unsigned last;
    bool Has(unsigned byte) const { return byte >= first && byte <= last; }
};

// Whether the byte begins a character of two bytes, in the code pages that have such.
bool IsLeadByte(unsigned byte, unsigned codePage) {
    switch (codePage) {
        case shiftJis:
        case 10001: // Japanese on the Macintosh
            return Range{0x81, 0x9F}.Has(byte) || Range{0xE0, 0xFC}.Has(byte);
        case 936:   // simplified Chinese
        case 949:   // Korean
        case 950:   // traditional Chinese
        case 10002: // the same two on the Macintosh
        case 10008:
        case 54936: // all of Chinese
            return Range{0x81, 0xFE}.Has(byte);
        case 1361: // Korean, Johab
            return Range{0x84, 0xD3}.Has(byte) || Range{0xD8, 0xDE}.Has(byte) ||
                   Range{0xE0, 0xF9}.Has(byte);
        default:
            return false;
    }
}

bool IsTrailByte(unsigned byte) {
    return byte >= 0x40 && byte != 0x7F && byte != 0xFF;
}

bool IsSeparator(unsigned byte) {
    return byte == 0xFF || byte == '\\' || byte == '/';
}

// How many bytes from `at` on belong together: no separator is among them but as a second byte.
std::size_t CharacterSize(std::string_view bytes, std::size_t at, unsigned codePage) {
    const auto byteAt = [&](std::size_t i) {
        return static_cast<unsigned char>(bytes[i]);
    };
    const bool isDouble =
        at + 1 < bytes.size() && IsLeadByte(byteAt(at), codePage) && IsTrailByte(byteAt(at + 1));
    return isDouble ? 2 : 1;
}

std::wstring Hexadecimal(unsigned value, int digits) {
    std::wstring text;
    for (int i = digits - 1; i >= 0; --i)
        text += L"0123456789ABCDEF"[(value >> (4 * i)) & 15];
    return text;
}

// Single bytes that code page 932 does not define and Windows gives a place nevertheless.
std::optional<wchar_t> StrayByte(unsigned byte) {
    if (byte == 0x80 || byte == 0xA0)
        return static_cast<wchar_t>(byte);
    if (byte == 0xFD || byte == 0xFE)
        return static_cast<wchar_t>(0xF8F1 + (byte - 0xFD));
    return std::nullopt;
}

// A replacement character that a name really holds must not pass for a replaced byte.
bool HoldsReplacement(const std::wstring& text) {
    return text.find(replacement) != std::wstring::npos;
}

std::wstring Replaced(std::string_view bytes) {
    std::wstring text;
    for (const char byte : bytes)
        text += replacement + Hexadecimal(static_cast<unsigned char>(byte), 2);
    return text;
}

// Decodes the character that the bytes begin with and cuts it off.
std::wstring TakeCharacter(std::string_view& bytes, unsigned codePage, CodePages& codePages) {
    const std::size_t smallest = CharacterSize(bytes, 0, codePage);
    if (codePage == shiftJis) {
        if (const auto stray = StrayByte(static_cast<unsigned char>(bytes[0]))) {
            bytes.remove_prefix(1);
            return std::wstring(1, *stray);
        }
    }
    for (std::size_t size = smallest; size <= std::min(longestCharacter, bytes.size()); ++size) {
        const auto character = codePages.Decode(codePage, bytes.substr(0, size));
        if (character && !HoldsReplacement(*character)) {
            bytes.remove_prefix(size);
            return *character;
        }
    }
    std::wstring text = Replaced(bytes.substr(0, smallest));
    bytes.remove_prefix(smallest);
    return text;
}

std::wstring Decode(std::string_view bytes, unsigned codePage, CodePages& codePages) {
    if (auto whole = codePages.Decode(codePage, bytes); whole && !HoldsReplacement(*whole))
        return *whole;
    std::wstring text;
    while (!bytes.empty())
        text += TakeCharacter(bytes, codePage, codePages);
    return text;
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Pairs of surrogates become what the platform's wchar_t holds; half a pair becomes a replacement,
// and so does the replacement character itself, lest it pass for a replaced byte.
std::wstring Decode(std::u16string_view text) {
    std::wstring decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            const char16_t low = text[++i];
            if constexpr (sizeof(wchar_t) == 2)
                decoded += {static_cast<wchar_t>(unit), static_cast<wchar_t>(low)};
            else
                decoded += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit == replacement) {
            decoded += replacement + (L"u" + Hexadecimal(unit, 4));
        } else {
            decoded += static_cast<wchar_t>(unit);
        }
    }
    return decoded;
}

} // namespace

std::vector<std::wstring> Components(std::string_view bytes, unsigned codePage,
                                     CodePages& codePages) {
    // The numbers below 4 stand for "the code page of this system"; unknown ones say nothing.
    if (codePage < 4 || !codePages.Knows(codePage))
        codePage = shiftJis;
    std::vector<std::wstring> components;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        if (IsSeparator(static_cast<unsigned char>(bytes[at]))) {
            components.push_back(Decode(bytes.substr(begin, at - begin), codePage, codePages));
            begin = ++at;
        } else {
            at += CharacterSize(bytes, at, codePage);
        }
    }
    components.push_back(Decode(bytes.substr(begin), codePage, codePages));
    return components;
}

std::vector<std::wstring> Components(std::u16string_view text) {
    constexpr char16_t separators[] = {u'\\', u'/', 0xFFFF, 0};
    std::vector<std::wstring> components;
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = text.find_first_of(separators, begin);
        if (end == std::u16string_view::npos)
            break;
        components.push_back(Decode(text.substr(begin, end - begin)));
        begin = end + 1;
    }
    components.push_back(Decode(text.substr(begin)));
    return components;
}

} // namespace tamblin::lzh
