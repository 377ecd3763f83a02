// An archive in memory.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/lzh/archive_source.h"

namespace tamblin::lzh {

// Over bytes that stay where they are.
class MemoryView : public ArchiveSource {
  public:
    explicit MemoryView(std::string_view archiveBytes) : bytes(archiveBytes) {}

    std::uint64_t Size() override { return bytes.size(); }

    std::size_t Read(std::uint64_t offset, void* buffer, std::size_t size) override {
        if (offset >= bytes.size())
            return 0;
        const std::size_t got = std::min<std::size_t>(size, bytes.size() - offset);
        std::memcpy(buffer, bytes.data() + offset, got);
        return got;
    }

  private:
    std::string_view bytes;
};

// Keeps the bytes.
class MemorySource : public ArchiveSource {
  public:
    explicit MemorySource(std::string archiveBytes) : bytes(std::move(archiveBytes)) {}

    std::uint64_t Size() override { return bytes.size(); }
    std::size_t Read(std::uint64_t offset, void* buffer, std::size_t size) override {
        return MemoryView(bytes).Read(offset, buffer, size);
    }

  private:
    std::string bytes;
};

} // namespace tamblin::lzh
