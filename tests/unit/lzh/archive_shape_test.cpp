// Where an archive begins and ends, and what is taken for damage.
#include <gtest/gtest.h>

#include "platform/lzh/entry_list.h"
#include "support/lzh_extraction.h"
#include "support/lzh_memory_source.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

LzhWriter TwoFiles(unsigned level = 1) {
    LzhWriter writer;
    writer.AddFile(L"a.txt", "first file, first file", "-lh5-", level);
    writer.AddFile(L"b.txt", "second file", "-lh0-", level);
    return writer;
}

void ExpectBoth(const std::string& archive) {
    const Extraction extraction(archive);
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Bytes(L"a.txt"), "first file, first file");
    EXPECT_EQ(extraction.Bytes(L"b.txt"), "second file");
}

TEST(ArchiveShape, AnythingMayFollowTheEndMarkOrFillUpAnArchiveWithoutOne) {
    ExpectBoth(TwoFiles().Finish());
    ExpectBoth(TwoFiles().WithoutEndMark());
    for (const std::size_t size : {1u, 7u, 21u, 22u, 1000u})
        ExpectBoth(TwoFiles().Finish() + RandomBytes(size, 1));
    ExpectBoth(TwoFiles().Finish() + LzhWriter().AddFile(L"c", "of another archive").Finish());
    for (const char filler : {'\0', '\x1A', '\xFF'})
        for (const std::size_t size : {1u, 3u, 21u, 1000u})
            ExpectBoth(TwoFiles().WithoutEndMark() + std::string(size, filler));
    ExpectBoth(TwoFiles().WithoutEndMark() + "\r\n");
    ExpectBoth(TwoFiles().WithoutEndMark() + RandomBytes(500, 1));
}

