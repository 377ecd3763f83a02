#include "support/sha256.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace tamblin {
namespace {

using Words = std::array<std::uint32_t, 8>;

// The first 32 bits of the fractional parts of roots of the first primes.
std::uint32_t FractionBits(long double root) {
    return static_cast<std::uint32_t>((root - std::floor(root)) * 4294967296.0L);
}

struct Constants {
    Words start;
    std::array<std::uint32_t, 64> rounds;

    Constants() {
        std::size_t count = 0;
        for (unsigned candidate = 2; count < rounds.size(); ++candidate) {
            if (!IsPrime(candidate))
                continue;
            if (count < start.size())
                start[count] = FractionBits(std::sqrt(static_cast<long double>(candidate)));
            rounds[count++] = FractionBits(std::cbrt(static_cast<long double>(candidate)));
        }
    }

    static bool IsPrime(unsigned number) {
        for (unsigned divisor = 2; divisor * divisor <= number; ++divisor) {
            if (number % divisor == 0)
                return false;
        }
        return true;
    }
};

const Constants constants;

std::array<std::uint32_t, 64> Schedule(std::string_view block) {
    std::array<std::uint32_t, 64> words{};
    for (std::size_t i = 0; i < 64; ++i)
        words[i / 4] = words[i / 4] << 8 | static_cast<unsigned char>(block[i]);
    for (std::size_t i = 16; i < 64; ++i) {
        const std::uint32_t a = words[i - 15];
        const std::uint32_t b = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) +
                   (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    return words;
}

void AddBlock(Words& state, std::string_view block) {
    const auto words = Schedule(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < 64; ++i) {
        const std::uint32_t one = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                  ((e & f) ^ (~e & g)) + constants.rounds[i] + words[i];
        const std::uint32_t two =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + one;
        d = c;
        c = b;
        b = a;
        a = one + two;
    }
    const Words end{a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < 8; ++i)
        state[i] += end[i];
}

} // namespace

std::string Sha256(std::string_view bytes) {
    std::string text(bytes);
    text += '\x80';
    while (text.size() % 64 != 56)
        text += '\0';
    for (int shift = 56; shift >= 0; shift -= 8)
        text += static_cast<char>(static_cast<std::uint64_t>(bytes.size()) * 8 >> shift & 0xFF);

    Words state = constants.start;
    for (std::size_t at = 0; at < text.size(); at += 64)
        AddBlock(state, std::string_view(text).substr(at, 64));

    std::string digits;
    for (const std::uint32_t word : state) {
        for (int shift = 28; shift >= 0; shift -= 4)
            digits += "0123456789abcdef"[word >> shift & 15];
    }
    return digits;
}

} // namespace tamblin
