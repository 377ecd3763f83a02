// Copying a match: the bytes `distance` before `to`, which may overlap what is being written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tamblin::lzh {

// A copy may write up to this many bytes more than asked for.
inline constexpr std::size_t copyOverrun = 16;

template <std::size_t wordSize>
inline void CopyByWords(std::uint8_t* to, const std::uint8_t* from, const std::uint8_t* end) {
    do {
        std::memcpy(to, from, wordSize);
        to += wordSize;
        from += wordSize;
    } while (to < end);
}

// A pattern of fewer than eight bytes repeats itself. Its first repetitions are written byte by
// byte, until it can be seen as a longer pattern that whole words can be copied from.
inline void RepeatPattern(std::uint8_t* to, std::size_t distance, const std::uint8_t* end) {
    constexpr std::uint8_t multiples[8] = {0, 8, 8, 9, 8, 10, 12, 14};
    const std::size_t longer = multiples[distance];
    const std::uint8_t* from = to - distance;
    for (std::size_t i = distance; i < longer && to < end; ++i)
        *to++ = *from++;
    if (to < end)
        CopyByWords<8>(to, to - longer, end);
}

// `length` is at least 1.
inline void CopyMatch(std::uint8_t* to, std::size_t distance, std::size_t length) {
    if (distance >= 16)
        CopyByWords<16>(to, to - distance, to + length);
    else if (distance >= 8)
        CopyByWords<8>(to, to - distance, to + length);
    else
        RepeatPattern(to, distance, to + length);
}

} // namespace tamblin::lzh
