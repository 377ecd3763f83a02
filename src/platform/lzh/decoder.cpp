#include "platform/lzh/decoder.h"

#include "platform/lzh/adaptive_huffman_decoder.h"
#include "platform/lzh/larc_decoder.h"
#include "platform/lzh/static_huffman_decoder.h"
#include "platform/lzh/stored_decoder.h"

namespace tamblin::lzh {

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
