#include "platform/lzh/larc_decoder.h"

#include <cstring>

#include "platform/lzh/bit_reader.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

// The ring's places count from this far before its end for the first byte unpacked.
constexpr unsigned lzsRing = 2048;
constexpr unsigned lzsLead = 17;
constexpr unsigned lz5Ring = 4096;
constexpr unsigned lz5Lead = 18;

// How far back a place of the ring lies when the next byte belongs to `here`.
unsigned Distance(unsigned here, unsigned place, unsigned ring) {
    return ((here - place - 1) & (ring - 1)) + 1;
}

// What stands in the ring of -lz5- at first, from place 0 on: thirteen of each byte value, all
// values up and down, zeros, blanks; the last 18 places are zero.
void FillLz5History(std::uint8_t* history) {
    std::uint8_t* at = history;
    // The place of the first unpacked byte is 18 before the ring's end, and those 18 are the
    // oldest bytes.
    std::memset(at, 0, lz5Lead);
    at += lz5Lead;
    for (unsigned value = 0; value < 256; ++value, at += 13)
        std::memset(at, static_cast<int>(value), 13);
    for (unsigned value = 0; value < 256; ++value)
        *at++ = static_cast<std::uint8_t>(value);
    for (unsigned value = 0; value < 256; ++value)
        *at++ = static_cast<std::uint8_t>(255 - value);
    std::memset(at, 0, 128);
    at += 128;
    std::memset(at, ' ', 128 - lz5Lead);
}

} // namespace

void LzsDecoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    BitReader reader(input);
    window.Start(lzsRing, ' ', size, sink);
    unsigned place = lzsRing - lzsLead;
    while (!window.Complete()) {
        std::uint8_t* out = window.Next();
        while (out < window.Limit()) {
            reader.Check();
            reader.Refill();
            if (reader.Take(1) != 0) {
                *out++ = static_cast<std::uint8_t>(reader.Take(8));
                ++place;
            } else {
                const unsigned distance = Distance(place, reader.Take(11), lzsRing);
                const unsigned length = reader.Take(4) + 2;
                CopyMatch(out, distance, length);
                out += length;
                place += length;
            }
        }
        window.PassOn(out);
    }
    reader.Finish();
}

void Lz5Decoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    window.Start(lz5Ring, 0, size, sink);
    FillLz5History(window.History());
    unsigned place = lz5Ring - lz5Lead;
    const std::uint8_t* in = input.Begin();
    unsigned flags = 1; // above a 1 that marks the end of the group
    while (!window.Complete()) {
        std::uint8_t* out = window.Next();
        while (out < window.Limit()) {
            if (flags == 1) {
                if (in >= input.End()) {
                    input.Renew(in);
                    in = input.Begin();
                }
                flags = *in++ | 0x100u;
            }
            if ((flags & 1) != 0) {
                *out++ = *in++;
                ++place;
            } else {
                const unsigned matchPlace = in[0] | (in[1] & 0xF0u) << 4;
                const unsigned length = (in[1] & 0x0Fu) + 3;
                in += 2;
                CopyMatch(out, Distance(place, matchPlace, lz5Ring), length);
                out += length;
                place += length;
            }
            flags >>= 1;
        }
        window.PassOn(out);
    }
    input.Finish(in);
}

} // namespace tamblin::lzh
