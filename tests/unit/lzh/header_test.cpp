// What the headers of an entry say, at each level.
#include <gtest/gtest.h>

#include <numeric>

#include "platform/lzh/entry_list.h"
#include "platform/lzh/extended_header.h"
#include "support/lzh_extraction.h"
#include "support/lzh_memory_source.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

constexpr std::uint64_t windowsTime = 0x01C1'C3FE'1234'5678;

EntryHeader FirstHeader(const LzhEntry& entry) {
    MemorySource source(LzhWriter().Add(entry).Finish());
    return EntryList(source).Next().value();
}

LzhEntry TextEntry(unsigned level) {
    return MakeEntry(L"dir\\a.txt", "some text", "-lh0-", level);
}

// What the only entry unpacks to.
std::string TextOf(const LzhEntry& entry, const wchar_t* path = L"dir\\a.txt") {
    return Extraction(LzhWriter().Add(entry).Finish()).Bytes(path);
}

class HeaderLevels : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(All, HeaderLevels, testing::Values(0u, 1u, 2u, 3u));

class NewHeaderLevels : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(All, NewHeaderLevels, testing::Values(1u, 2u, 3u));

TEST_P(HeaderLevels, TellSizesChecksumAndTime) {
    const EntryHeader header = FirstHeader(TextEntry(GetParam()));
    EXPECT_EQ(header.method, "-lh0-");
    EXPECT_EQ(header.packedSize, 9u);
    EXPECT_EQ(header.originalSize, 9u);
    ASSERT_TRUE(header.crc);
    if (GetParam() < 2) {
        EXPECT_EQ(header.times.modifiedLocal, 0x2C65'6B2Fu);
        EXPECT_FALSE(header.times.modified);
    } else {
        EXPECT_EQ(header.times.modified, FromUnixTime(1015302330));
        EXPECT_FALSE(header.times.modifiedLocal);
    }
}

TEST_P(HeaderLevels, UnpackSeveralEntries) {
    const Extraction extraction(LzhWriter()
                                    .AddFolder(L"dir", GetParam())
                                    .AddFile(L"dir\\a.txt", "one", "-lh0-", GetParam())
                                    .AddFile(L"dir\\sub\\b.txt", "", "-lh5-", GetParam())
                                    .AddFile(L"c.txt", "three", "-lh5-", GetParam())
                                    .Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Bytes(L"dir\\a.txt"), "one");
    EXPECT_EQ(extraction.Bytes(L"dir\\sub\\b.txt"), "");
    EXPECT_EQ(extraction.Bytes(L"c.txt"), "three");
    EXPECT_EQ(extraction.target.folders, (std::set<std::wstring>{L"dir", L"dir\\sub"}));
}

TEST_P(HeaderLevels, TellDosAttributes) {
    LzhEntry entry = TextEntry(GetParam());
    entry.dosAttributes = 0x27;
    if (GetParam() >= 2)
        entry.extended.push_back({0x40, LittleEndian(0x27, 2)});
    EXPECT_EQ(FirstHeader(entry).attributes, (EntryAttributes{true, true, true}));
}

TEST_P(NewHeaderLevels, MayHaveAChecksumOfTheHeader) {
    LzhEntry entry = TextEntry(GetParam());
    entry.headerCrc = true;
    std::string archive = LzhWriter().Add(entry).Finish();
    EXPECT_EQ(Extraction(archive).Failure(), LzhFailure::None);
    archive[archive.find("dir\xFF")] = 'D';
    EXPECT_EQ(Extraction(archive).Failure(), LzhFailure::DamagedHeader);
}

TEST_P(NewHeaderLevels, MayBePadded) {
    for (const std::size_t size : {1u, 2u, 30u, 200u}) {
        LzhEntry entry = TextEntry(GetParam());
        entry.padding = std::string(size, 'p');
        entry.headerCrc = true;
        const Extraction extraction(LzhWriter().Add(entry).Add(TextEntry(2)).Finish());
        EXPECT_EQ(extraction.Failure(), LzhFailure::None) << size;
        EXPECT_EQ(extraction.Bytes(L"dir\\a.txt"), "some text");
    }
}

TEST_P(NewHeaderLevels, TellWindowsTimes) {
    LzhEntry entry = TextEntry(GetParam());
    entry.extended.push_back({0x41, LittleEndian(windowsTime, 8) +
                                        LittleEndian(windowsTime + 1, 8) +
                                        LittleEndian(windowsTime + 2, 8)});
    entry.extended.push_back({0x54, LittleEndian(1, 4)});
    const EntryTimes times = FirstHeader(entry).times;
    EXPECT_EQ(times.created, windowsTime);
    EXPECT_EQ(times.modified, windowsTime + 1);
    EXPECT_EQ(times.accessed, windowsTime + 2);
    EXPECT_FALSE(times.modifiedLocal);
}

TEST_P(NewHeaderLevels, TellUnixTimeAndMode) {
    LzhEntry entry = TextEntry(GetParam());
    entry.extended.push_back({0x50, LittleEndian(0100644, 2)});
    entry.extended.push_back({0x51, LittleEndian(0, 4)});
    entry.extended.push_back({0x52, "group"});
    entry.extended.push_back({0x53, "user"});
    entry.extended.push_back({0x54, LittleEndian(1234567890, 4)});
    const EntryHeader header = FirstHeader(entry);
    EXPECT_EQ(header.unixMode, 0100644);
    EXPECT_EQ(header.times.modified, 128790414900000000u);
}

TEST_P(NewHeaderLevels, TellSizesOf64Bits) {
    LzhEntry entry = TextEntry(GetParam());
    entry.claimedSize = 0;
    entry.claimedPackedSize = 0;
    entry.extended.push_back({0x42, LittleEndian(9, 8) + LittleEndian(9, 8)});
    const Extraction extraction(LzhWriter().Add(entry).AddFile(L"next", "n").Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Bytes(L"dir\\a.txt"), "some text");
    EXPECT_EQ(extraction.Bytes(L"next"), "n");
}

TEST_P(NewHeaderLevels, PassOverWhatTheyDoNotKnowAndPreferTheirNameToTheOneBefore) {
    LzhEntry entry = TextEntry(GetParam());
    entry.extended.push_back({0x3F, "a comment"});
    entry.extended.push_back({0x39, std::string(12, 'm')});
    entry.extended.push_back({0x7F, std::string(21, '\0')});
    entry.extended.push_back({0xC4, ""});
    EXPECT_EQ(TextOf(entry), "some text");
    entry.extended.push_back({0x01, "longer name.txt"});
    EXPECT_EQ(TextOf(entry, L"dir\\longer name.txt"), "some text");
}

TEST_P(NewHeaderLevels, RefuseExtendedHeadersTooShortForTheirType) {
    for (const int type : {0x40, 0x41, 0x42, 0x46, 0x50, 0x54}) {
        LzhEntry entry = TextEntry(GetParam());
        entry.extended.push_back({static_cast<unsigned char>(type), "1"});
        EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(), LzhFailure::DamagedHeader)
            << type;
    }
}

