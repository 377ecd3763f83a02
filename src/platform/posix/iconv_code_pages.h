// Code pages by the C library's iconv, for tools and tests that run natively. Code page 932 is as
// Windows has it, with user-defined characters and the single bytes 0x80, 0xA0, 0xFD and 0xFE.
#pragma once

#include <map>
#include <memory>

#include "platform/lzh/code_pages.h"

namespace tamblin {

class IconvCodePages : public lzh::CodePages {
  public:
    IconvCodePages();
    ~IconvCodePages() override;

    bool Knows(unsigned codePage) override;
    std::optional<std::wstring> Decode(unsigned codePage, std::string_view bytes) override;

  private:
    class Conversion;

    Conversion& ConversionFrom(unsigned codePage);

    std::map<unsigned, std::unique_ptr<Conversion>> conversions; // those that were asked for
};

} // namespace tamblin
