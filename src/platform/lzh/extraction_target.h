// Where an archive is unpacked to: a folder that the entries cannot leave.
//
// The reader hands over only names that it has checked (see entry_path.h). A target's own duty is
// what only the file system knows: it must not follow a link that stands in the folder already.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/lzh/byte_sink.h"

namespace tamblin::lzh {

// Path below the target folder, one element per component. Never empty.
using EntryPath = std::vector<std::wstring>;

// Moments in 100 ns since 1601-01-01 UTC. Only what the archive tells is set.
struct EntryTimes {
    std::optional<std::uint64_t> created;
    std::optional<std::uint64_t> modified;
    std::optional<std::uint64_t> accessed;
    // Set instead of `modified` when the archive holds a wall-clock time without a zone, in the
    // packed form of MS-DOS: date in the upper, time in the lower 16 bits.
    std::optional<std::uint32_t> modifiedLocal;
};

struct EntryAttributes {
    bool readOnly = false;
    bool hidden = false;
    bool system = false;

    bool operator==(const EntryAttributes&) const = default;
};

// A file that is being unpacked. Unless Finish was called, its end takes the file away again.
class TargetFile : public ByteSink {
  public:
    virtual void Finish(const EntryTimes& times, EntryAttributes attributes) = 0;
};

// Every failure is an LzhError (CannotWrite, DiskFull, LinkInTheWay) or a RunTimeError.
class ExtractionTarget {
  public:
    virtual ~ExtractionTarget() = default;

    // Makes the folder and those above it, as far as they are missing.
    virtual void MakeFolders(const EntryPath& folder) = 0;

    // Starts a new, empty file and makes the folders above it as far as they are missing. A file
    // that stands there gives way, whatever its attributes.
    virtual std::unique_ptr<TargetFile> NewFile(const EntryPath& file) = 0;
};

} // namespace tamblin::lzh
