// The decoders with Huffman codes that change with every symbol. The first byte chooses.
#include "decoder_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* methods[] = {"-lh1-", "-lh2-"};
    if (size > 0)
        tamblin::lzh::FuzzDecoder(methods[data[0] % 2], data + 1, size - 1);
    return 0;
}
