// The decoders with Huffman codes per block. The first byte chooses the method.
#include "decoder_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* methods[] = {"-lh4-", "-lh5-", "-lh6-", "-lh7-", "-lhx-"};
    if (size > 0)
        tamblin::lzh::FuzzDecoder(methods[data[0] % 5], data + 1, size - 1);
    return 0;
}
