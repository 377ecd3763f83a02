// The bytes of an archive, wherever they are kept.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tamblin::lzh {

class ArchiveSource {
  public:
    virtual ~ArchiveSource() = default;

    virtual std::uint64_t Size() = 0;

    // Reads up to `size` bytes from `offset` on; fewer only where the archive ends. Throws LzhError
    // (CannotReadArchive) when the medium fails.
    virtual std::size_t Read(std::uint64_t offset, void* buffer, std::size_t size) = 0;
};

} // namespace tamblin::lzh
