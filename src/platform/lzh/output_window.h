// The bytes that a decoder has unpacked last: history to copy from, and what waits to be written.
//
// One stretch of memory holds the history and, behind it, a chunk of new bytes. A decoder writes at
// Next() and onwards, freely, until it stands at Limit() or behind it; then PassOn hands the chunk
// to the sink as it lies there and the chunk's tail becomes the history. Behind the limit there is
// room for one longest match and the overrun of its copy. Bytes beyond the entry's size are
// dropped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/lzh/byte_sink.h"

namespace tamblin::lzh {

class OutputWindow {
  public:
    // Bytes that may be written, or scribbled on, from Limit() on.
    static constexpr std::size_t slack = 1024;

    // Begins an entry of `size` bytes. `historySize` bytes of `fill` stand before its first byte.
    void Start(std::size_t historySize, std::uint8_t fill, std::uint64_t size, ByteSink& byteSink);

    // The history, for a method that begins with a certain one. To be filled before the first byte.
    std::uint8_t* History() {
        filledSize = 0;
        return memory.get();
    }

    std::uint8_t* Next() const { return next; }
    std::uint8_t* Limit() const { return limit; }
    bool Complete() const { return remaining == 0; }

    // All below `end` is unpacked. Afterwards Next() stands below Limit() again, unless the entry
    // is complete.
    void PassOn(std::uint8_t* end);

  private:
    void Reserve(std::size_t size);
    void FillHistory(std::uint8_t fill);
    void SetLimit();

    std::unique_ptr<std::uint8_t[]> memory;
    std::size_t memorySize = 0;
    std::size_t history = 0;
    std::size_t chunk = 0;
    std::uint8_t* next = nullptr;
    std::uint8_t* limit = nullptr;
    std::uint64_t remaining = 0; // bytes of the entry from `next` on
    ByteSink* sink = nullptr;

    // The history as it was filled last, while nothing else has been written into it: small entries
    // leave it as it is for the next one.
    std::size_t filledSize = 0;
    std::uint8_t filledWith = 0;
};

} // namespace tamblin::lzh
