// A prefix code ("Huffman code") in canonical form, as the lengths of its codes tell it: codes
// count upwards, short ones first, equal lengths in the order of their symbols.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tamblin::lzh {

class PrefixCode {
  public:
    static constexpr unsigned longestCode = 16;
    static constexpr std::size_t mostSymbols = 512;

    // To make a code: Begin, Add for each symbol that has a code, in their order and with lengths
    // from 1 to longestCode, Finish. Codes may be left over; Finish throws LzhError (DamagedData)
    // when there are more symbols than codes.
    void Begin() {
        addedCount = 0;
        countOf.fill(0);
    }
    void Add(unsigned symbol, unsigned length) {
        added[addedCount++] = {static_cast<std::uint16_t>(symbol),
                               static_cast<std::uint16_t>(length)};
        ++countOf[length];
    }
    void Finish();

    struct Code {
        unsigned symbol;
        unsigned length;
    };

    // The code that the 16 bits begin with, which is known to be no shorter than `shortest`. Throws
    // LzhError (DamagedData) when there is none.
    Code Find(unsigned bits16, unsigned shortest) const;

    // Calls put(symbol, length) for all symbols that have codes of up to `longest` bits, in the
    // order of their codes.
    template <typename Put>
    void ForEach(unsigned longest, Put put) const {
        std::size_t i = 0;
        for (unsigned length = 1; length <= longest; ++length) {
            for (unsigned n = 0; n < countOf[length]; ++n)
                put(sorted[i++], length);
        }
    }

  private:
    void Sort();

    struct Added {
        std::uint16_t symbol;
        std::uint16_t length;
    };

    std::size_t addedCount = 0;
    std::array<Added, mostSymbols> added;
    std::array<std::uint16_t, mostSymbols> sorted;        // symbols in the order of their codes
    std::array<std::uint16_t, longestCode + 1> countOf;   // per length: codes
    std::array<std::uint32_t, longestCode + 1> endOf;     // per length: first 16 bits behind them
    std::array<std::uint16_t, longestCode + 1> sortedEnd; // per length: end of its run in `sorted`
};

} // namespace tamblin::lzh
