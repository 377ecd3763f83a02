// How -lh4-, -lh5-, -lh6-, -lh7- and -lhx- are unpacked
// ======================================================
//
// The format. The data is a row of blocks. A block begins with the number of its symbols (16 bits;
// 0 stands for 65536) and three prefix codes, each told by the lengths of its codes:
//
//   1. a code for code lengths, in which 2. is packed,
//   2. the symbols: 0 to 255 are bytes, 256 to 509 say that 3 to 256 bytes are to be repeated,
//   3. the distances of those repetitions, by their magnitude: 0 is the last byte put; n > 0 says
//      that the distance less one has n bits, of which the upper is 1 and the others follow.
//
// Where a code has one symbol only, the symbol is named and its code takes no bits at all. The
// methods differ in nothing but how far back a distance may reach.
//
// The bit buffer. The next bits of the data stand left-aligned in a 64-bit word (bit_reader.h). One
// refill makes at least 56 of them valid without a branch. The longest symbol code takes 16 bits,
// the longest distance 16 + 19; a look-up takes at most 11. So the loop refills once for up to five
// look-ups, once more between a match's length and its distance, and before a search.
//
// The tables. The next 11 bits index a table of 32-bit entries (code_table.h), which give all that
// the loop wants to know:
//
//   bit  31     the entry is one byte or two
//   bit  30     it is two
//   bit  29     no code of up to 11 bits begins like this: search (prefix_code.h)
//   bits 12-27  the bytes, the first one lowest, or the length of the match
//   bits  6-10  bits of the first byte's code
//   bits  0-5   bits of all codes in the entry
//
// Two bytes come in one entry when both codes fit into 11 bits, which is what makes text fast: the
// chain "look up, shift, look up" is what the loop waits for, and it is half as long. Distances
// have a table of their own, by 8 bits:
//
//   bit  11     no code of up to 8 bits begins like this: search
//   bits 12-31  the smallest distance of the magnitude
//   bits  6-10  how many bits follow the code
//   bits  0-5   bits of the code
//
// The loop. DecodeFast runs while a block has enough symbols and the output enough room that
// nothing needs to be asked in between. What is left of a block goes symbol by symbol through
// DecodeOne, which takes only the first byte of a pair. Both write into the window, where a match
// is copied by words that may overrun its end (match_copy.h), and from where the bytes go to the
// checksum and into the file as they stand (output_window.h).
//
// Bad data. Lengths that ask for more codes than there are, symbols without a code and numbers out
// of range are found while a block header is read or when a search fails. A distance cannot be too
// long, since no block can name one beyond the history. Data that ends early is found by the
// input (packed_input.h).

#include "platform/lzh/static_huffman_decoder.h"

#include <array>
#include <bit>

#include "platform/lzh/lzh_error.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

constexpr unsigned symbolCount = 510;
constexpr unsigned symbolCountBits = 9;
constexpr unsigned lengthsCount = 19;
constexpr unsigned lengthsCountBits = 5;
constexpr unsigned shortestMatch = 3;

constexpr std::uint32_t bytesFlag = 1u << 31;
constexpr std::uint32_t twoBytesFlag = 1u << 30;
constexpr std::uint32_t searchSymbol = 1u << 29;
constexpr std::uint32_t searchDistance = 1u << 11;
constexpr unsigned valueShift = 12;
constexpr unsigned secondShift = 6;

// Bytes that are packed into pairs pay for the work only in a block that is long enough.
constexpr unsigned pairWorthyBlock = 6000;

// Look-ups that one refill is enough for, and the symbols that they can take.
constexpr int lookUpsPerRound = 5;
constexpr unsigned symbolsPerRound = 2 * lookUpsPerRound;

std::uint32_t SymbolEntry(unsigned symbol, unsigned length) {
    const std::uint32_t bits = length << secondShift | length;
    if (symbol < 256)
        return bytesFlag | symbol << valueShift | bits;
    return (symbol - 256 + shortestMatch) << valueShift | bits;
}

std::uint32_t DistanceEntry(unsigned magnitude, unsigned length) {
    if (magnitude == 0)
        return 1u << valueShift | length;
    const unsigned following = magnitude - 1;
    return ((1u << following) + 1) << valueShift | following << secondShift | length;
}

unsigned Bits(std::uint32_t entry) {
    return entry & 63;
}
unsigned SecondBits(std::uint32_t entry) {
    return (entry >> secondShift) & 31;
}
unsigned Value(std::uint32_t entry) {
    return (entry >> valueShift) & 0xFFFF;
}

