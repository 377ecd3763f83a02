// Reads packed data bit by bit, the highest bit of each byte first.
//
// The next bits of the data stand left-aligned in a 64-bit word. After Refill at least 56 of them
// are valid; a decoder may take that many before it has to refill again. Bits that are valid stay
// as they are in a refill, so what they say may be looked up before it. Refilling never asks
// whether the data has ended: it reads up to 8 bytes behind what it needs, which the slack of the
// input allows, and bits behind the end are zero. Check, which has to be called every few dozen
// bytes, brings in more data and finds out whether a decoder has used bits that are not there.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/lzh/packed_input.h"

namespace tamblin::lzh {

class BitReader {
  public:
    // Bits that can be used between two calls of Check.
    static constexpr unsigned bitsPerCheck = (PackedInput::slack - 16) * 8;

    explicit BitReader(PackedInput& packedInput)
        : input(&packedInput), next(packedInput.Begin()), checkpoint(Checkpoint()) {}

    // Member by member: so the compiler keeps a loop's own copy in registers. To itself it does no
    // harm.
    BitReader(const BitReader& other)
        : input(other.input),
          next(other.next),
          checkpoint(other.checkpoint),
          bits(other.bits),
          count(other.count) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    BitReader& operator=(const BitReader& other) {
        input = other.input;
        next = other.next;
        checkpoint = other.checkpoint;
        bits = other.bits;
        count = other.count;
        return *this;
    }

    void Refill() {
        std::uint64_t word;
        std::memcpy(&word, next, sizeof word);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap64(word);
        bits |= word >> Count();
        next += 7 - Count() / 8;
        count |= 56;
    }

    // The next `n` bits as a number; 1 to 32, and no more than are valid.
    unsigned Peek(unsigned n) const { return static_cast<unsigned>(bits >> (64 - n)); }
    std::uint64_t Bits() const { return bits; }

    // Of `n` only the lowest six bits count, so that a table's entry can be given as it is.
    void Skip(unsigned n) {
        bits <<= n & 63;
        count -= n;
    }

    // Peek and Skip in one, `n` may be 0.
    unsigned Take(unsigned n) {
        const auto value = static_cast<unsigned>(bits >> 1 >> (63 - n));
        Skip(n);
        return value;
    }

    // Refill, Take: for what is read rarely.
    unsigned Get(unsigned n) {
        Check();
        Refill();
        return Take(n);
    }

    bool NeedsCheck() const { return next >= checkpoint; }

    void Check() {
        if (NeedsCheck()) [[unlikely]]
            Renew();
    }

    // To be called when the entry is complete.
    void Finish() { input->Finish(FirstUnused()); }

  private:
    // Valid bits. What Skip was given leaves its traces above them in `count`.
    unsigned Count() const { return count & 63; }

    const std::uint8_t* FirstUnused() const { return next - Count() / 8; }

    // Below it, bitsPerCheck bits can be used without leaving the slack.
    const std::uint8_t* Checkpoint() const { return input->End(); }

    void Renew() {
        const std::uint8_t* unused = FirstUnused();
        input->Renew(unused);
        next = input->Begin() + (next - unused);
        checkpoint = Checkpoint();
    }

    PackedInput* input;
    const std::uint8_t* next;
    const std::uint8_t* checkpoint;
    std::uint64_t bits = 0;
    unsigned count = 0;
};

} // namespace tamblin::lzh
