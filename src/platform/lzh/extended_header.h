// The extended headers of an entry: pieces of information, each with a type of one byte.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/lzh/entry_header.h"

namespace tamblin::lzh {

enum class ExtendedHeaderType : std::uint8_t {
    Common = 0x00, // checksum of all headers of the entry
    Name = 0x01,
    Folder = 0x02,
    DosAttributes = 0x40,
    WindowsTimes = 0x41,
    LargeSizes = 0x42,
    UnicodeName = 0x44,
    UnicodeFolder = 0x45,
    CodePage = 0x46,
    UnixMode = 0x50,
    UnixTime = 0x54,
};

// Takes over what an extended header says. Types that say nothing to us (comments, owners) are
// passed over. Throws LzhError (DamagedHeader) when the data is too short for its type.
void ApplyExtendedHeader(ExtendedHeaderType type, std::string_view data, EntryHeader& entry);

EntryAttributes FromDosAttributes(unsigned attributes);
std::uint64_t FromUnixTime(std::uint32_t seconds);

} // namespace tamblin::lzh
