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
// refill makes at least 56 of them valid without a branch, and leaves those alone that were valid
// before. So what depends on valid bits only, the next look-up, is begun before the refill and need
// not wait for it.
//
// The tables. The next 11 bits index a table of 32-bit entries (code_table.h), which give all that
// the loop wants to know:
//
//   bits 16-31  the bytes, the first one lowest, or the length of the match
//   bit  15     no code of up to 11 bits begins like this: search (prefix_code.h)
//   bits 8-12   bits of the first byte's code, or of the match's
//   bits 6-7    how many bytes the entry is: 1 or 2, or 0 for a match
//   bits 0-5    bits of all codes in the entry
//
// Two bytes come in one entry when both codes fit into 11 bits, which is what makes text fast: the
// chain "look up, shift, look up" is what the loop waits for, and it is half as long. The bits that
// are used up stand lowest, since a shift by a register looks at its lowest six bits alone.
// Distances have a table of their own, by 8 bits, with 64-bit entries:
//
//   bits 32-63  the smallest distance of the magnitude
//   bit  31     no code of up to 8 bits begins like this: search
//   bits 16-21  63 less how many bits follow the code
//   bits 8-12   bits of the code
//   bits 0-5    bits of the code and those that follow
//
// Making the tables is much of the work for a small file. A code is sorted while its lengths are
// read, without the symbols that have none; the codes' stretches of a table follow one another and
// are written 16 bytes at a time, each over the end of the one before. Nothing is cleared. Pairs
// are made only for blocks that are long enough. A search needs no table of its own: for each
// length the code knows the last code (prefix_code.h).
//
// The loop. DecodeFast runs while a block has enough symbols and the output enough room that
// nothing needs to be asked in between. A round takes up to four entries of bytes, of 11 bits each,
// and one match, for whose distance it refills once more: 16 bits of code and 19 that follow leave
// the 11 that the next round's first look-up needs. That look-up is begun before the match is
// copied. What is left of a block goes symbol by symbol through DecodeOne, which takes only the
// first byte of a pair. Both write into the window, where a match is copied by words that may
// overrun its end (match_copy.h), and from where the bytes go to the checksum, which costs next to
// nothing (crc16.cpp), and into the file as they stand (output_window.h).
//
// Bad data. Lengths that ask for more codes than there are, symbols without a code and numbers out
// of range are found while a block header is read or when a search fails. A distance cannot be too
// long, since no block can name one beyond the history. Data that ends early is found by the
// input (packed_input.h).

#include "platform/lzh/static_huffman_decoder.h"

#include <array>
#include <bit>
#include <cstring>

#include "platform/lzh/lzh_error.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

constexpr unsigned symbolCount = 510;
constexpr unsigned symbolCountBits = 9;
constexpr unsigned lengthsCount = 19;
constexpr unsigned lengthsCountBits = 5;
constexpr unsigned shortestMatch = 3;

// An entry of the symbols' table.
constexpr std::uint32_t searchSymbol = 1u << 15;
constexpr unsigned byteCountShift = 6;
constexpr std::uint32_t byteCountMask = 3u << byteCountShift;
constexpr unsigned firstBitsShift = 8;
constexpr unsigned valueShift = 16;

// An entry of the distances' table.
constexpr std::uint64_t searchDistance = 1u << 31;
constexpr unsigned codeBitsShift = 8;
constexpr unsigned followingShift = 16;
constexpr unsigned baseShift = 32;

// An entry of the table for code lengths.
constexpr std::uint16_t searchLength = 0xFFFF;

// Bytes that are packed into pairs pay for the work only in a block that is long enough.
constexpr unsigned pairWorthyBlock = 6000;

// Symbols that one round of the loop can take: four look-ups of two bytes, and a match.
constexpr unsigned symbolsPerRound = 9;

// A symbol's entry, less the bits of its code.
constexpr std::array<std::uint32_t, symbolCount> MakeValues() {
    std::array<std::uint32_t, symbolCount> values{};
    for (unsigned symbol = 0; symbol < symbolCount; ++symbol)
        values[symbol] = symbol < 256 ? symbol << valueShift | 1u << byteCountShift
                                      : (symbol - 256 + shortestMatch) << valueShift;
    return values;
}

constexpr std::array<std::uint32_t, symbolCount> symbolValues = MakeValues();

inline std::uint32_t SymbolEntry(unsigned symbol, unsigned length) {
    return symbolValues[symbol] | length << firstBitsShift | length;
}

std::uint64_t DistanceEntry(unsigned magnitude, unsigned length) {
    const unsigned following = magnitude == 0 ? 0 : magnitude - 1;
    const std::uint64_t base = magnitude == 0 ? 1 : (std::uint64_t{1} << following) + 1;
    return base << baseShift | (63 - following) << followingShift | length << codeBitsShift |
           (length + following);
}

