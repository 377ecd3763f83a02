// An extraction target that only records what would be written.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/lzh/extraction_target.h"

namespace tamblin::lzh {

class TargetFake : public ExtractionTarget {
  public:
    struct File {
        std::string bytes;
        EntryTimes times;
        EntryAttributes attributes;
    };

    std::map<std::wstring, File> files; // finished ones, by path with "\"
    std::set<std::wstring> folders;
    std::set<std::wstring> discarded; // files that were begun and not finished
    std::uint64_t written = 0;        // bytes in all
    // When this many bytes have been written the disk is full.
    std::optional<std::uint64_t> room;

    void MakeFolders(const EntryPath& folder) override;
    std::unique_ptr<TargetFile> NewFile(const EntryPath& file) override;
};

} // namespace tamblin::lzh
