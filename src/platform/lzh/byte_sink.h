// Takes unpacked bytes, in order.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tamblin::lzh {

class ByteSink {
  public:
    virtual ~ByteSink() = default;
    virtual void Write(const std::uint8_t* bytes, std::size_t size) = 0;
};

} // namespace tamblin::lzh
