// The decoder with a Huffman code that changes with every symbol.
#include "decoder_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tamblin::lzh::FuzzDecoder("-lh1-", data, size);
    return 0;
}
