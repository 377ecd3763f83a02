// Windows' own code pages, for names in archives.
#pragma once

#include "platform/lzh/code_pages.h"

namespace tamblin {

class LzhCodePages : public lzh::CodePages {
  public:
    bool Knows(unsigned codePage) override;
    std::optional<std::wstring> Decode(unsigned codePage, std::string_view bytes) override;
};

} // namespace tamblin
