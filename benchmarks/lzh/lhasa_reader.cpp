extern "C" {
#include <liblhasa-1.0/lhasa.h>
}

#include <algorithm>
#include <cstring>

#include "reader_under_test.h"

namespace tamblin::bench {
namespace {

struct Position {
    const std::string& bytes;
    std::size_t at = 0;
};

int ReadSome(void* handle, void* buffer, std::size_t size) {
    auto& position = *static_cast<Position*>(handle);
    const std::size_t got = std::min(size, position.bytes.size() - position.at);
    std::memcpy(buffer, position.bytes.data() + position.at, got);
    position.at += got;
    return static_cast<int>(got);
}

int SkipSome(void* handle, std::size_t size) {
    static_cast<Position*>(handle)->at += size;
    return 1;
}

class LhasaReader : public ReaderUnderTest {
  public:
    std::string Name() const override { return "lhasa"; }

    std::uint64_t Unpack(const std::string& archive) override {
        const LHAInputStreamType type{ReadSome, SkipSome, nullptr};
        Position position{archive};
        LHAInputStream* stream = lha_input_stream_new(&type, &position);
        LHAReader* reader = lha_reader_new(stream);
        std::uint64_t count = 0;
        while (const LHAFileHeader* header = lha_reader_next_file(reader)) {
            if (!lha_reader_check(reader, nullptr, nullptr)) {
                count = 0;
                break;
            }
            count += header->length;
        }
        lha_reader_free(reader);
        lha_input_stream_free(stream);
        return count;
    }
};

} // namespace

std::unique_ptr<ReaderUnderTest> MakeLhasaReader() {
    return std::make_unique<LhasaReader>();
}

} // namespace tamblin::bench
