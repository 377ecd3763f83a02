// Walks through the entries of an archive: finds the first one, behind leading bytes if need be,
// and tells the end of the archive from damage.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/lzh/archive_source.h"
#include "platform/lzh/entry_header.h"
#include "platform/lzh/header_parser.h"

namespace tamblin::lzh {

class EntryList {
  public:
    explicit EntryList(ArchiveSource& archive) : source(archive), parser(archive) {}

    // The next entry, or nothing behind the last one; an entry that does not fit into the archive
    // is the last. Throws LzhError: NotAnArchive when there is not a single entry, and as
    // HeaderParser does.
    std::optional<EntryHeader> Next();

    // Where in the archive the header stands that is read next, or could not be read.
    std::uint64_t Offset() const { return offset; }

  private:
    EntryHeader First();
    std::optional<EntryHeader> Search(std::uint64_t from);
    bool IsHeaderAt(std::uint64_t place, std::string_view bytes);
    std::optional<EntryHeader> Faultless(std::uint64_t place);
    bool IsEnd();
    EntryHeader Take(EntryHeader entry);

    ArchiveSource& source;
    HeaderParser parser;
    bool started = false;
    std::uint64_t offset = 0; // where the next header is expected
};

} // namespace tamblin::lzh
