// Reads the header of one entry, of any level.
#pragma once

#include <cstdint>
#include <string>

#include "platform/lzh/archive_source.h"
#include "platform/lzh/entry_header.h"

namespace tamblin::lzh {

// Every header has its method and its level at these places, and is at least this long.
inline constexpr std::size_t methodOffset = 2;
inline constexpr std::size_t methodSize = 5;
inline constexpr std::size_t levelOffset = 20;
inline constexpr std::size_t smallestHeader = 22;

// Longer headers are taken for damaged ones.
inline constexpr std::size_t largestHeader = 256 * 1024;

class HeaderParser {
  public:
    explicit HeaderParser(ArchiveSource& archive) : source(archive), archiveSize(archive.Size()) {}

    // Throws LzhError: DamagedHeader; Truncated when the header ends behind the archive. Whether
    // the archive holds the data that the header claims is not looked at.
    EntryHeader Parse(std::uint64_t offset);

    // How many bytes the last header had, as far as it could be read.
    std::size_t BytesParsed() const { return bytes.size(); }

  private:
    void ReadUpTo(std::size_t size);
    bool ReadByBlocks(std::uint64_t offset, char* to, std::size_t size);
    void ReadExactly(std::size_t size);
    void ParseCommonFields();
    std::size_t ParseUpToName();
    void ParseLevel0();
    void ParseLevel1();
    void ParseLevel2();
    void ParseLevel3();
    void ParseLevel0Area(std::size_t begin);
    void CheckSum() const;

    // Follows the chain of extended headers, whose sizes take `sizeBytes` bytes each. `sizeAt` is
    // where the first size stands. Returns where the chain ends.
    std::size_t ParseChain(std::size_t sizeAt, std::size_t sizeBytes, bool growing);
    void CheckCrc() const;

    ArchiveSource& source;
    const std::uint64_t archiveSize;
    std::uint64_t start = 0; // of the header, in the archive
    std::string bytes;       // the header as far as it was read
    std::size_t crcAt = 0;   // where its checksum stands, 0 when it has none
    EntryHeader entry;

    // Extended headers come in pieces of a few bytes, which are not fetched one by one.
    std::string block;
    std::uint64_t blockStart = 0;
};

} // namespace tamblin::lzh
