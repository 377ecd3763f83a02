#include "platform/lzh/extended_header.h"

#include <string>

#include "platform/lzh/header_fields.h"

namespace tamblin::lzh {
namespace {

std::u16string Utf16(std::string_view data) {
    const HeaderFields fields(data);
    std::u16string text;
    for (std::size_t i = 0; i + 1 < data.size(); i += 2)
        text += static_cast<char16_t>(fields.U16(i));
    return text;
}

void ApplyWindowsTimes(const HeaderFields& fields, EntryTimes& times) {
    const auto known = [&](std::size_t offset) -> std::optional<std::uint64_t> {
        const std::uint64_t time = fields.U64(offset);
        return time == 0 ? std::nullopt : std::optional(time);
    };
    times.created = known(0);
    times.accessed = known(16);
    if (const auto modified = known(8)) {
        times.modified = modified;
        times.modifiedLocal.reset();
    }
}

void ApplyUnixTime(std::uint32_t seconds, EntryTimes& times) {
    times.modified = FromUnixTime(seconds);
    times.modifiedLocal.reset();
}

} // namespace

EntryAttributes FromDosAttributes(unsigned attributes) {
    return {.readOnly = (attributes & 0x01) != 0,
            .hidden = (attributes & 0x02) != 0,
            .system = (attributes & 0x04) != 0};
}

std::uint64_t FromUnixTime(std::uint32_t seconds) {
    constexpr std::uint64_t from1601To1970 = 11'644'473'600;
    return (seconds + from1601To1970) * 10'000'000;
}

void ApplyExtendedHeader(ExtendedHeaderType type, std::string_view data, EntryHeader& entry) {
    const HeaderFields fields(data);
    switch (type) {
        case ExtendedHeaderType::Name:
            entry.name = data;
            break;
        case ExtendedHeaderType::Folder:
            entry.folder = data;
            break;
        case ExtendedHeaderType::DosAttributes:
            entry.attributes = FromDosAttributes(fields.U16(0));
            break;
        case ExtendedHeaderType::WindowsTimes:
            ApplyWindowsTimes(fields, entry.times);
            break;
        case ExtendedHeaderType::LargeSizes:
            entry.packedSize = fields.U64(0);
            entry.originalSize = fields.U64(8);
            break;
        case ExtendedHeaderType::UnicodeName:
            entry.unicodeName = Utf16(data);
            break;
        case ExtendedHeaderType::UnicodeFolder:
            entry.unicodeFolder = Utf16(data);
            break;
        case ExtendedHeaderType::CodePage:
            entry.codePage = fields.U32(0);
            break;
        case ExtendedHeaderType::UnixMode:
            entry.unixMode = fields.U16(0);
            break;
        case ExtendedHeaderType::UnixTime:
            // Windows' times are finer and stand first where there are both.
            if (!entry.times.created)
                ApplyUnixTime(fields.U32(0), entry.times);
            break;
        case ExtendedHeaderType::Common: // checked by the header reader
        default:
            break;
    }
}

} // namespace tamblin::lzh
