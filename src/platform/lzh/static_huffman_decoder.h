// -lh4- to -lh7- and -lhx-: bytes and matches in Huffman codes that are given anew for every block.
// The page that explains it opens static_huffman_decoder.cpp.
#pragma once

#include <cstdint>

#include "platform/lzh/bit_reader.h"
#include "platform/lzh/code_table.h"
#include "platform/lzh/decoder.h"
#include "platform/lzh/prefix_code.h"

namespace tamblin::lzh {

class StaticHuffmanDecoder : public Decoder {
  public:
    // Matches reach back 2 to the `historyBits` bytes.
    StaticHuffmanDecoder(OutputWindow& outputWindow, unsigned historyBits);

    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    void ReadBlockHeader(BitReader& reader);
    void ReadLengthsCode(BitReader& reader);
    void ReadSymbolCode(BitReader& reader);
    void ReadDistanceCode(BitReader& reader);
    unsigned ReadLengthItem(BitReader& reader) const;
    void PairBytes();

    std::uint8_t* DecodeFast(BitReader& reader, std::uint8_t* out, const std::uint8_t* limit);
    std::uint8_t* DecodeOne(BitReader& reader, std::uint8_t* out);
    std::uint32_t FindSymbol(std::uint64_t bits) const;
    std::uint64_t FindDistance(std::uint64_t bits) const;

    OutputWindow& window;
    const std::size_t historySize;
    const unsigned distanceCount;     // distances' codes at most
    const unsigned distanceCountBits; // in which a block says how many they are

    unsigned blockLeft = 0; // symbols of the block that are still to come
    PrefixCode symbolCode;
    PrefixCode distanceCode;
    PrefixCode lengthsCode;
    CodeTable<std::uint32_t, 11> symbols;
    CodeTable<std::uint64_t, 8> distances;
    CodeTable<std::uint16_t, 7> lengths;
};

} // namespace tamblin::lzh
