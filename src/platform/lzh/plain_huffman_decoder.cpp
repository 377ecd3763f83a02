#include "platform/lzh/plain_huffman_decoder.h"

#include <algorithm>
#include <array>

#include "platform/lzh/lzh_error.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

constexpr unsigned historySize = 8192;
constexpr unsigned lowerBits = 6; // of a distance
constexpr unsigned distanceCount = historySize >> lowerBits;
constexpr unsigned symbolCount = 286; // 256 bytes, lengths 3 to 31, and
constexpr unsigned longLength = 285;  // 32 and what the next eight bits say
constexpr unsigned shortestMatch = 3;
constexpr std::uint32_t search = 1u << 31; // in a table: the code is longer than the index

// Three codes of length 1 in a row, which no true code can have, say that there is one symbol only.
bool IsOnlyOneMark(std::span<const std::uint8_t> lengths) {
    return std::all_of(lengths.begin(), lengths.begin() + 3, [](auto n) { return n == 1; });
}

// The code for distances in blocks that do not bring one along: short codes for near ones.
std::array<std::uint8_t, distanceCount> UsualDistanceLengths() {
    struct Step {
        unsigned from;
        std::uint8_t length;
    };
    constexpr Step steps[] = {{0, 2}, {1, 4}, {3, 5}, {6, 6}, {13, 7}, {31, 8}, {78, 9}};
    std::array<std::uint8_t, distanceCount> lengths{};
    for (const Step& step : steps)
        std::fill(lengths.begin() + step.from, lengths.end(), step.length);
    return lengths;
}

} // namespace

void Lh3Decoder::Code::SetLengths(std::span<const std::uint8_t> lengths) {
    code.SetLengths(lengths);
    table.Fill(code, search, [](unsigned symbol, unsigned length) { return symbol << 8 | length; });
}

void Lh3Decoder::Code::SetOnly(unsigned symbol) {
    table.FillAll(symbol << 8);
}

unsigned Lh3Decoder::Code::Read(BitReader& reader) const {
    const std::uint32_t entry = table[reader.Bits()];
    if (entry != search) {
        reader.Skip(entry & 0xFF);
        return entry >> 8;
    }
    const PrefixCode::Code found = code.Find(reader.Peek(16));
    reader.Skip(found.length);
    return found.symbol;
}

void Lh3Decoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    BitReader reader(input);
    window.Start(historySize, ' ', size, sink);
    blockLeft = 0;
    while (!window.Complete()) {
        std::uint8_t* out = window.Next();
        while (out < window.Limit())
            out = DecodeOne(reader, out);
        window.PassOn(out);
    }
    reader.Finish();
}

std::uint8_t* Lh3Decoder::DecodeOne(BitReader& reader, std::uint8_t* out) {
    if (blockLeft == 0)
        ReadBlockHeader(reader);
    --blockLeft;
    reader.Check();
    reader.Refill();
    unsigned symbol = symbols.Read(reader);
    if (symbol < 256) {
        *out = static_cast<std::uint8_t>(symbol);
        return out + 1;
    }
    if (symbol == longLength)
        symbol += reader.Take(8);
    const unsigned length = symbol - 256 + shortestMatch;
    reader.Refill();
    const unsigned upper = distances.Read(reader);
    CopyMatch(out, (upper << lowerBits | reader.Take(lowerBits)) + 1, length);
    return out + length;
}

void Lh3Decoder::ReadBlockHeader(BitReader& reader) {
    blockLeft = reader.Get(16);
    if (blockLeft == 0)
        blockLeft = 0x10000;
    ReadSymbolCode(reader);
    if (reader.Get(1) != 0)
        ReadDistanceCode(reader);
    else
        distances.SetLengths(UsualDistanceLengths());
}

void Lh3Decoder::ReadSymbolCode(BitReader& reader) {
    std::array<std::uint8_t, symbolCount> lengths{};
    for (unsigned i = 0; i < symbolCount;) {
        if (reader.Get(1) != 0)
            lengths[i] = static_cast<std::uint8_t>(reader.Take(4) + 1);
        if (++i == 3 && IsOnlyOneMark(lengths)) {
            const unsigned only = reader.Take(9);
            if (only >= symbolCount)
                throw LzhError(LzhFailure::DamagedData);
            symbols.SetOnly(only);
            return;
        }
    }
    symbols.SetLengths(lengths);
}

void Lh3Decoder::ReadDistanceCode(BitReader& reader) {
    std::array<std::uint8_t, distanceCount> lengths{};
    for (unsigned i = 0; i < distanceCount;) {
        lengths[i] = static_cast<std::uint8_t>(reader.Get(4));
        if (++i == 3 && IsOnlyOneMark(lengths)) {
            distances.SetOnly(reader.Take(7));
            return;
        }
    }
    distances.SetLengths(lengths);
}

} // namespace tamblin::lzh
