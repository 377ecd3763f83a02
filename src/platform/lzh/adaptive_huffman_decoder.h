// -lh1-: bytes and match lengths in one Huffman code that changes with every symbol. The upper six
// bits of a distance come in a fixed code, the lower six stand in the data as they are.
#pragma once

#include "platform/lzh/adaptive_tree.h"
#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

class Lh1Decoder : public Decoder {
  public:
    explicit Lh1Decoder(OutputWindow& outputWindow);
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    OutputWindow& window;
    AdaptiveTree symbols;
};

} // namespace tamblin::lzh
