// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/lzh/byte_sink.h"
#include "platform/lzh/lzh_error.h"
#include "support/lzh_memory_source.h"

namespace tamblin::lzh {

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// A finding, unlike a failure, which every input may be.
inline void Demand(bool condition) {
    if (!condition)
        std::abort();
}

// Takes so many bytes and no more: a few packed ones can stand for gigabytes.
class LimitedSink : public ByteSink {
  public:
    static constexpr std::uint64_t limit = 300'000;

    void Write(const std::uint8_t* bytes, std::size_t size) override {
        for (std::size_t i = 0; i < size; i += 64)
            sum = sum * 31 + bytes[i]; // looks at what it is given
        written += size;
        if (written > limit)
            throw LzhError(LzhFailure::DiskFull);
    }

    std::uint64_t written = 0;
    unsigned sum = 0;
};

} // namespace tamblin::lzh