TEST(Level0Header, MayHaveNoChecksumOfTheData) {
    LzhEntry entry = TextEntry(0);
    entry.withoutCrc = true;
    EXPECT_FALSE(FirstHeader(entry).crc);
    EXPECT_EQ(TextOf(entry), "some text");
}

TEST(Level0Header, MayHaveACommentBehindTheName) {
    LzhEntry entry = MakeEntry(L"metadata.txt", "some text", "-lh5-", 0);
    entry.name += std::string("\0This is a comment on the file.", 31);
    for (const char* area : {"", "A"}) {
        entry.area = area;
        EXPECT_EQ(TextOf(entry, L"metadata.txt"), "some text");
    }
}

TEST(Level0Header, MayHaveAnAreaOfItsSystem) {
    LzhEntry entry = TextEntry(0);
    entry.area = "U" + LittleEndian(0, 1) + LittleEndian(1234567890, 4) + LittleEndian(0100644, 2) +
                 LittleEndian(0, 4);
    const EntryHeader header = FirstHeader(entry);
    EXPECT_EQ(header.system, 'U');
    EXPECT_EQ(header.times.modified, FromUnixTime(1234567890));
    EXPECT_FALSE(header.times.modifiedLocal);
    for (const char* area :
         {"M", "K12345678901234567890", "U", "UU123", "UU12345", "\x01\x02\x03"}) {
        entry.area = area;
        EXPECT_EQ(TextOf(entry), "some text");
    }
}

