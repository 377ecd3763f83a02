#include "platform/lzh/crc16.h"

#include <array>
#include <cstring>

namespace tamblin::lzh {
namespace {

// slices[n][b]: what the byte b does to the checksum when n more bytes follow it. With one table
// per byte of a 16-byte group the look-ups do not wait for one another.
constexpr std::size_t sliceCount = 16;
using Slices = std::array<std::array<std::uint16_t, 256>, sliceCount>;

constexpr Slices MakeSlices() {
    Slices slices{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xA001u : 0u);
        slices[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (std::size_t n = 1; n < sliceCount; ++n) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const unsigned before = slices[n - 1][byte];
            slices[n][byte] = static_cast<std::uint16_t>((before >> 8) ^ slices[0][before & 0xFF]);
        }
    }
    return slices;
}

constexpr Slices slices = MakeSlices();

unsigned EightBytes(const std::uint8_t* bytes, std::size_t firstSlice, std::uint64_t mix) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    word ^= mix;
    unsigned crc = 0;
    for (unsigned i = 0; i < 8; ++i)
        crc ^= slices[firstSlice - i][(word >> (8 * i)) & 0xFF];
    return crc;
}

} // namespace

std::uint16_t Crc16(std::uint16_t crc, const std::uint8_t* bytes, std::size_t size) {
    for (; size >= sliceCount; size -= sliceCount, bytes += sliceCount) {
        crc = static_cast<std::uint16_t>(EightBytes(bytes, 15, crc) ^ EightBytes(bytes + 8, 7, 0));
    }
    for (; size > 0; --size, ++bytes)
        crc = static_cast<std::uint16_t>((crc >> 8) ^ slices[0][(crc ^ *bytes) & 0xFF]);
    return crc;
}

} // namespace tamblin::lzh
