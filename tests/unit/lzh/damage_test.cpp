// Archives whose data lies, and disks that are full.
#include <gtest/gtest.h>

#include "support/lzh_bit_writer.h"
#include "support/lzh_code_pages_here.h"
#include "support/lzh_extraction.h"
#include "support/lzh_memory_source.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

LzhEntry SomeEntry(const std::string& method) {
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += std::to_string(i * i) + ' ';
    return MakeEntry(L"a.txt", text, method, 2);
}

class Damage : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(AllMethods, Damage,
                         testing::Values("-lh0-", "-lh1-", "-lh4-", "-lh5-", "-lh6-", "-lh7-",
                                         "-lhx-", "-lz4-", "-lz5-", "-lzs-"),
                         [](const auto& test) { return test.param.substr(1, 3); });

TEST_P(Damage, WrongChecksumIsAFailureAndLeavesNoFile) {
    LzhEntry entry = SomeEntry(GetParam());
    entry.claimedCrc = 0x1234;
    const Extraction extraction(LzhWriter().Add(entry).Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::WrongChecksum);
    EXPECT_EQ(extraction.target.discarded, std::set<std::wstring>{L"a.txt"});
    EXPECT_TRUE(extraction.target.files.empty());
    EXPECT_EQ(extraction.result.Message(), L"a.txt: the checksum is wrong");
}

TEST_P(Damage, ClaimedSizeIsNotBelieved) {
    for (const std::uint32_t size : {100'000u, 0x7FFF'FFFFu}) {
        LzhEntry entry = SomeEntry(GetParam());
        entry.claimedSize = size;
        const Extraction extraction(LzhWriter().Add(entry).Finish());
        EXPECT_NE(extraction.Failure(), LzhFailure::None);
        // No more than the packed data can hold is ever written: the true size, and what a decoder
        // makes of the few bits behind it.
        EXPECT_LT(extraction.target.written, 20'000'000u);
        EXPECT_TRUE(extraction.target.files.empty());
    }
}

TEST_P(Damage, SmallerClaimedSizeIsAFailure) {
    LzhEntry entry = SomeEntry(GetParam());
    entry.claimedSize = 10;
    const Extraction extraction(LzhWriter().Add(entry).Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::WrongChecksum);
    EXPECT_EQ(extraction.target.written, 10u);
}

TEST_P(Damage, PackedDataThatEndsEarlyIsAFailure) {
    const LzhEntry sound = SomeEntry(GetParam());
    const std::string packed = Encode(GetParam(), sound.bytes);
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, packed.size() / 2, packed.size() - 2}) {
        LzhEntry entry = sound;
        entry.packed = packed.substr(0, size);
        EXPECT_NE(Extraction(LzhWriter().Add(entry).AddFile(L"b", "next").Finish()).Failure(),
                  LzhFailure::None)
            << size;
    }
}

// Not every bit means something: one may stand behind the last symbol, or turn a repetition into
// another one of the same bytes.
TEST_P(Damage, FlippedBitsNeverMakeAnotherFile) {
    const LzhEntry sound = SomeEntry(GetParam());
    const std::string packed = Encode(GetParam(), sound.bytes);
    for (std::size_t at = 0; at + 1 < packed.size(); at += 97) {
        LzhEntry entry = sound;
        entry.packed = packed;
        (*entry.packed)[at] = static_cast<char>(packed[at] ^ (1 << at % 8));
        const Extraction extraction(LzhWriter().Add(entry).Finish());
        if (extraction.Failure() == LzhFailure::None) {
            EXPECT_EQ(extraction.Bytes(L"a.txt"), sound.bytes) << at;
        }
    }
}

TEST_P(Damage, FullDiskEndsTheExtraction) {
    const LzhEntry entry = SomeEntry(GetParam());
    const std::string archive = LzhWriter().AddFile(L"b", "small").Add(entry).Finish();
    MemorySource source(archive);
    TargetFake target;
    target.room = 1000;
    CodePagesHere codePages;
    const ExtractionResult result = Extractor(source, target, codePages).Run();
    EXPECT_EQ(result.failure, LzhFailure::DiskFull);
    EXPECT_EQ(result.entry, L"a.txt");
    EXPECT_EQ(target.discarded, std::set<std::wstring>{L"a.txt"});
    EXPECT_EQ(target.files.count(L"b"), 1u);
}