[[noreturn]] void Damaged() {
    throw LzhError(LzhFailure::DamagedData);
}

// A number of code lengths, which must not be more than there are symbols.
unsigned ReadCount(BitReader& reader, unsigned bits, unsigned most) {
    const unsigned count = reader.Get(bits);
    if (count > most)
        Damaged();
    return count;
}

// A code length as it stands in the headers of 1. and 3.: three bits, and for 7 and more as many
// ones as it is longer than 7, and a zero.
unsigned ReadPlainLength(BitReader& reader) {
    unsigned length = reader.Get(3);
    if (length == 7) {
        while (reader.Take(1) != 0) {
            if (++length > PrefixCode::longestCode)
                Damaged();
        }
    }
    return length;
}

} // namespace

StaticHuffmanDecoder::StaticHuffmanDecoder(OutputWindow& outputWindow, unsigned historyBits)
    : window(outputWindow),
      historySize(std::size_t{1} << historyBits),
      distanceCount(historyBits + 1),
      distanceCountBits(historyBits > 13 ? 5 : 4) {}

void StaticHuffmanDecoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    BitReader reader(input);
    window.Start(historySize, ' ', size, sink);
    blockLeft = 0;
    while (!window.Complete()) {
        std::uint8_t* out = window.Next();
        while (out < window.Limit()) {
            if (blockLeft == 0)
                ReadBlockHeader(reader);
            if (blockLeft >= symbolsPerRound)
                out = DecodeFast(reader, out, window.Limit());
            else
                out = DecodeOne(reader, out);
        }
        window.PassOn(out);
    }
    reader.Finish();
}

void StaticHuffmanDecoder::ReadBlockHeader(BitReader& reader) {
    blockLeft = reader.Get(16);
    if (blockLeft == 0)
        blockLeft = 0x10000;
    ReadLengthsCode(reader);
    ReadSymbolCode(reader);
    ReadDistanceCode(reader);
}

void StaticHuffmanDecoder::ReadLengthsCode(BitReader& reader) {
    const auto entryFor = [](unsigned symbol, unsigned length) {
        return symbol << 8 | length;
    };
    const unsigned count = ReadCount(reader, lengthsCountBits, lengthsCount);
    if (count == 0) {
        lengths.FillAll(entryFor(ReadCount(reader, lengthsCountBits, lengthsCount - 1), 0));
        return;
    }
    std::array<std::uint8_t, lengthsCount> codeLengths{};
    for (unsigned i = 0; i < count;) {
        codeLengths[i++] = static_cast<std::uint8_t>(ReadPlainLength(reader));
        // Behind the third stands how many of the next three have no code.
        if (i == 3)
            i += reader.Get(2);
    }
    lengthsCode.SetLengths(codeLengths);
    lengths.Fill(lengthsCode, searchSymbol, entryFor);
}

// The next symbol of the code for code lengths.
unsigned StaticHuffmanDecoder::ReadCodeLengthPair(BitReader& reader) {
    reader.Check();
    reader.Refill();
    const std::uint32_t entry = lengths[reader.Bits()];
    if (entry != searchSymbol) {
        reader.Skip(entry & 0xFF);
        return entry >> 8;
    }
    const PrefixCode::Code code = lengthsCode.Find(reader.Peek(16));
    reader.Skip(code.length);
    return code.symbol;
}

void StaticHuffmanDecoder::ReadSymbolCode(BitReader& reader) {
    const unsigned count = ReadCount(reader, symbolCountBits, symbolCount);
    if (count == 0) {
        symbols.FillAll(SymbolEntry(ReadCount(reader, symbolCountBits, symbolCount - 1), 0));
        return;
    }
    std::array<std::uint8_t, symbolCount> codeLengths{};
    for (unsigned i = 0; i < count;) {
        const unsigned length = ReadCodeLengthPair(reader);
        if (length > 2)
            codeLengths[i++] = static_cast<std::uint8_t>(length - 2);
        else if (length == 2)
            i += reader.Take(9) + 20;
        else
            i += length == 1 ? reader.Take(4) + 3 : 1;
        if (i > symbolCount)
            Damaged();
    }
    symbolCode.SetLengths(codeLengths);
    symbols.Fill(symbolCode, searchSymbol, SymbolEntry);
    if (blockLeft >= pairWorthyBlock)
        PairBytes();
}

