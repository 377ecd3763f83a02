// Copying a match: the bytes `distance` before `to`, which may overlap what is being written.
//
// Most matches are short, and how long the next one is nobody can foresee. So a fixed number of
// words is copied without asking, and a loop is entered only for what goes beyond.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tamblin::lzh {

// A copy may write up to this many bytes more than asked for.
inline constexpr std::size_t copyOverrun = 32;

template <std::size_t wordSize>
inline void CopyWord(std::uint8_t* to, const std::uint8_t* from) {
    std::array<std::uint8_t, wordSize> word;
    std::memcpy(word.data(), from, wordSize);
    std::memcpy(to, word.data(), wordSize);
}

// From at least a word before.
template <std::size_t wordSize>
inline void CopyByWords(std::uint8_t* to, const std::uint8_t* from, const std::uint8_t* end) {
    CopyWord<wordSize>(to, from);
    CopyWord<wordSize>(to + wordSize, from + wordSize);
    while (end - to > static_cast<std::ptrdiff_t>(2 * wordSize)) {
        to += 2 * wordSize;
        from += 2 * wordSize;
        CopyWord<wordSize>(to, from);
        CopyWord<wordSize>(to + wordSize, from + wordSize);
    }
}

// A pattern of fewer than eight bytes: as many repetitions as fit into a word are made by one
// multiplication and written as a whole.
inline void RepeatPattern(std::uint8_t* to, std::size_t distance, const std::uint8_t* end) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::array<std::uint64_t, 8> repetitions = {0,
                                                          0x0101010101010101,
                                                          0x0001000100010001,
                                                          0x0001000001000001,
                                                          0x0000000100000001,
                                                          0x0000010000000001,
                                                          0x0001000000000001,
                                                          0x0100000000000001};
    constexpr std::array<std::uint8_t, 8> wholePatterns = {0, 8, 8, 6, 8, 5, 6, 7};
    std::uint64_t word = 0;
    std::memcpy(&word, to - distance, sizeof word);
    word = (word & ((std::uint64_t{1} << (8 * distance)) - 1)) * repetitions[distance];
    const std::size_t step = wholePatterns[distance];
    do {
        std::memcpy(to, &word, sizeof word);
        std::memcpy(to + step, &word, sizeof word);
        to += 2 * step;
    } while (to < end);
}

// `length` is at least 1.
inline void CopyMatch(std::uint8_t* to, std::size_t distance, std::size_t length) {
    if (distance >= 16) [[likely]]
        CopyByWords<16>(to, to - distance, to + length);
    else if (distance >= 8)
        CopyByWords<8>(to, to - distance, to + length);
    else
        RepeatPattern(to, distance, to + length);
}

} // namespace tamblin::lzh
