#include "platform/posix/iconv_code_pages.h"

#include <iconv.h>

#include <cstdint>
#include <string>

namespace tamblin {
namespace {

std::string EncodingOf(unsigned codePage) {
    if (codePage == 65001)
        return "UTF-8";
    if (codePage == 20932)
        return "EUC-JP";
    return "CP" + std::to_string(codePage);
}

} // namespace

// One conversion into wchar_t.
class IconvCodePages::Conversion {
  public:
    explicit Conversion(const std::string& encoding)
        : handle(iconv_open("WCHAR_T", encoding.c_str())) {}
    ~Conversion() {
        if (IsOpen())
            iconv_close(handle);
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle) != -1; }

    std::optional<std::wstring> Decode(std::string_view bytes) {
        iconv(handle, nullptr, nullptr, nullptr, nullptr);
        std::wstring text(bytes.size(), L'\0'); // no encoding has more characters than bytes
        char* from = const_cast<char*>(bytes.data());
        std::size_t fromLeft = bytes.size();
        char* to = reinterpret_cast<char*>(text.data());
        std::size_t toLeft = text.size() * sizeof(wchar_t);
        if (iconv(handle, &from, &fromLeft, &to, &toLeft) != 0)
            return std::nullopt;
        text.resize(text.size() - toLeft / sizeof(wchar_t));
        return text;
    }

  private:
    iconv_t handle;
};

IconvCodePages::IconvCodePages() = default;
IconvCodePages::~IconvCodePages() = default;

IconvCodePages::Conversion& IconvCodePages::ConversionFrom(unsigned codePage) {
    // An archive may name another code page with every entry.
    constexpr std::size_t mostConversions = 16;
    if (conversions.size() >= mostConversions && conversions.count(codePage) == 0)
        conversions.clear();
    std::unique_ptr<Conversion>& conversion = conversions[codePage];
    if (!conversion)
        conversion = std::make_unique<Conversion>(EncodingOf(codePage));
    return *conversion;
}

bool IconvCodePages::Knows(unsigned codePage) {
    return ConversionFrom(codePage).IsOpen();
}

std::optional<std::wstring> IconvCodePages::Decode(unsigned codePage, std::string_view bytes) {
    Conversion& conversion = ConversionFrom(codePage);
    if (!conversion.IsOpen())
        return std::nullopt;
    return conversion.Decode(bytes);
}

} // namespace tamblin
