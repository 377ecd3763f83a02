#include "platform/lzh/adaptive_huffman_decoder.h"

#include <array>

#include "platform/lzh/bit_reader.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

constexpr unsigned shortestLength = 3;
constexpr unsigned lowerBits = 6; // of a distance

constexpr unsigned lh1History = 4096;

// The fixed code for the upper six bits of a distance, by the next eight bits of the data.
struct UpperBits {
    std::uint8_t value;
    std::uint8_t length;
};

constexpr std::array<UpperBits, 256> MakeUpperBits() {
    constexpr unsigned codesOfLength[9] = {0, 0, 0, 1, 3, 8, 12, 24, 16};
    std::array<UpperBits, 256> codes{};
    unsigned next = 0;
    unsigned value = 0;
    for (unsigned length = 3; length <= 8; ++length) {
        for (unsigned n = 0; n < codesOfLength[length]; ++n, ++value) {
            for (unsigned i = 0; i < 256u >> length; ++i)
                codes[next++] = {static_cast<std::uint8_t>(value),
                                 static_cast<std::uint8_t>(length)};
        }
    }
    return codes;
}

constexpr std::array<UpperBits, 256> fixedUpperBits = MakeUpperBits();

static_assert(AdaptiveTree::mostBits + 8 + lowerBits + AdaptiveTree::bitsAhead <= 56,
              "a refill has to last for a symbol and a distance");

// Does not refill.
unsigned ReadDistance(BitReader& reader) {
    const UpperBits upper = fixedUpperBits[reader.Peek(8)];
    reader.Skip(upper.length);
    return (unsigned{upper.value} << lowerBits | reader.Take(lowerBits)) + 1;
}

} // namespace

void Lh1Decoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    BitReader reader(input);
    window.Start(lh1History, ' ', size, sink);
    tree.Reset();
    reader.Check();
    reader.Refill();
    while (!window.Complete())
        window.PassOn(DecodeChunk(reader));
    reader.Finish();
}

std::uint8_t* Lh1Decoder::DecodeChunk(BitReader& outerReader) {
    // A copy that nothing else points to, for the compiler to keep in registers.
    BitReader reader = outerReader;
    std::uint8_t* out = window.Next();
    const std::uint8_t* const limit = window.Limit();
    while (out < limit) {
        if (reader.NeedsCheck()) [[unlikely]] {
            outerReader = reader;
            outerReader.Check();
            reader = outerReader;
        }
        const unsigned symbol = tree.Decode(reader);
        if (symbol < 256) {
            *out++ = static_cast<std::uint8_t>(symbol);
        } else {
            const unsigned length = symbol - 256 + shortestLength;
            CopyMatch(out, ReadDistance(reader), length);
            out += length;
        }
    }
    outerReader = reader;
    return out;
}

} // namespace tamblin::lzh
