// Code page 932 wherever the tests run: by iconv natively, by Windows' own tables on Windows
// (whatever code page that system uses itself).
#pragma once

#include "platform/ansi_code_page.h"

namespace tamblin {

class NativeAnsiCodePage : public AnsiCodePage {
  public:
    std::wstring Decode(std::string_view bytes) override;
    std::optional<std::string> Encode(std::wstring_view text) override;
};

} // namespace tamblin
