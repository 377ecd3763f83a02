#include <archive.h>
#include <archive_entry.h>

#include "reader_under_test.h"

namespace tamblin::bench {
namespace {

class LibarchiveReader : public ReaderUnderTest {
  public:
    std::string Name() const override { return "libarchive"; }

    std::uint64_t Unpack(const std::string& bytes) override {
        archive* reader = archive_read_new();
        archive_read_support_format_lha(reader);
        archive_read_open_memory(reader, bytes.data(), bytes.size());
        const std::uint64_t count = UnpackAll(reader);
        archive_read_free(reader);
        return count;
    }

  private:
    static std::uint64_t UnpackAll(archive* reader) {
        std::uint64_t count = 0;
        archive_entry* entry = nullptr;
        int result = archive_read_next_header(reader, &entry);
        for (; result >= ARCHIVE_WARN && result != ARCHIVE_EOF;
             result = archive_read_next_header(reader, &entry)) {
            const void* block = nullptr;
            size_t size = 0;
            la_int64_t offset = 0;
            int part = ARCHIVE_OK;
            while ((part = archive_read_data_block(reader, &block, &size, &offset)) == ARCHIVE_OK)
                count += size;
            if (part != ARCHIVE_EOF)
                return 0;
        }
        return result == ARCHIVE_EOF ? count : 0;
    }
};

} // namespace

std::unique_ptr<ReaderUnderTest> MakeLibarchiveReader() {
    return std::make_unique<LibarchiveReader>();
}

} // namespace tamblin::bench
