// The real archive reader over any FileSystem: unpacks real archives into a drive in memory.
#pragma once

#include "platform/file_system.h"
#include "platform/lzh/extractor.h"
#include "platform/unlha.h"

namespace tamblin {

class MemoryUnlha : public Unlha {
  public:
    explicit MemoryUnlha(FileSystem& fileSystem) : files(fileSystem) {}

    std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                     unsigned outputSize) override;

    lzh::ExtractionResult lastResult;

  private:
    lzh::ExtractionResult Extract(const std::wstring& command);

    FileSystem& files;
};

} // namespace tamblin
