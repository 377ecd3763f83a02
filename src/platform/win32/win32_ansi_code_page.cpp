#include "platform/win32/win32_ansi_code_page.h"

#include <windows.h>

namespace tamblin {

Win32AnsiCodePage::Win32AnsiCodePage() : Win32AnsiCodePage(GetACP()) {}

std::wstring Win32AnsiCodePage::Decode(std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, text.data(), length);
    return text;
}

// UTF-8, which a user can make the system's code page, has its own way to tell what it cannot hold,
// and takes no other.
std::optional<std::string> Win32AnsiCodePage::Encode(std::wstring_view text) {
    if (text.empty())
        return std::string();
    const bool isUtf8 = codePage == CP_UTF8;
    const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL replaced = FALSE;
    BOOL* const tellsReplaced = isUtf8 ? nullptr : &replaced;
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr,
                                         tellsReplaced);
    if (size == 0 || replaced)
        return std::nullopt;
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), size, nullptr,
                        tellsReplaced);
    if (replaced)
        return std::nullopt;
    return bytes;
}

} // namespace tamblin
