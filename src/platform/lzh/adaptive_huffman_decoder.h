// -lh1-: bytes and match lengths in one Huffman code that changes with every symbol. The upper six
// bits of a distance come in a fixed code, the lower six stand in the data as they are.
#pragma once

#include "platform/lzh/adaptive_tree.h"
#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

class Lh1Decoder : public Decoder {
  public:
    explicit Lh1Decoder(OutputWindow& outputWindow) : window(outputWindow) {}
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    std::uint8_t* DecodeChunk(BitReader& reader);

    OutputWindow& window;
    AdaptiveTree tree; // of 256 bytes and the match lengths 3 to 60
};

} // namespace tamblin::lzh
