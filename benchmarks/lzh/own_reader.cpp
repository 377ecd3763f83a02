#include "platform/lzh/extractor.h"
#include "reader_under_test.h"
#include "support/lzh_code_pages_here.h"
#include "support/lzh_memory_source.h"

namespace tamblin::bench {
namespace {

class CountingFile : public lzh::TargetFile {
  public:
    explicit CountingFile(std::uint64_t& byteCount) : count(byteCount) {}
    void Write(const std::uint8_t*, std::size_t size) override { count += size; }
    void Finish(const lzh::EntryTimes&, lzh::EntryAttributes) override {}

  private:
    std::uint64_t& count;
};

class CountingTarget : public lzh::ExtractionTarget {
  public:
    std::uint64_t count = 0;

    void MakeFolders(const lzh::EntryPath&) override {}
    std::unique_ptr<lzh::TargetFile> NewFile(const lzh::EntryPath&) override {
        return std::make_unique<CountingFile>(count);
    }
};

class OwnReader : public ReaderUnderTest {
  public:
    std::string Name() const override { return "ours"; }

    std::uint64_t Unpack(const std::string& archive) override {
        lzh::MemoryView source(archive);
        CountingTarget target;
        lzh::CodePagesHere codePages;
        const bool good = lzh::Extractor(source, target, codePages).Run().Succeeded();
        return good ? target.count : 0;
    }
};

} // namespace

std::unique_ptr<ReaderUnderTest> MakeOwnReader() {
    return std::make_unique<OwnReader>();
}

} // namespace tamblin::bench
