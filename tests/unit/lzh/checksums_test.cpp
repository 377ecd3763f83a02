#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/lzh/crc16.h"
#include "support/sha256.h"

namespace tamblin::lzh {
namespace {

std::uint16_t Crc(const std::string& bytes, std::uint16_t before = 0) {
    return Crc16(before, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

TEST(Crc16, HasItsWellKnownCheckValue) {
    EXPECT_EQ(Crc("123456789"), 0xBB3D);
    EXPECT_EQ(Crc(""), 0);
}

// Bit by bit, as the polynomial says.
std::uint16_t CrcByBits(std::uint16_t crc, const std::uint8_t* bytes, std::size_t size) {
    unsigned rest = crc;
    for (std::size_t i = 0; i < size; ++i) {
        rest ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            rest = (rest >> 1) ^ ((rest & 1) != 0 ? 0xA001u : 0u);
    }
    return static_cast<std::uint16_t>(rest);
}

std::vector<std::uint8_t> NoiseBytes(std::size_t size) {
    std::vector<std::uint8_t> bytes;
    std::uint32_t number = 1;
    while (bytes.size() < size) {
        number = number * 1'664'525 + 1'013'904'223;
        bytes.push_back(static_cast<std::uint8_t>(number >> 24));
    }
    return bytes;
}

// Long data is taken in blocks of 128 bytes, from three of them on, and otherwise by eight bytes.
TEST(Crc16, IsRightForEachLengthUpToManyBlocks) {
    const std::vector<std::uint8_t> bytes = NoiseBytes(1'300);
    for (std::size_t size = 0; size <= bytes.size(); ++size)
        ASSERT_EQ(Crc16(0, bytes.data(), size), CrcByBits(0, bytes.data(), size)) << size;
}

TEST(Crc16, IsRightWhereverTheBytesBegin) {
    const std::vector<std::uint8_t> bytes = NoiseBytes(1'100);
    for (const std::size_t size : {7u, 8u, 383u, 384u, 385u, 511u, 512u, 513u, 1'000u}) {
        for (std::size_t start = 0; start < 64; ++start) {
            const std::uint8_t* first = bytes.data() + start;
            ASSERT_EQ(Crc16(0, first, size), CrcByBits(0, first, size)) << start << " " << size;
        }
    }
}

TEST(Crc16, GoesOnFromEachChecksumBeforeLongData) {
    const std::vector<std::uint8_t> bytes = NoiseBytes(640);
    for (const std::size_t size : {8u, 130u, 260u, 383u, 384u, 640u}) {
        for (unsigned before = 0; before < 0x10000; before += 251) {
            const auto crc = static_cast<std::uint16_t>(before);
            ASSERT_EQ(Crc16(crc, bytes.data(), size), CrcByBits(crc, bytes.data(), size))
                << before << " " << size;
        }
    }
}

TEST(Crc16, IsTheSameHoweverTheBytesAreCut) {
    std::string bytes;
    for (int i = 0; i < 900; ++i)
        bytes += static_cast<char>(i * 7 + i / 3);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut)
        ASSERT_EQ(Crc(bytes.substr(cut), Crc(bytes.substr(0, cut))), Crc(bytes)) << cut;
}

TEST(Sha256, HasItsWellKnownCheckValues) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

} // namespace
} // namespace tamblin::lzh