TEST(ArchiveShape, ProgramMayStandInFront) {
    for (unsigned level = 0; level <= 3; ++level) {
        for (const std::size_t size : {1u, 21u, 5000u, 65515u, 65536u, 200'000u})
            ExpectBoth("MZ" + RandomBytes(size, 1) + TwoFiles(level).Finish());
    }
}

// Of the many dashes that a program contains only those that begin a method cost anything.
TEST(ArchiveShape, WhatLooksLikeAHeaderInTheProgramIsPassedOver) {
    const std::string traps = "MZ -lh5- -lh0-\1 12-lhd-345678901234567\1 -lz4- " +
                              std::string(10, '\2') + "-lh5-" + std::string(30, '\1');
    ExpectBoth(traps + TwoFiles().Finish());
    std::string program = "MZ";
    while (program.size() < 100'000)
        program += "- -l -lh -lh5 -lh5. -xy5- --------";
    ExpectBoth(program + std::string(30, 'p') + TwoFiles().Finish());
}

TEST(ArchiveShape, EndlessTrapsEndTheSearch) {
    std::string traps = "MZ, a program";
    while (traps.size() < 3'000'000)
        traps += "-lh5-\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x02";
    EXPECT_EQ(Extraction(traps).Failure(), LzhFailure::NotAnArchive);
}

TEST(ArchiveShape, FileWithoutEntriesIsNoArchive) {
    EXPECT_EQ(Extraction("").Failure(), LzhFailure::NotAnArchive);
    EXPECT_EQ(Extraction(std::string(1, '\0')).Failure(), LzhFailure::NotAnArchive);
    EXPECT_EQ(Extraction("PK\3\4 and so on, and so on, and so on").Failure(),
              LzhFailure::NotAnArchive);
    EXPECT_EQ(Extraction(RandomBytes(100'000, 1)).Failure(), LzhFailure::NotAnArchive);
}

TEST(ArchiveShape, CutArchiveIsAFailureWhereverItIsCut) {
    for (unsigned level = 0; level <= 3; ++level) {
        const std::string first = LzhWriter()
                                      .AddFile(L"a.txt", "first file, first file", "-lh5-", level)
                                      .WithoutEndMark();
        const std::string whole = TwoFiles(level).WithoutEndMark();
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const Extraction extraction(whole.substr(0, size));
            // Between two entries nothing tells that there was more.
            if (size == first.size())
                EXPECT_EQ(extraction.Failure(), LzhFailure::None);
            else
                EXPECT_NE(extraction.Failure(), LzhFailure::None) << level << " " << size;
            EXPECT_EQ(extraction.target.files.count(L"b.txt"), 0u);
        }
    }
}

TEST(ArchiveShape, DamagedByteAnywhereIsNeverTakenForSound) {
    for (unsigned level = 0; level <= 3; ++level) {
        const std::string sound = TwoFiles(level).Finish();
        for (std::size_t at = 0; at + 1 < sound.size(); ++at) {
            for (const int flip : {0x01, 0x80, 0xFF}) {
                std::string damaged = sound;
                damaged[at] = static_cast<char>(damaged[at] ^ flip);
                const Extraction extraction(damaged);
                if (extraction.Failure() != LzhFailure::None)
                    continue;
                // Packed bits behind the last symbol have no meaning; level 1 has no checksum over
                // its extended headers.
                EXPECT_EQ(extraction.Bytes(L"a.txt"), "first file, first file")
                    << level << " " << at << " " << flip;
                EXPECT_EQ(extraction.Bytes(L"b.txt"), "second file")
                    << level << " " << at << " " << flip;
            }
        }
    }
}

TEST(ArchiveShape, HeaderThatCannotBeReadIsReportedByItsPlace) {
    const std::string first = LzhWriter().AddFile(L"a", "x", "-lh0-", 1).WithoutEndMark();
    std::string archive = first + LzhWriter().AddFile(L"b", "x", "-lh0-", 1).Finish();
    archive[first.size() + 10] ^= 1;
    EXPECT_EQ(Extraction(archive).result.Message(),
              L"the header is damaged (at byte " + std::to_wstring(first.size()) + L")");
}

TEST(ArchiveShape, EntryThatTheArchiveCutsIsReportedByItsName) {
    for (unsigned level = 0; level <= 3; ++level) {
        const std::string whole =
            LzhWriter().AddFile(L"dir\\表.txt", "text", "-lh0-", level).WithoutEndMark();
        const Extraction extraction(whole.substr(0, whole.size() - 1));
        EXPECT_EQ(extraction.result.Message(), L"dir\\表.txt: the archive ends too early") << level;
        EXPECT_TRUE(extraction.Files().empty()) << level;
    }
}

TEST(ArchiveShape, TrailingBytesOfAnyNumberDoNotHurtFromSevenOn) {
    const std::string sound = LzhWriter().AddFile(L"a.txt", "text", "-lh0-", 1).WithoutEndMark();
    for (std::size_t count = 7; count <= 60; ++count) {
        const Extraction extraction(sound + std::string(count, 'x'));
        EXPECT_EQ(extraction.Failure(), LzhFailure::None) << count;
        EXPECT_EQ(extraction.Bytes(L"a.txt"), "text") << count;
    }
}

TEST(ArchiveShape, OverwrittenHeaderBetweenTwoEntriesIsAFailure) {
    const std::string first = LzhWriter().AddFile(L"a", "x", "-lh0-", 1).WithoutEndMark();
    const Extraction extraction(first + std::string(40, 'x') + first);
    EXPECT_EQ(extraction.Failure(), LzhFailure::DamagedHeader);
}

TEST(ArchiveShape, MethodOfAnyLettersIsNamed) {
    const std::string sound = LzhWriter().AddFile(L"a", "x", "-lh0-", 1).WithoutEndMark();
    LzhEntry entry = MakeEntry(L"b", "x", "-lh0-", 1);
    entry.packed = "x";
    entry.method = "-arj-";
    const std::string unknown = LzhWriter().Add(entry).Finish();
    for (const std::string& before : {std::string(), sound}) {
        const Extraction extraction(before + unknown);
        EXPECT_EQ(extraction.result.Message(), L"b: the packing method is unknown (-arj-)");
    }
}

TEST(ArchiveShape, HeaderIsKnownByThreeLettersOfItsMethod) {
    std::string archive = LzhWriter().AddFile(L"a", "x", "-lh0-", 0).Finish();
    EXPECT_EQ(Extraction(archive.replace(2, 5, "Xlh0X")).Failure(), LzhFailure::DamagedHeader);
    EXPECT_EQ(Extraction(archive.replace(2, 5, "Xlh?X")).Failure(), LzhFailure::NotAnArchive);
}

TEST(ArchiveShape, LettersOfAMethodThatCannotBeShownAreReplaced) {
    LzhEntry entry = MakeEntry(L"b", "x", "-lh0-", 1);
    entry.packed = "x";
    for (const char letter : {'\x1F', '\x7F', '\x80', '\xFF', ' ', '~'}) {
        entry.method = std::string("-lh") + letter + "-";
        const wchar_t shown = letter == ' ' || letter == '~' ? static_cast<wchar_t>(letter) : L'?';
        EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).result.Message(),
                  std::wstring(L"b: the packing method is unknown (-lh") + shown + L"-)");
    }
}

// A program stands in front; the header behind it is damaged, the second one is sound.
TEST(ArchiveShape, DamagedFirstHeaderBehindAProgramIsAFailure) {
    for (unsigned level = 0; level <= 2; ++level) {
        std::string first = LzhWriter().AddFile(L"a", "x", "-lh0-", level).WithoutEndMark();
        first[16] ^= 1; // in the time stamp
        const Extraction extraction("MZ" + std::string(500, 'p') + first +
                                    LzhWriter().AddFile(L"b", "x", "-lh0-", level).Finish());
        EXPECT_EQ(extraction.Failure(), LzhFailure::DamagedHeader) << level;
    }
}

// Each of many false headers leads into the same long chain of small extended headers.
TEST(ArchiveShape, FalseHeadersCostNoMoreThanTheirBytesAllow) {
    constexpr std::size_t traps = 900;
    const std::string header = LzhWriter().AddFile(L"a", "", "-lh0-", 1).WithoutEndMark();
    std::string trap("MZ");
    for (std::size_t left = traps; left > 0; --left) {
        std::string copy = header.substr(0, header.size() - 2);
        copy += LittleEndian((left - 1) * header.size() + 2, 2);
        int sum = 0;
        for (std::size_t i = 2; i < copy.size(); ++i)
            sum += static_cast<unsigned char>(copy[i]);
        copy[1] = static_cast<char>(sum);
        trap += copy;
    }
    trap += LittleEndian(3, 2);
    for (int link = 0; link < 80'000; ++link)
        trap += std::string(1, '\x7A') + LittleEndian(3, 2);
    class CountingSource : public MemorySource {
      public:
        using MemorySource::MemorySource;
        std::size_t reads = 0;
        std::size_t Read(std::uint64_t offset, void* buffer, std::size_t size) override {
            ++reads;
            return MemorySource::Read(offset, buffer, size);
        }
    };
    CountingSource source(trap);
    EXPECT_THROW(EntryList(source).Next(), LzhError);
    EXPECT_LT(source.reads, 5'000u);
}

TEST(ArchiveShape, HeaderThatPointsBehindTheEndIsAFailure) {
    for (unsigned level = 0; level <= 3; ++level) {
        for (const std::uint32_t size : {0x1000u, 0x7FFF'FFFFu, 0xFFFF'FFFFu}) {
            LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", level);
            entry.claimedPackedSize = size;
            const LzhFailure failure = Extraction(LzhWriter().Add(entry).Finish()).Failure();
            EXPECT_TRUE(failure == LzhFailure::Truncated || failure == LzhFailure::DamagedHeader);
        }
    }
}

TEST(ArchiveShape, SizesOf64BitsThatPointBackwardsAreAFailure) {
    for (const std::uint64_t size : {~0ull, ~0ull - 100, 1ull << 63}) {
        LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", 2);
        entry.extended.push_back({0x42, LittleEndian(size, 8) + LittleEndian(1, 8)});
        EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(), LzhFailure::Truncated);
    }
}

TEST(ArchiveShape, ChainOfHeadersThatLeavesTheHeaderIsAFailure) {
    for (unsigned level = 1; level <= 3; ++level) {
        LzhEntry entry = MakeEntry(L"dir\\a", "x", "-lh0-", level);
        entry.headerCrc = false;
        const std::string sound = LzhWriter().Add(entry).Finish();
        const std::size_t sizeAt = sound.find("dir\xFF") - (level == 3 ? 5 : 3);
        for (const int size : {1, 2, 0x7F, 0xFF}) {
            std::string archive = sound;
            archive[sizeAt] = static_cast<char>(size);
            EXPECT_NE(Extraction(archive).Failure(), LzhFailure::None) << level << " " << size;
        }
    }
}

} // namespace
} // namespace tamblin::lzh