bool IsBytes(std::uint32_t entry) {
    return (entry & byteCountMask) != 0;
}
unsigned ByteCount(std::uint32_t entry) {
    return (entry & byteCountMask) >> byteCountShift;
}
unsigned FirstBits(std::uint32_t entry) {
    return (entry >> firstBitsShift) & 31;
}
// The bytes, or the length of a match.
unsigned Value(std::uint32_t entry) {
    return entry >> valueShift;
}

void PutBytes(std::uint8_t* to, std::uint32_t entry) {
    static_assert(std::endian::native == std::endian::little);
    const auto bytes = static_cast<std::uint16_t>(entry >> valueShift);
    std::memcpy(to, &bytes, sizeof bytes);
}

// The distance whose entry the bits begin with.
std::size_t DistanceOf(std::uint64_t entry, std::uint64_t bits) {
    const std::uint64_t following = bits << ((entry >> codeBitsShift) & 63);
    return static_cast<std::size_t>((entry >> baseShift) +
                                    (following >> 1 >> ((entry >> followingShift) & 63)));
}

[[noreturn]] void ThrowDamaged() {
    throw LzhError(LzhFailure::DamagedData);
}

// A number of code lengths, which must not be more than there are symbols.
unsigned ReadCount(BitReader& reader, unsigned bits, unsigned most) {
    const unsigned count = reader.Get(bits);
    if (count > most)
        ThrowDamaged();
    return count;
}