// Of -lh2- and -lh3- no archives are known that could show a reader of them to be right.
TEST(UnknownMethod, IsAFailureThatNamesIt) {
    for (const std::string method : {"-lh2-", "-lh3-", "-lh9-"}) {
        LzhEntry entry = MakeEntry(L"dir\\a.txt", "x", "-lh0-", 2);
        entry.method = method;
        entry.packed = "packed";
        const Extraction extraction(LzhWriter().Add(entry).Finish());
        EXPECT_EQ(extraction.Failure(), LzhFailure::UnknownMethod);
        EXPECT_EQ(extraction.result.Message(), L"dir\\a.txt: the packing method is unknown (" +
                                                   std::wstring(method.begin(), method.end()) +
                                                   L")");
        EXPECT_TRUE(extraction.target.folders.empty());
    }
}

std::string Bits(std::initializer_list<std::pair<std::uint32_t, unsigned>> valuesAndWidths) {
    BitWriter bits;
    for (const auto& [value, width] : valuesAndWidths)
        bits.Put(value, width);
    return bits.Finish();
}

Extraction Unpacked(const std::string& bytes, const std::string& packed,
                    const std::string& method = "-lh5-") {
    LzhEntry entry = MakeEntry(L"a", bytes, method, 2);
    entry.packed = packed;
    return Extraction(LzhWriter().Add(entry).Finish());
}

TEST(StaticBlock, HeadersThatCannotBeAreDamage) {
    const std::pair<const char*, std::string> blocks[] = {
        {"too many lengths", Bits({{10, 16}, {20, 5}})},
        {"an oversubscribed code", Bits({{10, 16}, {3, 5}, {1, 3}, {1, 3}, {1, 3}, {0, 2}})},
        {"an endless code length", Bits({{10, 16}, {3, 5}, {7, 3}, {0x3FF, 10}})},
        {"a run of 20 lengths and more behind the last symbol",
         Bits({{10, 16}, {0, 5}, {2, 5}, {510, 9}, {0x1FF, 9}})}};
    for (const auto& [damage, block] : blocks)
        EXPECT_EQ(Unpacked(std::string(1000, ' '), block + std::string(100, '\xFF')).Failure(),
                  LzhFailure::DamagedData)
            << damage;
}

// A size of zero stands for 65536 symbols.
TEST(StaticBlock, CodeOfOneSymbolMayTakeNoBits) {
    for (const unsigned size : {1000u, 65536u}) {
        const std::string block = Bits({{size & 0xFFFF, 16}, {0, 19}, {'z', 9}, {0, 8}});
        EXPECT_EQ(Unpacked(std::string(size, 'z'), block).Bytes(L"a"), std::string(size, 'z'));
    }
}

// A block of one match of three bytes, all of whose codes have one symbol. A distance of more bits
// would reach behind the history.
TEST(StaticBlock, OnlyDistanceHasToBeOneOfTheMethods) {
    const std::tuple<const char*, unsigned, unsigned> methods[] = {
        {"-lh4-", 13, 4}, {"-lh5-", 14, 4}, {"-lh6-", 16, 5}, {"-lh7-", 17, 5}, {"-lhx-", 21, 5}};
    for (const auto& [method, distanceCount, countBits] : methods)
        for (unsigned distance = distanceCount - 1; distance < 1u << countBits; ++distance) {
            const std::string block =
                Bits({{1, 16}, {0, 19}, {256, 9}, {0, countBits}, {distance, countBits}, {0, 32}});
            EXPECT_EQ(Unpacked("   ", block, method).Failure(),
                      distance < distanceCount ? LzhFailure::None : LzhFailure::DamagedData)
                << method << distance;
        }
}

TEST(StaticBlock, OnlySymbolAndOnlyLengthHaveToExist) {
    for (const unsigned symbol : {509u, 510u, 511u})
        EXPECT_EQ(Unpacked(std::string(256, ' '), Bits({{1, 16}, {0, 19}, {symbol, 9}, {0, 8}}))
                      .Failure(),
                  symbol == 509 ? LzhFailure::None : LzhFailure::DamagedData);
    for (const unsigned length : {18u, 19u, 31u})
        EXPECT_EQ(
            Unpacked("z", Bits({{1, 16}, {0, 5}, {length, 5}, {0, 9}, {'z', 9}, {0, 8}})).Failure(),
            length == 18 ? LzhFailure::None : LzhFailure::DamagedData);
}

// Ten bytes from the far end of the history.
TEST(History, IsBlankBeforeTheFirstByte) {
    const std::string block = Bits({{1, 16}, {0, 19}, {256 + 7, 9}, {0, 4}, {13, 4}, {0xFFF, 12}});
    EXPECT_EQ(Unpacked(std::string(10, ' '), block).Bytes(L"a"), std::string(10, ' '));
}

} // namespace
} // namespace tamblin::lzh
