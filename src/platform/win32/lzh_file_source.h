// An archive in a file. Small pieces are read ahead, many at once: for small entries, asking the
// system for bytes takes longer than unpacking them.
#pragma once

#include <string>
#include <vector>

#include "platform/lzh/archive_source.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {

class LzhFileSource : public lzh::ArchiveSource {
  public:
    // Throws LzhError (CannotOpenArchive), and RunTimeError 52 when the path is malformed.
    explicit LzhFileSource(const std::wstring& path);

    std::uint64_t Size() override { return size; }
    std::size_t Read(std::uint64_t offset, void* buffer, std::size_t wanted) override;

  private:
    std::size_t ReadDirectly(std::uint64_t offset, char* to, std::size_t wanted);

    UniqueHandle file;
    std::uint64_t size = 0;
    std::vector<char> ahead;
    std::size_t aheadFill = 0; // bytes in `ahead` that have been read
    std::uint64_t aheadOffset = 0;
};

} // namespace tamblin