// A code length as it stands in the headers of 1. and 3.: three bits, and for 7 and more as many
// ones as it is longer than 7, and a zero.
unsigned ReadPlainLength(BitReader& reader) {
    unsigned length = reader.Get(3);
    if (length == 7) {
        while (reader.Take(1) != 0) {
            if (++length > PrefixCode::longestCode)
                ThrowDamaged();
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
        return static_cast<std::uint16_t>(symbol << 8 | length);
    };
    const unsigned count = ReadCount(reader, lengthsCountBits, lengthsCount);
    if (count == 0) {
        lengths.FillAll(entryFor(ReadCount(reader, lengthsCountBits, lengthsCount - 1), 0));
        return;
    }
    lengthsCode.Begin();
    for (unsigned i = 0; i < count; ++i) {
        if (const unsigned length = ReadPlainLength(reader); length > 0)
            lengthsCode.Add(i, length);
        // Behind the third stands how many of the next three have no code.
        if (i == 2)
            i += reader.Get(2);
    }
    lengthsCode.Finish();
    lengths.Fill(lengthsCode, searchLength, entryFor);
}

// The next symbol of the code for code lengths. Up to 16 bits are used.
inline unsigned StaticHuffmanDecoder::ReadLengthItem(BitReader& reader) const {
    const unsigned entry = lengths[reader.Bits()];
    if (entry != searchLength) {
        reader.Skip(entry);
        return entry >> 8;
    }
    const PrefixCode::Code code = lengthsCode.Find(reader.Peek(16), lengths.indexBits + 1);
    reader.Skip(code.length);
    return code.symbol;
}

void StaticHuffmanDecoder::ReadSymbolCode(BitReader& outerReader) {
    const unsigned count = ReadCount(outerReader, symbolCountBits, symbolCount);
    if (count == 0) {
        symbols.FillAll(SymbolEntry(ReadCount(outerReader, symbolCountBits, symbolCount - 1), 0));
        return;
    }
    BitReader reader = outerReader;
    symbolCode.Begin();
    for (unsigned i = 0; i < count;) {
        reader.Check();
        reader.Refill();
        const unsigned item = ReadLengthItem(reader);
        if (item > 2)
            symbolCode.Add(i++, item - 2);
        else if (item == 2)
            i += reader.Take(9) + 20;
        else
            i += item == 1 ? reader.Take(4) + 3 : 1;
        if (i > symbolCount)
            ThrowDamaged();
    }
    outerReader = reader;
    symbolCode.Finish();
    symbols.Fill(symbolCode, searchSymbol, SymbolEntry);
    if (blockLeft >= pairWorthyBlock)
        PairBytes();
}

// Turns entries of one byte into entries of two where the next byte's code fits as well.
void StaticHuffmanDecoder::PairBytes() {
    for (std::size_t index = 0; index < symbols.size; ++index) {
        std::uint32_t& first = symbols.At(index);
        if (!IsBytes(first))
            continue;
        const unsigned bits = FirstBits(first);
        const std::uint32_t second = symbols.At((index << bits) & (symbols.size - 1));
        const unsigned both = bits + FirstBits(second);
        if (!IsBytes(second) || both > symbols.indexBits)
            continue;
        const unsigned bytes = (Value(second) & 0xFF) << 8 | (Value(first) & 0xFF);
        first = bytes << valueShift | bits << firstBitsShift | 2u << byteCountShift | both;
    }
}

void StaticHuffmanDecoder::ReadDistanceCode(BitReader& reader) {
    const unsigned count = ReadCount(reader, distanceCountBits, distanceCount);
    if (count == 0) {
        distances.FillAll(
            DistanceEntry(ReadCount(reader, distanceCountBits, distanceCount - 1), 0));
        return;
    }
    distanceCode.Begin();
    for (unsigned i = 0; i < count; ++i) {
        if (const unsigned length = ReadPlainLength(reader); length > 0)
            distanceCode.Add(i, length);
    }
    distanceCode.Finish();
    distances.Fill(distanceCode, searchDistance, DistanceEntry);
}

std::uint32_t StaticHuffmanDecoder::FindSymbol(std::uint64_t bits) const {
    const PrefixCode::Code code =
        symbolCode.Find(static_cast<unsigned>(bits >> 48), symbols.indexBits + 1);
    return SymbolEntry(code.symbol, code.length);
}

std::uint64_t StaticHuffmanDecoder::FindDistance(std::uint64_t bits) const {
    const PrefixCode::Code code =
        distanceCode.Find(static_cast<unsigned>(bits >> 48), distances.indexBits + 1);
    return DistanceEntry(code.symbol, code.length);
}

std::uint8_t* StaticHuffmanDecoder::DecodeFast(BitReader& outerReader, std::uint8_t* out,
                                               const std::uint8_t* limit) {
    // A copy that nothing else points to, for the compiler to keep in registers.
    BitReader reader = outerReader;
    const auto room = static_cast<std::size_t>(limit - out);
    std::size_t at = 0;
    // Where the block would end if only single bytes came: with every symbol the next byte comes
    // nearer, and only a match moves the end itself.
    std::size_t end = blockLeft;

    std::uint32_t entry = 0;
    const auto lookUp = [&] {
        entry = symbols[reader.Bits()];
    };
    const auto putBytes = [&] {
        PutBytes(out + at, entry);
        at += ByteCount(entry);
        reader.Skip(entry);
    };
    reader.Refill();
    lookUp();
    while (at < room && at + symbolsPerRound <= end) {
        if (reader.NeedsCheck()) [[unlikely]] {
            outerReader = reader;
            outerReader.Check();
            reader = outerReader;
        }
        reader.Refill();
        if (IsBytes(entry)) {
            putBytes();
            lookUp();
            if (IsBytes(entry)) {
                putBytes();
                lookUp();
                if (IsBytes(entry)) {
                    putBytes();
                    lookUp();
                    if (IsBytes(entry)) {
                        putBytes();
                        lookUp();
                        continue;
                    }
                }
            }
        }
        if ((entry & searchSymbol) != 0) [[unlikely]] {
            entry = FindSymbol(reader.Bits());
            if (IsBytes(entry)) {
                putBytes();
                reader.Refill();
                lookUp();
                continue;
            }
            reader.Refill();
        }
        const unsigned length = Value(entry);
        reader.Skip(entry);
        std::uint64_t distance = distances[reader.Bits()];
        reader.Refill();
        const std::uint64_t bits = reader.Bits();
        if ((distance & searchDistance) != 0) [[unlikely]]
            distance = FindDistance(bits);
        reader.Skip(static_cast<unsigned>(distance));
        lookUp();
        CopyMatch(out + at, DistanceOf(distance, bits), length);
        at += length;
        end += length - 1;
    }
    outerReader = reader;
    blockLeft = static_cast<unsigned>(end - at);
    return out + at;
}

std::uint8_t* StaticHuffmanDecoder::DecodeOne(BitReader& reader, std::uint8_t* out) {
    reader.Check();
    reader.Refill();
    --blockLeft;
    std::uint32_t entry = symbols[reader.Bits()];
    if ((entry & searchSymbol) != 0)
        entry = FindSymbol(reader.Bits());
    reader.Skip(FirstBits(entry));
    if (IsBytes(entry)) {
        *out = static_cast<std::uint8_t>(Value(entry));
        return out + 1;
    }
    reader.Refill();
    std::uint64_t distance = distances[reader.Bits()];
    if ((distance & searchDistance) != 0)
        distance = FindDistance(reader.Bits());
    CopyMatch(out, DistanceOf(distance, reader.Bits()), Value(entry));
    reader.Skip(static_cast<unsigned>(distance));
    return out + Value(entry);
}

} // namespace tamblin::lzh
