// -lh1- and -lh2-: bytes and match lengths in one Huffman code that changes with every symbol. The
// lower six bits of a distance stand in the data as they are. Its upper bits come in a fixed code
// in -lh1-; in -lh2- in a second changing code, which grows as the history does.
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

class Lh2Decoder : public Decoder {
  public:
    explicit Lh2Decoder(OutputWindow& outputWindow);
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    unsigned ReadDistance(BitReader& reader, std::uint64_t unpacked);

    OutputWindow& window;
    AdaptiveTree symbols;
    AdaptiveTree distances;
    std::uint64_t nextGrowth = 0; // unpacked bytes behind which farther distances are possible
};

} // namespace tamblin::lzh
