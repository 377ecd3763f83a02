// A prefix code ("Huffman code") in canonical form, as the lengths of its codes tell it: codes
// count upwards, short ones first, equal lengths in the order of their symbols.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tamblin::lzh {

class PrefixCode {
  public:
    static constexpr unsigned longestCode = 16;
    static constexpr std::size_t mostSymbols = 512;

    // Lengths are 0 (the symbol has no code) to longestCode. Codes may be left over; throws
    // LzhError (DamagedData) when there are more symbols than codes.
    void SetLengths(std::span<const std::uint8_t> codeLengths);

    struct Code {
        unsigned symbol;
        unsigned length;
    };

    // The code that the 16 bits begin with. Throws LzhError (DamagedData) when there is none.
    Code Find(unsigned bits16) const;

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
    void Sort(std::span<const std::uint8_t> codeLengths);

    std::array<std::uint16_t, longestCode + 1> countOf{}; // per length: codes
    std::array<std::uint32_t, longestCode + 1> endOf{};   // per length: first 16 bits behind them
    std::array<std::uint16_t, longestCode + 1>
        sortedEnd{};                                 // per length: end of its run in `sorted`
    std::array<std::uint16_t, mostSymbols> sorted{}; // symbols in the order of their codes
};

} // namespace tamblin::lzh
