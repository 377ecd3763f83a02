// The decoder of -lh1-.
#include "decoder_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tamblin::lzh::FuzzDecoder("-lh1-", data, size);
    return 0;
}
