// The packed data of one entry, read through a buffer of constant size.
//
// Between `Begin` and `End` stand bytes that have been read and not used. Up to `slack` bytes
// behind `End` may be looked at as well, and used up before the next Renew; behind the last byte of
// the entry they are zero. So a decoder looks ahead without asking. That it used up bytes that the
// entry does not have comes out in Renew and Finish, which throw LzhError (Truncated).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/lzh/archive_source.h"

namespace tamblin::lzh {

class PackedInput {
  public:
    static constexpr std::size_t slack = 64;

    explicit PackedInput(ArchiveSource& archive);

    // Turns to another part of the archive.
    void Open(std::uint64_t offset, std::uint64_t size);

    const std::uint8_t* Begin() const { return begin; }
    const std::uint8_t* End() const { return end; }

    // The bytes below `used` are used up. Brings in more unless there are none: then Begin() is
    // `used`, and End() the end of the entry.
    void Renew(const std::uint8_t* used);

    // The entry is unpacked, and the bytes below `used` were needed for it.
    void Finish(const std::uint8_t* used);

    // How far in the archive the unread bytes begin.
    std::uint64_t Position() const { return next; }

  private:
    void Fill(std::size_t kept);

    ArchiveSource& source;
    std::unique_ptr<std::uint8_t[]> buffer;
    const std::uint8_t* begin;
    const std::uint8_t* end;     // what lies behind may be looked at
    const std::uint8_t* dataEnd; // what lies behind is no data
    std::uint64_t next = 0;      // offset in the archive of what is read next
    std::uint64_t unread = 0;    // bytes of the entry from `next` on
};

} // namespace tamblin::lzh
