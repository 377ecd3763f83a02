// An archive in a file.
#pragma once

#include <string>

#include "platform/lzh/archive_source.h"

namespace tamblin {

class LzhFileSource : public lzh::ArchiveSource {
  public:
    // Throws LzhError (CannotOpenArchive).
    explicit LzhFileSource(const std::string& path);
    ~LzhFileSource() override;
    LzhFileSource(const LzhFileSource&) = delete;
    LzhFileSource& operator=(const LzhFileSource&) = delete;

    std::uint64_t Size() override { return size; }
    std::size_t Read(std::uint64_t offset, void* buffer, std::size_t wanted) override;

  private:
    int file;
    std::uint64_t size = 0;
};

} // namespace tamblin
