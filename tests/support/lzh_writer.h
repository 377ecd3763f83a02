// Makes LZH archives up, sound ones and others. Everything that a header holds can be set; what is
// not set is as an archiver would have it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

struct LzhExtended {
    unsigned char type = 0;
    std::string data;
};

struct LzhEntry {
    std::string name;   // as stored
    std::string folder; // the extended header 0x02; before the name, behind a "\", in level 0
    std::string bytes;
    std::string method = "-lh5-";
    unsigned level = 2;

    char system = 'M';
    unsigned dosAttributes = 0x20;
    std::uint32_t dosTime = 0x2C65'6B2F; // 2002-03-05 13:25:30, levels 0 and 1
    std::uint32_t unixTime = 1015302330; // 2002-03-05 04:25:30 UTC, levels 2 and 3
    std::vector<LzhExtended> extended;   // levels 1 to 3, behind name and folder
    bool headerCrc = false;              // the extended header 0x00
    std::string area;                    // level 0, behind the checksum of the data
    std::string padding;                 // levels 1 to 3, at the end of the (base) header

    EncoderOptions encoder;
    std::optional<std::string> packed; // instead of what the encoder makes
    std::optional<std::uint32_t> claimedPackedSize;
    std::optional<std::uint32_t> claimedSize;
    std::optional<std::uint16_t> claimedCrc;
    bool withoutCrc = false; // level 0, as the oldest archivers did
};

class LzhWriter {
  public:
    LzhWriter& Add(const LzhEntry& entry);

    // Names in code page 932; folders on the way are separated by "\".
    LzhWriter& AddFile(std::wstring_view path, std::string_view bytes,
                       const std::string& method = "-lh5-", unsigned level = 2);
    LzhWriter& AddFolder(std::wstring_view path, unsigned level = 2);

    std::string Finish() const { return archive + '\0'; }
    std::string WithoutEndMark() const { return archive; }

  private:
    std::string archive;
};

// An entry with its path in code page 932, to be changed before it is added.
LzhEntry MakeEntry(std::wstring_view path, std::string_view bytes, const std::string& method,
                   unsigned level);

// The checksum of archives, bit by bit, so that the reader's tables have something to be compared
// with.
std::uint16_t SlowCrc16(std::string_view bytes, std::uint16_t before = 0);

std::string LittleEndian(std::uint64_t value, unsigned bytes);
std::string Utf16Bytes(std::u16string_view text);

} // namespace tamblin::lzh
