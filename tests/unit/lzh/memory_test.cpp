// Unpacking needs the same memory whatever an archive says. Measured where the tests run with the
// address sanitizer, which counts what is allocated.
#ifdef __SANITIZE_ADDRESS__

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/lzh/extractor.h"
#include "support/lzh_code_pages_here.h"
#include "support/lzh_memory_source.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"

// Of the sanitizer's interface, whose header not every compiler brings along.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

namespace tamblin::lzh {
namespace {

constexpr std::size_t mostMemory = 16 << 20;

class NoFile : public TargetFile {
  public:
    void Write(const std::uint8_t*, std::size_t) override {}
    void Finish(const EntryTimes&, EntryAttributes) override {}
};

class NoTarget : public ExtractionTarget {
  public:
    void MakeFolders(const EntryPath&) override {}
    std::unique_ptr<TargetFile> NewFile(const EntryPath&) override {
        return std::make_unique<NoFile>();
    }
};

std::size_t MemoryFor(const std::string& archive, LzhFailure expected) {
    MemoryView source(archive);
    NoTarget target;
    CodePagesHere codePages;
    std::size_t most = 0;
    const auto gauge = [&](std::uint64_t, std::uint64_t) {
        most = std::max(most, __sanitizer_get_current_allocated_bytes());
    };
    const std::size_t before = __sanitizer_get_current_allocated_bytes();
    const ExtractionResult result =
        Extractor(source, target, codePages, HiddenFiles::AsStored, gauge).Run();
    EXPECT_EQ(result.failure, expected);
    EXPECT_GT(most, before);
    return most - before;
}

TEST(Memory, IsSmallForEveryMethod) {
    LzhWriter writer;
    const std::string bytes = RandomText(2'500'000, 1);
    for (const char* method : {"-lh1-", "-lh4-", "-lh5-", "-lh6-", "-lh7-", "-lhx-", "-lz5-"})
        writer.AddFile(L"file", bytes, method);
    EXPECT_LT(MemoryFor(writer.Finish(), LzhFailure::None), mostMemory);
}

TEST(Memory, DoesNotGrowWithClaimedSizes) {
    LzhEntry entry = MakeEntry(L"a", RandomText(3'000'000, 2), "-lhx-", 2);
    entry.packed = Encode("-lhx-", entry.bytes);
    entry.extended.push_back(
        {0x42, LittleEndian(entry.packed->size(), 8) + LittleEndian(1ull << 62, 8)});
    EXPECT_LT(MemoryFor(LzhWriter().Add(entry).Finish(), LzhFailure::Truncated), mostMemory);
}

TEST(Memory, DoesNotGrowWithHeadersAndTheirNumber) {
    LzhWriter writer;
    for (int i = 0; i < 2000; ++i) {
        LzhEntry entry = MakeEntry(L"dir\\a", "x", "-lh0-", 3);
        entry.extended.push_back({0x3F, std::string(5000, 'c')});
        writer.Add(entry);
    }
    EXPECT_LT(MemoryFor(writer.Finish(), LzhFailure::None), mostMemory);
}

} // namespace
} // namespace tamblin::lzh

#endif
