// Fuzzing one decoder: the input is packed data, behind four bytes that say how much to unpack.
// Most often that is little, so that many inputs are tried.
#pragma once

#include <cstring>
#include <string>

#include "fuzz_support.h"
#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

inline void FuzzDecoder(const std::string& method, const std::uint8_t* data, std::size_t size) {
    std::uint32_t wanted = 0;
    if (size < sizeof wanted)
        return;
    std::memcpy(&wanted, data, sizeof wanted);
    if (wanted % 16 != 0)
        wanted %= 4096;
    MemoryView archive(AsText(data, size));
    PackedInput input(archive);
    LimitedSink sink;
    // Kept, as an archive's entries share them. Making them anew takes most of the time.
    static Decoders decoders;
    try {
        input.Open(sizeof wanted, size - sizeof wanted);
        decoders.Find(method)->Decode(input, wanted, sink);
        Demand(sink.written == wanted);
    } catch (const LzhError&) {
        Demand(sink.written <= wanted);
    }
}

} // namespace tamblin::lzh
