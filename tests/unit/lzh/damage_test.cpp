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

// A block header of the static methods, as far as a test wants it to go.
LzhEntry StaticEntry(const BitWriter& bits) {
    LzhEntry entry = MakeEntry(L"a", std::string(1000, ' '), "-lh5-", 2);
    entry.packed = BitWriter(bits).Finish() + std::string(100, '\xFF');
    return entry;
}

LzhFailure FailureOf(const LzhEntry& entry) {
    return Extraction(LzhWriter().Add(entry).Finish()).Failure();
}

TEST(StaticBlock, TooManyLengthsAreDamage) {
    BitWriter bits;
    bits.Put(10, 16);
    bits.Put(20, 5);
    EXPECT_EQ(FailureOf(StaticEntry(bits)), LzhFailure::DamagedData);
}

TEST(StaticBlock, OversubscribedCodeIsDamage) {
    BitWriter bits;
    bits.Put(10, 16);
    bits.Put(3, 5);
    for (int i = 0; i < 3; ++i)
        bits.Put(1, 3);
    bits.Put(0, 2);
    EXPECT_EQ(FailureOf(StaticEntry(bits)), LzhFailure::DamagedData);
}

TEST(StaticBlock, EndlessCodeLengthIsDamage) {
    BitWriter bits;
    bits.Put(10, 16);
    bits.Put(3, 5);
    bits.Put(7, 3);
    bits.Put(0x3FF, 10);
    EXPECT_EQ(FailureOf(StaticEntry(bits)), LzhFailure::DamagedData);
}

TEST(StaticBlock, RunOfLengthsBehindTheLastSymbolIsDamage) {
    BitWriter bits;
    bits.Put(10, 16);
    bits.Put(0, 5);
    bits.Put(2, 5); // every length is a run of 20 and more
    bits.Put(510, 9);
    bits.Put(0x1FF, 9);
    EXPECT_EQ(FailureOf(StaticEntry(bits)), LzhFailure::DamagedData);
}

TEST(StaticBlock, CodeOfOneSymbolMayTakeNoBits) {
    BitWriter bits;
    bits.Put(1000, 16);
    bits.Put(0, 5 + 5);
    bits.Put(0, 9);
    bits.Put('z', 9);
    bits.Put(0, 4 + 4);
    LzhEntry entry = MakeEntry(L"a", std::string(1000, 'z'), "-lh5-", 2);
    entry.packed = bits.Finish();
    EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Bytes(L"a"), std::string(1000, 'z'));
}

struct StaticMethod {
    const char* method;
    unsigned distanceCount;
    unsigned countBits;
};

// A block of one match of three bytes, all of whose codes have one symbol.
std::string OneMatch(const StaticMethod& method, unsigned distance) {
    BitWriter bits;
    bits.Put(1, 16);
    bits.Put(0, 5 + 5);
    bits.Put(0, 9);
    bits.Put(256, 9);
    bits.Put(0, method.countBits);
    bits.Put(distance, method.countBits);
    bits.Put(0, 32);
    return bits.Finish();
}

// A distance of more bits would reach behind the history.
TEST(StaticBlock, OnlyDistanceHasToBeOneOfTheMethods) {
    for (const StaticMethod& method :
         {StaticMethod{"-lh4-", 13, 4}, StaticMethod{"-lh5-", 14, 4}, StaticMethod{"-lh6-", 16, 5},
          StaticMethod{"-lh7-", 17, 5}, StaticMethod{"-lhx-", 21, 5}}) {
        LzhEntry entry = MakeEntry(L"a", "   ", method.method, 2);
        entry.packed = OneMatch(method, method.distanceCount - 1);
        EXPECT_EQ(FailureOf(entry), LzhFailure::None) << method.method;
        for (unsigned distance = method.distanceCount; distance < 1u << method.countBits;
             ++distance) {
            entry.packed = OneMatch(method, distance);
            EXPECT_EQ(FailureOf(entry), LzhFailure::DamagedData) << method.method << distance;
        }
    }
}

TEST(StaticBlock, OnlySymbolAndOnlyLengthHaveToExist) {
    for (const unsigned symbol : {509u, 510u, 511u}) {
        BitWriter bits;
        bits.Put(1, 16);
        bits.Put(0, 5 + 5);
        bits.Put(0, 9);
        bits.Put(symbol, 9);
        bits.Put(0, 4 + 4);
        LzhEntry entry = MakeEntry(L"a", std::string(256, ' '), "-lh5-", 2);
        entry.packed = bits.Finish();
        EXPECT_EQ(FailureOf(entry), symbol == 509 ? LzhFailure::None : LzhFailure::DamagedData);
    }
    for (const unsigned length : {18u, 19u, 31u}) {
        BitWriter bits;
        bits.Put(1, 16);
        bits.Put(0, 5);
        bits.Put(length, 5);
        bits.Put(0, 9);
        bits.Put('z', 9);
        bits.Put(0, 4 + 4);
        LzhEntry entry = MakeEntry(L"a", "z", "-lh5-", 2);
        entry.packed = bits.Finish();
        EXPECT_EQ(FailureOf(entry), length == 18 ? LzhFailure::None : LzhFailure::DamagedData);
    }
}

TEST(StaticBlock, SizeOfZeroStandsFor65536Symbols) {
    BitWriter bits;
    bits.Put(0, 16);
    bits.Put(0, 5 + 5);
    bits.Put(0, 9);
    bits.Put('z', 9);
    bits.Put(0, 4 + 4);
    LzhEntry entry = MakeEntry(L"a", std::string(65536, 'z'), "-lh5-", 2);
    entry.packed = bits.Finish();
    EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(), LzhFailure::None);
}

TEST(History, IsBlankBeforeTheFirstByte) {
    BitWriter bits;
    bits.Put(1, 16);
    bits.Put(0, 5 + 5);
    bits.Put(0, 9);
    bits.Put(256 + 7, 9); // ten bytes
    bits.Put(0, 4);
    bits.Put(13, 4); // from the far end of the history
    bits.Put(0xFFF, 12);
    LzhEntry entry = MakeEntry(L"a", std::string(10, ' '), "-lh5-", 2);
    entry.packed = bits.Finish();
    EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Bytes(L"a"), std::string(10, ' '));
}

} // namespace
} // namespace tamblin::lzh
