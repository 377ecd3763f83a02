// A header's bytes as numbers, lowest byte first. Whatever lies outside the header throws LzhError
// (DamagedHeader).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {

class HeaderFields {
  public:
    explicit HeaderFields(std::string_view headerBytes) : bytes(headerBytes) {}

    std::size_t Size() const { return bytes.size(); }

    std::string_view Bytes(std::size_t offset, std::size_t size) const {
        if (offset > bytes.size() || size > bytes.size() - offset)
            throw LzhError(LzhFailure::DamagedHeader);
        return bytes.substr(offset, size);
    }

    std::uint8_t U8(std::size_t offset) const {
        return static_cast<std::uint8_t>(Number(offset, 1));
    }
    std::uint16_t U16(std::size_t offset) const {
        return static_cast<std::uint16_t>(Number(offset, 2));
    }
    std::uint32_t U32(std::size_t offset) const {
        return static_cast<std::uint32_t>(Number(offset, 4));
    }
    std::uint64_t U64(std::size_t offset) const { return Number(offset, 8); }

  private:
    std::uint64_t Number(std::size_t offset, std::size_t size) const {
        std::uint64_t number = 0;
        const std::string_view field = Bytes(offset, size);
        for (std::size_t i = size; i-- > 0;)
            number = number << 8 | static_cast<std::uint8_t>(field[i]);
        return number;
    }

    std::string_view bytes;
};

} // namespace tamblin::lzh
