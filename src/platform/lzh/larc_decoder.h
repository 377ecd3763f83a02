// -lzs- and -lz5-, of the oldest archiver: single bytes and matches without any Huffman code.
// Matches name a place in a ring of bytes, which has contents before the first byte is unpacked.
#pragma once

#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

// A bit tells a byte (1; eight bits follow) from a match (0; 11 bits of place, 4 bits of length).
class LzsDecoder : public Decoder {
  public:
    explicit LzsDecoder(OutputWindow& outputWindow) : window(outputWindow) {}
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    OutputWindow& window;
};

// Groups of eight: a byte whose bits, the lowest first, tell single bytes (1) from matches (0) of
// two bytes.
class Lz5Decoder : public Decoder {
  public:
    explicit Lz5Decoder(OutputWindow& outputWindow) : window(outputWindow) {}
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    OutputWindow& window;
};

} // namespace tamblin::lzh
