#include "platform/lzh/header_parser.h"

#include <algorithm>
#include <cstring>

#include "platform/lzh/crc16.h"
#include "platform/lzh/extended_header.h"
#include "platform/lzh/header_fields.h"

namespace tamblin::lzh {
namespace {

constexpr std::size_t readAtOnce = 4096;

[[noreturn]] void ThrowDamagedHeader() {
    throw LzhError(LzhFailure::DamagedHeader);
}

} // namespace

EntryHeader HeaderParser::Parse(std::uint64_t offset) {
    start = offset;
    bytes.clear();
    crcAt = 0;
    entry = {};
    ReadUpTo(smallestHeader);
    ParseCommonFields();
    switch (HeaderFields(bytes).U8(levelOffset)) {
        case 0:
            ParseLevel0();
            break;
        case 1:
            ParseLevel1();
            break;
        case 2:
            ParseLevel2();
            break;
        case 3:
            ParseLevel3();
            break;
        default:
            ThrowDamagedHeader();
    }
    CheckCrc();
    entry.dataOffset = start + bytes.size();
    return entry;
}

// Reads the header's bytes up to `size`.
void HeaderParser::ReadUpTo(std::size_t size) {
    if (size > largestHeader)
        ThrowDamagedHeader();
    const std::size_t had = bytes.size();
    if (size <= had)
        return;
    if (size > archiveSize - start)
        throw LzhError(LzhFailure::Truncated);
    bytes.resize(size);
    if (!ReadByBlocks(start + had, bytes.data() + had, size - had))
        throw LzhError(LzhFailure::Truncated);
}

// False when the archive ends before.
bool HeaderParser::ReadByBlocks(std::uint64_t offset, char* to, std::size_t size) {
    while (size > 0) {
        if (offset < blockStart || offset >= blockStart + block.size()) {
            block.resize(readAtOnce);
            blockStart = offset;
            block.resize(source.Read(offset, block.data(), readAtOnce));
            if (block.empty())
                return false;
        }
        const auto at = static_cast<std::size_t>(offset - blockStart);
        const std::size_t piece = std::min(size, block.size() - at);
        std::memcpy(to, block.data() + at, piece);
        offset += piece;
        to += piece;
        size -= piece;
    }
    return true;
}

// Reads up to the size that the header says it has.
void HeaderParser::ReadExactly(std::size_t size) {
    if (size < bytes.size())
        ThrowDamagedHeader();
    ReadUpTo(size);
}

void HeaderParser::ParseCommonFields() {
    const HeaderFields fields(bytes);
    entry.method = fields.Bytes(methodOffset, methodSize);
    entry.packedSize = fields.U32(7);
    entry.originalSize = fields.U32(11);
}

// Levels 0 and 1: one byte of size, one byte of sum.
void HeaderParser::CheckSum() const {
    unsigned sum = 0;
    for (std::size_t i = 2; i < bytes.size(); ++i)
        sum += static_cast<std::uint8_t>(bytes[i]);
    if ((sum & 0xFF) != static_cast<std::uint8_t>(bytes[1]))
        ThrowDamagedHeader();
}

// What levels 0 and 1 have in common. Returns where the name ends and the checksum begins.
std::size_t HeaderParser::ParseUpToName() {
    ReadExactly(2u + static_cast<std::uint8_t>(bytes[0]));
    CheckSum();
    const HeaderFields fields(bytes);
    if (const std::uint32_t time = fields.U32(15); time != 0)
        entry.times.modifiedLocal = time;
    entry.attributes = FromDosAttributes(fields.U8(19));
    const std::size_t nameSize = fields.U8(21);
    entry.name = fields.Bytes(22, nameSize);
    return 22 + nameSize;
}

void HeaderParser::ParseLevel0() {
    const std::size_t crcOffset = ParseUpToName();
    // One system keeps a comment behind a zero there, and does not say which it is.
    entry.name.resize(std::min(entry.name.find('\0'), entry.name.size()));
    const HeaderFields fields(bytes);
    if (crcOffset + 2 <= fields.Size()) {
        entry.crc = fields.U16(crcOffset);
        ParseLevel0Area(crcOffset + 2);
    }
}

// Some systems left things of their own behind the checksum.
void HeaderParser::ParseLevel0Area(std::size_t begin) {
    const HeaderFields fields(bytes);
    if (begin >= fields.Size())
        return;
    entry.system = static_cast<char>(fields.U8(begin));
    if (entry.system == 'U' && begin + 8 <= fields.Size()) {
        entry.times.modified = FromUnixTime(fields.U32(begin + 2));
        entry.times.modifiedLocal.reset();
        entry.unixMode = fields.U16(begin + 6);
    }
}

void HeaderParser::ParseLevel1() {
    const std::size_t crcOffset = ParseUpToName();
    const HeaderFields fields(bytes);
    entry.crc = fields.U16(crcOffset);
    entry.system = static_cast<char>(fields.U8(crcOffset + 2));
    const std::size_t baseSize = fields.Size();
    if (baseSize < crcOffset + 5)
        ThrowDamagedHeader();

    // What the base header calls the packed size counts the extended headers as well.
    const std::uint64_t skipSize = entry.packedSize;
    const std::size_t chainSize = ParseChain(baseSize - 2, 2, true) - baseSize;
    if (entry.packedSize == skipSize) {
        if (chainSize > skipSize)
            ThrowDamagedHeader();
        entry.packedSize -= chainSize;
    }
}

void HeaderParser::ParseLevel2() {
    const std::size_t size = HeaderFields(bytes).U16(0);
    ReadExactly(size);
    const HeaderFields fields(bytes);
    entry.times.modified = FromUnixTime(fields.U32(15));
    entry.crc = fields.U16(21);
    entry.system = static_cast<char>(fields.U8(23));
    // The archiver of one system forgot to count the two bytes that end the chain.
    const bool mayBeShort = entry.system == 'K';
    if (mayBeShort && size + 2 <= archiveSize - start)
        ReadUpTo(size + 2);
    const std::size_t chainEnd = ParseChain(24, 2, false);
    if (chainEnd <= size)
        bytes.resize(size);
}

void HeaderParser::ParseLevel3() {
    if (HeaderFields(bytes).U16(0) != 4)
        ThrowDamagedHeader();
    ReadUpTo(32);
    ReadExactly(HeaderFields(bytes).U32(24));
    const HeaderFields fields(bytes);
    entry.times.modified = FromUnixTime(fields.U32(15));
    entry.crc = fields.U16(21);
    entry.system = static_cast<char>(fields.U8(23));
    ParseChain(28, 4, false);
}

std::size_t HeaderParser::ParseChain(std::size_t sizeAt, std::size_t sizeBytes, bool growing) {
    const auto sizeField = [&](std::size_t at) -> std::size_t {
        const HeaderFields fields(bytes);
        return sizeBytes == 2 ? fields.U16(at) : fields.U32(at);
    };
    const std::size_t smallest = 1 + sizeBytes;
    std::size_t at = sizeAt + sizeBytes;
    for (std::size_t size = sizeField(sizeAt); size != 0; size = sizeField(at - sizeBytes)) {
        if (size < smallest || size > largestHeader)
            ThrowDamagedHeader();
        if (growing)
            ReadUpTo(at + size);
        const HeaderFields fields(bytes);
        const auto type = static_cast<ExtendedHeaderType>(fields.U8(at));
        const std::string_view data = fields.Bytes(at + 1, size - smallest);
        if (type == ExtendedHeaderType::Common && data.size() >= 2)
            crcAt = at + 1;
        else
            ApplyExtendedHeader(type, data, entry);
        at += size;
    }
    return at;
}

void HeaderParser::CheckCrc() const {
    if (crcAt == 0)
        return;
    const std::uint16_t expected = HeaderFields(bytes).U16(crcAt);
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    constexpr std::uint8_t zeros[2] = {0, 0}; // the checksum counts its own place as these
    std::uint16_t crc = Crc16(0, data, crcAt);
    crc = Crc16(crc, zeros, 2);
    crc = Crc16(crc, data + crcAt + 2, bytes.size() - crcAt - 2);
    if (crc != expected)
        ThrowDamagedHeader();
}

} // namespace tamblin::lzh
