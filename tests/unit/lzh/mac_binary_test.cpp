// Files that a Macintosh archiver wrapped up.
#include <gtest/gtest.h>

#include "support/lzh_extraction.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

std::string BigEndian(std::size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

std::string FilledUp(std::string fork) {
    while (fork.size() % 128 != 0)
        fork += '\0';
    return fork;
}

std::string Wrapped(const std::string& name, const std::string& data, const std::string& resource) {
    std::string header(128, '\0');
    header[1] = static_cast<char>(name.size());
    header.replace(2, name.size(), name);
    header.replace(65, 8, "TEXTttxt");
    header.replace(83, 4, BigEndian(data.size()));
    header.replace(87, 4, BigEndian(resource.size()));
    return header + FilledUp(data) + FilledUp(resource);
}

std::string Unpacked(const std::string& bytes, char system, unsigned level, const std::string& name,
                     const std::string& method = "-lh5-") {
    LzhEntry entry = MakeEntry(L"read me", bytes, method, level);
    entry.name = name;
    entry.system = system;
    const Extraction extraction(LzhWriter().Add(entry).AddFile(L"next", "n").Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Bytes(L"next"), "n");
    return extraction.Bytes(std::wstring(name.begin(), name.end()));
}

TEST(MacBinary, DataForkIsTheFile) {
    for (const std::size_t size : {0u, 1u, 127u, 128u, 129u, 70'000u, 300'000u}) {
        const std::string data(size, 'd');
        for (const char* resource : {"", "the resource fork"}) {
            EXPECT_EQ(Unpacked(Wrapped("read me", data, resource), 'm', 1, "read me"), data);
            EXPECT_EQ(Unpacked(Wrapped("other name", data, resource), 'm', 2, "read me"), data);
            EXPECT_EQ(Unpacked(Wrapped("read me", data, resource), ' ', 0, "read me"), data);
        }
    }
}

TEST(MacBinary, MayBeStoredOrUnfilledAtItsEnd) {
    EXPECT_EQ(Unpacked(Wrapped("read me", "data", ""), 'm', 1, "read me", "-lh0-"), "data");
    const std::string wrapped = Wrapped("read me", "data", "rsrc");
    EXPECT_EQ(Unpacked(wrapped.substr(0, 256 + 4), 'm', 1, "read me"), "data");
}

TEST(MacBinary, OtherFilesAreLeftAlone) {
    const std::string wrapped = Wrapped("read me", "data", "rsrc");
    EXPECT_EQ(Unpacked(wrapped, 'M', 2, "read me"), wrapped);
    EXPECT_EQ(Unpacked(wrapped, ' ', 0, "read.bin"), wrapped);
    EXPECT_EQ(Unpacked(wrapped + "more", 'm', 1, "read me"), wrapped + "more");
    for (const std::size_t length : {0u, 64u, 65u}) {
        const std::string unnamed = Wrapped(std::string(length, 'n'), "data", "rsrc");
        EXPECT_EQ(Unpacked(unnamed, 'm', 1, "read me"), unnamed) << length;
    }
    EXPECT_EQ(Unpacked(Wrapped(std::string(63, 'n'), "data", "rsrc"), 'm', 1, "read me"), "data");
    for (const std::size_t place : {0u, 74u, 82u}) {
        std::string other = wrapped;
        other[place] = 1;
        EXPECT_EQ(Unpacked(other, 'm', 1, "read me"), other) << place;
    }
    for (const std::size_t size : {0u, 5u, 127u, 128u, 1000u})
        EXPECT_EQ(Unpacked(std::string(size, 'x'), 'm', 1, "read me"), std::string(size, 'x'));
    EXPECT_EQ(Unpacked(std::string(1000, '\0'), 'm', 1, "read me"), std::string(1000, '\0'));
}

} // namespace
} // namespace tamblin::lzh
