// What an archive says about one of its entries.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/lzh/extraction_target.h"

namespace tamblin::lzh {

struct EntryHeader {
    std::string method; // "-lh5-"
    std::uint64_t packedSize = 0;
    std::uint64_t originalSize = 0;
    std::uint64_t dataOffset = 0;     // in the archive
    std::optional<std::uint16_t> crc; // of the unpacked data; the oldest headers have none

    char system = 0; // the system it was packed on: 'M' MS-DOS, 'U' Unix, 'm' Macintosh, 0 unknown
    std::uint16_t unixMode = 0;
    EntryAttributes attributes;
    EntryTimes times;

    // Name and folder as they are stored. Where there is a Unicode form, it counts.
    std::string name;
    std::string folder;
    std::optional<std::u16string> unicodeName;
    std::optional<std::u16string> unicodeFolder;
    unsigned codePage = 932;

    // Whether an archive of this size holds all of the entry's data.
    bool FitsInto(std::uint64_t archiveSize) const {
        return dataOffset <= archiveSize && packedSize <= archiveSize - dataOffset;
    }
    bool IsFolder() const { return method == "-lhd-"; }
    bool IsLink() const { return (unixMode & 0xF000) == 0xA000; }
};

} // namespace tamblin::lzh
