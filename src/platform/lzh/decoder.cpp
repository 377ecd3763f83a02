#include "platform/lzh/decoder.h"

#include <algorithm>

#include "platform/lzh/adaptive_huffman_decoder.h"
#include "platform/lzh/larc_decoder.h"
#include "platform/lzh/lzh_error.h"
#include "platform/lzh/static_huffman_decoder.h"

namespace tamblin::lzh {
namespace {

// The data stands in the archive as it is.
class StoredDecoder : public Decoder {
  public:
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override {
        while (size > 0) {
            if (input.Begin() == input.End())
                input.Renew(input.End());
            if (input.Begin() == input.End())
                throw LzhError(LzhFailure::Truncated);
            const auto there = static_cast<std::uint64_t>(input.End() - input.Begin());
            const auto part = static_cast<std::size_t>(std::min(size, there));
            sink.Write(input.Begin(), part);
            size -= part;
            if (size > 0)
                input.Renew(input.Begin() + part);
        }
    }
};

} // namespace

Decoder* Decoders::Find(const std::string& method) {
    if (method != currentMethod) {
        current.reset();
        current = Make(method);
        currentMethod = method;
    }
    return current.get();
}

std::unique_ptr<Decoder> Decoders::Make(const std::string& method) {
    if (method == "-lh0-" || method == "-lz4-")
        return std::make_unique<StoredDecoder>();
    if (method == "-lh1-")
        return std::make_unique<Lh1Decoder>(window);
    if (method == "-lh4-" || method == "-lh5-")
        return std::make_unique<StaticHuffmanDecoder>(window, method == "-lh4-" ? 12 : 13);
    if (method == "-lh6-" || method == "-lh7-")
        return std::make_unique<StaticHuffmanDecoder>(window, method == "-lh6-" ? 15 : 16);
    // Other readers are content with 19 bits; one more is understood without doing harm to these.
    if (method == "-lhx-")
        return std::make_unique<StaticHuffmanDecoder>(window, 20);
    if (method == "-lzs-")
        return std::make_unique<LzsDecoder>(window);
    if (method == "-lz5-")
        return std::make_unique<Lz5Decoder>(window);
    return nullptr;
}

} // namespace tamblin::lzh
