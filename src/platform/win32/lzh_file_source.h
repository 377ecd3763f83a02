// An archive in a file.
#pragma once

#include <string>

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
    UniqueHandle file;
    std::uint64_t size = 0;
};

} // namespace tamblin
