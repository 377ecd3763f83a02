#include <gtest/gtest.h>

#include <string>

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

TEST(Crc16, IsTheSameHoweverTheBytesAreCut) {
    std::string bytes;
    for (int i = 0; i < 200; ++i)
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
