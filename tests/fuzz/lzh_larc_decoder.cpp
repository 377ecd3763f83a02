// The decoders without Huffman codes, and the one that only copies. The first byte chooses.
#include "decoder_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* methods[] = {"-lzs-", "-lz5-", "-lh0-", "-lz5-"};
    if (size > 0)
        tamblin::lzh::FuzzDecoder(methods[data[0] % 4], data + 1, size - 1);
    return 0;
}
