// Files that a Macintosh archiver wrapped up: a header of 128 bytes, the data fork, the resource
// fork. Only the data fork is a file elsewhere.
#pragma once

#include <array>
#include <cstdint>

#include "platform/lzh/byte_sink.h"
#include "platform/lzh/entry_header.h"

namespace tamblin::lzh {

// Passes bytes on to another sink, only the data fork where they turn out to be such a file.
class MacBinaryFilter : public ByteSink {
  public:
    MacBinaryFilter(const EntryHeader& entryHeader, ByteSink& byteSink)
        : entry(entryHeader), sink(byteSink) {}

    void Write(const std::uint8_t* bytes, std::size_t size) override;

    // To be called behind the last byte.
    void Finish();

  private:
    static constexpr std::size_t headerSize = 128;

    void Decide();
    bool IsWrapped() const;
    std::uint32_t ForkSize(std::size_t offset) const;

    const EntryHeader& entry;
    ByteSink& sink;
    std::array<std::uint8_t, headerSize> header{};
    std::size_t headerFill = 0;
    bool decided = false;
    std::uint64_t left = 0; // bytes that are still to be passed on
};

// Whether an entry may be wrapped, as far as its header tells.
bool MayBeMacBinary(const EntryHeader& entry);

} // namespace tamblin::lzh
