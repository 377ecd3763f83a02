// The code page that Windows uses for this user's non-Unicode texts, or another one.
#pragma once

#include "platform/ansi_code_page.h"

namespace tamblin {

class Win32AnsiCodePage : public AnsiCodePage {
  public:
    Win32AnsiCodePage();
    explicit Win32AnsiCodePage(unsigned number) : codePage(number) {}

    std::wstring Decode(std::string_view bytes) override;
    std::optional<std::string> Encode(std::wstring_view text) override;

  private:
    unsigned codePage;
};

} // namespace tamblin