// Else its last two bytes would be taken for the size of an extended header, which is zero.
TEST(Level1Header, HasToHaveRoomForTheSizeOfAnExtendedOne) {
    LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", 1);
    entry.headerCrc = false;
    std::string archive = LzhWriter().Add(entry).Finish();
    constexpr std::size_t systemAt = 25;
    ASSERT_EQ(archive[0], systemAt + 1);
    archive.replace(systemAt, 3, 2, '\0');
    --archive[0];
    archive[1] = static_cast<char>(std::accumulate(archive.begin() + 2, archive.begin() + 27, 0));
    EXPECT_EQ(Extraction(archive).Failure(), LzhFailure::DamagedHeader);
}

TEST(Level2Header, OfOneSystemAloneMayLeaveItsLastTwoBytesUncounted) {
    LzhEntry entry = TextEntry(2);
    entry.headerCrc = false;
    for (const char system : {'K', 'M', 'U', 'm', '\0', 'J', 'L'}) {
        entry.system = system;
        EXPECT_EQ(TextOf(entry), "some text") << system;
        std::string archive = LzhWriter().Add(entry).Finish();
        archive[0] = static_cast<char>(archive[0] - 2);
        const Extraction extraction(archive);
        EXPECT_EQ(extraction.Failure(),
                  system == 'K' ? LzhFailure::None : LzhFailure::DamagedHeader)
            << system;
        if (system == 'K') {
            EXPECT_EQ(extraction.Bytes(L"dir\\a.txt"), "some text");
        }
    }
}

// As a medium does that fails without saying so.
class ShortSource : public MemorySource {
  public:
    ShortSource(const std::string& archive, std::uint64_t firstMissing, std::size_t largestPiece)
        : MemorySource(archive), missing(firstMissing), piece(largestPiece) {}
    std::size_t Read(std::uint64_t offset, void* buffer, std::size_t size) override {
        const std::uint64_t left = offset < missing ? missing - offset : 0;
        return MemorySource::Read(offset, buffer, std::min<std::uint64_t>({size, left, piece}));
    }

  private:
    std::uint64_t missing;
    std::size_t piece;
};

TEST_P(HeaderLevels, EndWhereTheSourceEndsThoughItSaysMore) {
    const std::string archive = LzhWriter().Add(TextEntry(GetParam())).Finish();
    for (std::uint64_t missing = 22; missing < 33; ++missing) {
        ShortSource source(archive, missing, 4096);
        try {
            EntryList(source).Next();
            ADD_FAILURE() << missing;
        } catch (const LzhError& error) {
            EXPECT_EQ(error.Failure(), LzhFailure::Truncated) << missing;
        }
    }
}

TEST_P(HeaderLevels, MayComeInSmallPieces) {
    ShortSource source(LzhWriter().Add(TextEntry(GetParam())).Finish(), ~0ull, 30);
    EXPECT_EQ(EntryList(source).Next().value().originalSize, 9u);
}

TEST(Headers, MayBeOfMixedLevels) {
    LzhWriter writer;
    for (unsigned level = 0; level <= 3; ++level)
        writer.AddFile(L"f" + std::to_wstring(level), "x", "-lh0-", level);
    const Extraction extraction(writer.Finish());
    EXPECT_EQ(extraction.Files(), (std::vector<std::wstring>{L"f0", L"f1", L"f2", L"f3"}));
}

TEST(Links, AreNotMade) {
    for (unsigned level = 0; level <= 3; ++level) {
        LzhEntry entry = MakeEntry(L"link|..\\..\\target", "", "-lhd-", level);
        entry.system = 'U';
        entry.headerCrc = false;
        if (level == 0)
            entry.area = "U" + LittleEndian(0, 5) + LittleEndian(0120777, 2) + LittleEndian(0, 4);
        else
            entry.extended.push_back({0x50, LittleEndian(0120777, 2)});
        const Extraction extraction(LzhWriter().Add(entry).AddFile(L"after", "a").Finish());
        EXPECT_EQ(extraction.Failure(), LzhFailure::None) << level;
        EXPECT_EQ(extraction.Files(), std::vector<std::wstring>{L"after"});
        EXPECT_TRUE(extraction.target.folders.empty());
    }
}

} // namespace
} // namespace tamblin::lzh