// Turns entries of one byte into entries of two where the next byte's code fits as well.
void StaticHuffmanDecoder::PairBytes() {
    constexpr unsigned indexBits = std::countr_zero(decltype(symbols)::size);
    for (std::size_t index = 0; index < symbols.size; ++index) {
        std::uint32_t& first = symbols.At(index);
        if ((first & bytesFlag) == 0)
            continue;
        const unsigned bits = SecondBits(first);
        const std::uint32_t second = symbols.At((index << bits) & (symbols.size - 1));
        const unsigned both = bits + SecondBits(second);
        if ((second & bytesFlag) == 0 || both > indexBits)
            continue;
        first = bytesFlag | twoBytesFlag | (Value(second) & 0xFF) << (valueShift + 8) |
                (Value(first) & 0xFF) << valueShift | bits << secondShift | both;
    }
}

void StaticHuffmanDecoder::ReadDistanceCode(BitReader& reader) {
    const unsigned count = ReadCount(reader, distanceCountBits, distanceCount);
    if (count == 0) {
        distances.FillAll(
            DistanceEntry(ReadCount(reader, distanceCountBits, distanceCount - 1), 0));
        return;
    }
    std::array<std::uint8_t, 32> codeLengths{};
    for (unsigned i = 0; i < count; ++i)
        codeLengths[i] = static_cast<std::uint8_t>(ReadPlainLength(reader));
    distanceCode.SetLengths(codeLengths);
    distances.Fill(distanceCode, searchDistance, DistanceEntry);
}

std::uint32_t StaticHuffmanDecoder::FindSymbol(std::uint64_t bits) const {
    const PrefixCode::Code code = symbolCode.Find(static_cast<unsigned>(bits >> 48));
    return SymbolEntry(code.symbol, code.length);
}

std::uint32_t StaticHuffmanDecoder::FindDistance(std::uint64_t bits) const {
    const PrefixCode::Code code = distanceCode.Find(static_cast<unsigned>(bits >> 48));
    return DistanceEntry(code.symbol, code.length);
}

std::uint8_t* StaticHuffmanDecoder::DecodeFast(BitReader& outerReader, std::uint8_t* out,
                                               const std::uint8_t* limit) {
    // Copies that nothing else points to, for the compiler to keep in registers.
    BitReader reader = outerReader;
    unsigned left = blockLeft;
    const auto putBytes = [&](std::uint32_t entry) {
        const unsigned two = (entry >> 30) & 1;
        out[0] = static_cast<std::uint8_t>(entry >> valueShift);
        out[1] = static_cast<std::uint8_t>(entry >> (valueShift + 8));
        out += 1 + two;
        left -= 1 + two;
        reader.Skip(Bits(entry));
    };

    while (out < limit && left >= symbolsPerRound) {
        if (reader.NeedsCheck()) {
            outerReader = reader;
            outerReader.Check();
            reader = outerReader;
        }
        reader.Refill();
        std::uint32_t entry = symbols[reader.Bits()];
        for (int i = 1; i < lookUpsPerRound && (entry & bytesFlag) != 0; ++i) {
            putBytes(entry);
            entry = symbols[reader.Bits()];
        }
        if ((entry & searchSymbol) != 0) [[unlikely]] {
            reader.Refill();
            entry = FindSymbol(reader.Bits());
        }
        if ((entry & bytesFlag) != 0) {
            putBytes(entry);
            continue;
        }
        reader.Skip(Bits(entry));
        reader.Refill();
        std::uint32_t distance = distances[reader.Bits()];
        if ((distance & searchDistance) != 0) [[unlikely]]
            distance = FindDistance(reader.Bits());
        reader.Skip(Bits(distance));
        const std::size_t back = (distance >> valueShift) + reader.Take(SecondBits(distance));
        CopyMatch(out, back, Value(entry));
        out += Value(entry);
        --left;
    }
    outerReader = reader;
    blockLeft = left;
    return out;
}

std::uint8_t* StaticHuffmanDecoder::DecodeOne(BitReader& reader, std::uint8_t* out) {
    reader.Check();
    reader.Refill();
    --blockLeft;
    std::uint32_t entry = symbols[reader.Bits()];
    if ((entry & searchSymbol) != 0)
        entry = FindSymbol(reader.Bits());
    reader.Skip(SecondBits(entry));
    if ((entry & bytesFlag) != 0) {
        *out = static_cast<std::uint8_t>(Value(entry));
        return out + 1;
    }
    reader.Refill();
    std::uint32_t distance = distances[reader.Bits()];
    if ((distance & searchDistance) != 0)
        distance = FindDistance(reader.Bits());
    reader.Skip(Bits(distance));
    const std::size_t back = (distance >> valueShift) + reader.Take(SecondBits(distance));
    CopyMatch(out, back, Value(entry));
    return out + Value(entry);
}

} // namespace tamblin::lzh
