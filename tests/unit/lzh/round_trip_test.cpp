#include <gtest/gtest.h>

#include <string>

#include "support/lzh_extraction.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

const std::string packingMethods[] = {"-lh0-", "-lh1-", "-lh4-", "-lh5-", "-lh6-",
                                      "-lh7-", "-lhx-", "-lz4-", "-lz5-", "-lzs-"};

class RoundTrip : public testing::TestWithParam<std::string> {
  protected:
    void Try(const std::string& bytes, EncoderOptions options = {}) {
        for (unsigned level = 0; level <= 3; ++level) {
            LzhEntry entry = MakeEntry(L"file.bin", bytes, GetParam(), level);
            entry.encoder = options;
            const Extraction extraction(LzhWriter().Add(entry).Finish());
            ASSERT_EQ(extraction.Failure(), LzhFailure::None) << "level " << level;
            ASSERT_TRUE(extraction.Bytes(L"file.bin") == bytes)
                << "level " << level << ", " << bytes.size() << " bytes";
            if (bytes.size() > 10000)
                return;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(AllMethods, RoundTrip, testing::ValuesIn(packingMethods),
                         [](const auto& test) { return test.param.substr(1, 3); });

TEST_P(RoundTrip, KeepsSmallFiles) {
    Try("");
    Try("x");
    Try(std::string(1, '\0'));
    Try("\xFF");
    for (unsigned size = 2; size < 40; ++size) {
        Try(RandomBytes(size, size));
        Try(RandomText(size, size));
        Try(std::string(size, ' '));
    }
}

TEST_P(RoundTrip, KeepsFilesAroundTheSizesOfWindowsAndBuffers) {
    for (const std::size_t size : {4096u, 8192u, 32768u, 65536u}) {
        for (const int off : {-1, 0, 1}) {
            Try(RandomText(size + static_cast<std::size_t>(off), 7));
            Try(RandomBytes(size + static_cast<std::size_t>(off), 8));
        }
    }
}

TEST_P(RoundTrip, KeepsRepetitionsOfEveryPeriod) {
    for (std::size_t period = 1; period <= 40; ++period) {
        std::string bytes;
        while (bytes.size() < 3000)
            bytes += RandomBytes(period, static_cast<unsigned>(period));
        Try(bytes);
    }
}

TEST_P(RoundTrip, KeepsSeveralMegabytes) {
    Try(RandomText(1'500'001, 1) + RandomBytes(200'000, 2) + std::string(1'000'000, 'z'));
}

TEST_P(RoundTrip, KeepsVeryUnevenBytes) {
    Try(SkewedBytes(300'000, 5));
}

TEST_P(RoundTrip, KeepsDataPackedInSmallAndLargeBlocks) {
    for (const std::size_t blockSize : {1u, 2u, 5u, 6u, 7u, 100u, 6000u, 65535u, 65536u})
        Try(RandomText(9000, 3) + RandomBytes(900, 3), {blockSize, true, true});
    Try(RandomText(400'000, 4), {65536, false, false});
}

} // namespace
} // namespace tamblin::lzh
