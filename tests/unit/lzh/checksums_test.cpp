#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/lzh/crc16.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"
#include "support/sha256.h"

namespace tamblin::lzh {
namespace {

std::uint16_t Crc(std::string_view bytes, std::uint16_t before = 0) {
    return Crc16(before, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

TEST(Crc16, HasItsWellKnownCheckValue) {
    EXPECT_EQ(Crc("123456789"), 0xBB3D);
    EXPECT_EQ(Crc(""), 0);
}

// Long data is taken in blocks of 128 bytes, from three of them on, and otherwise by eight bytes.
TEST(Crc16, IsRightForEachLengthUpToManyBlocks) {
    const std::string bytes = RandomBytes(1'300, 1);
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        const std::string_view piece(bytes.data(), size);
        ASSERT_EQ(Crc(piece), SlowCrc16(piece)) << size;
    }
}

TEST(Crc16, IsRightWhereverTheBytesBegin) {
    const std::string bytes = RandomBytes(1'100, 2);
    for (const std::size_t size : {7u, 8u, 383u, 384u, 385u, 511u, 512u, 513u, 1'000u}) {
        for (std::size_t start = 0; start < 64; ++start) {
            const std::string_view piece(bytes.data() + start, size);
            ASSERT_EQ(Crc(piece), SlowCrc16(piece)) << start << " " << size;
        }
    }
}

TEST(Crc16, IsTheSameHoweverTheBytesAreCut) {
    const std::string bytes = RandomBytes(900, 4);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut)
        ASSERT_EQ(Crc(bytes.substr(cut), Crc(bytes.substr(0, cut))), Crc(bytes)) << cut;
}

TEST(Sha256, HasItsWellKnownCheckValues) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

} // namespace
} // namespace tamblin::lzh
