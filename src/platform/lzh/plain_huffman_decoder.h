// -lh3-: bytes and matches in Huffman codes that are given anew for every block, like -lh5- and its
// kin, but with the code lengths as plain numbers, and the distances' upper bits as symbols.
#pragma once

#include <cstdint>
#include <span>

#include "platform/lzh/bit_reader.h"
#include "platform/lzh/code_table.h"
#include "platform/lzh/decoder.h"
#include "platform/lzh/prefix_code.h"

namespace tamblin::lzh {

class Lh3Decoder : public Decoder {
  public:
    explicit Lh3Decoder(OutputWindow& outputWindow) : window(outputWindow) {}
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    struct Code {
        PrefixCode code;
        CodeTable<9> table;

        void SetLengths(std::span<const std::uint8_t> lengths);
        void SetOnly(unsigned symbol);
        unsigned Read(BitReader& reader) const;
    };

    void ReadBlockHeader(BitReader& reader);
    void ReadSymbolCode(BitReader& reader);
    void ReadDistanceCode(BitReader& reader);
    std::uint8_t* DecodeOne(BitReader& reader, std::uint8_t* out);

    OutputWindow& window;
    Code symbols;
    Code distances;
    unsigned blockLeft = 0;
};

} // namespace tamblin::lzh
