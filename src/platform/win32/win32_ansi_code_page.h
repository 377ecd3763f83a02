// The code page that Windows uses for this user's non-Unicode texts.
#pragma once

#include "platform/ansi_code_page.h"

namespace tamblin {

class Win32AnsiCodePage : public AnsiCodePage {
  public:
    std::wstring Decode(std::string_view bytes) override;
    std::string Encode(std::wstring_view text) override;
};

} // namespace tamblin
