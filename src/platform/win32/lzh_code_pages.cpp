#include "platform/win32/lzh_code_pages.h"

#include <windows.h>

namespace tamblin {

bool LzhCodePages::Knows(unsigned codePage) {
    return IsValidCodePage(codePage) != 0;
}

std::optional<std::wstring> LzhCodePages::Decode(unsigned codePage, std::string_view bytes) {
    if (bytes.empty())
        return std::wstring();
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0'); // no code page has more units than bytes
    const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size,
                                           text.data(), static_cast<int>(text.size()));
    if (length == 0)
        return std::nullopt;
    text.resize(static_cast<size_t>(length));
    return text;
}

} // namespace tamblin
