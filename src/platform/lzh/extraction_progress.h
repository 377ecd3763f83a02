// Is told, often, how far an extraction has come.
#pragma once

#include <cstdint>

namespace tamblin::lzh {

class ExtractionProgress {
  public:
    virtual ~ExtractionProgress() = default;

    // `done` of `total` bytes of the archive have been unpacked. Never goes back.
    virtual void Advance(std::uint64_t done, std::uint64_t total) = 0;
};

} // namespace tamblin::lzh
