// CRC-16 as LZH archives use it: polynomial x^16 + x^15 + x^2 + 1, bits reflected, start value 0.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tamblin::lzh {

// The checksum of some bytes that follow others, whose checksum is `crc`.
std::uint16_t Crc16(std::uint16_t crc, const std::uint8_t* bytes, std::size_t size);

} // namespace tamblin::lzh
