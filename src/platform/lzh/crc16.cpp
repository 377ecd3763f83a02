// How the checksum is taken
// =========================
//
// The bytes are the coefficients of a polynomial over the two numbers 0 and 1, the lowest bit of
// each byte first, and the checksum is what is left of it modulo P = x^16 + x^15 + x^2 + 1.
//
// Squaring such a polynomial doubles its exponents, so P to the power of 64 has four terms too:
// x^1024 + x^960 + x^128 + 1. With y = x^64 it is y^16 + y^15 + y^2 + 1, P itself in words of 64
// bits. What is left modulo that power leaves the same modulo P. So long data is first taken word
// by word: a word is struck out by adding it to those 1, 14 and 16 places behind it, which is three
// XORs for eight bytes and needs no table. The last 16 words, to which all before them has been
// added, and what does not fill up 128 bytes go through tables.

#include "platform/lzh/crc16.h"

#include <array>
#include <cstring>

namespace tamblin::lzh {
namespace {

constexpr std::size_t blockWords = 16;
constexpr std::size_t blockSize = blockWords * sizeof(std::uint64_t);
using Block = std::array<std::uint64_t, blockWords>;

// slices[n][b]: what the byte b does to the checksum when n more bytes follow it. With one table
// per byte of an 8-byte group the look-ups do not wait for one another.
constexpr std::size_t sliceCount = 8;
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

std::uint64_t WordAt(const std::uint8_t* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

std::uint16_t ByTables(std::uint16_t crc, const std::uint8_t* bytes, std::size_t size) {
    for (; size >= sliceCount; size -= sliceCount, bytes += sliceCount) {
        const std::uint64_t word = WordAt(bytes) ^ crc;
        unsigned next = 0;
        for (unsigned i = 0; i < sliceCount; ++i)
            next ^= slices[sliceCount - 1 - i][(word >> (8 * i)) & 0xFF];
        crc = static_cast<std::uint16_t>(next);
    }
    for (; size > 0; --size, ++bytes)
        crc = static_cast<std::uint16_t>((crc >> 8) ^ slices[0][(crc ^ *bytes) & 0xFF]);
    return crc;
}

// Strikes the next words out. `struck` are the 16 words that were struck out last.
void StrikeOut(Block& struck, const std::uint8_t* bytes, std::uint64_t mix) {
    std::uint64_t before = struck[blockWords - 1] ^ mix;
    for (std::size_t i = 0; i < blockWords; ++i) {
        before ^= WordAt(bytes + i * sizeof before) ^ struck[i] ^ struck[(i + 2) % blockWords];
        struck[i] = before;
    }
}

// What the words that were struck out add to the 16 behind them.
Block Added(const Block& struck) {
    Block added = struck;
    for (std::size_t i = 0; i + 2 < blockWords; ++i)
        added[i] ^= struck[i + 2];
    added[0] ^= struck[blockWords - 1];
    return added;
}

std::uint16_t LastBlock(const Block& struck, const std::uint8_t* bytes) {
    Block last = Added(struck);
    for (std::size_t i = 0; i < blockWords; ++i)
        last[i] ^= WordAt(bytes + i * sizeof last[i]);
    std::array<std::uint8_t, blockSize> rest;
    std::memcpy(rest.data(), last.data(), blockSize);
    return ByTables(0, rest.data(), rest.size());
}

} // namespace

std::uint16_t Crc16(std::uint16_t crc, const std::uint8_t* bytes, std::size_t size) {
    if (size >= 3 * blockSize) {
        Block struck{};
        std::uint64_t mix = crc;
        for (; size >= 2 * blockSize; bytes += blockSize, size -= blockSize) {
            StrikeOut(struck, bytes, mix);
            mix = 0;
        }
        crc = LastBlock(struck, bytes);
        bytes += blockSize;
        size -= blockSize;
    }
    return ByTables(crc, bytes, size);
}

} // namespace tamblin::lzh
