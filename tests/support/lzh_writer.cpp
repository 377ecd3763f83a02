#include "support/lzh_writer.h"

#include "support/native_ansi_code_page.h"

namespace tamblin::lzh {
namespace {

struct Content {
    std::string packed;
    std::uint32_t packedSize;
    std::uint32_t size;
    std::uint16_t crc;
};

Content MakeContent(const LzhEntry& entry) {
    Content content;
    if (entry.packed)
        content.packed = *entry.packed;
    else if (entry.method != "-lhd-")
        content.packed = Encode(entry.method, entry.bytes, entry.encoder);
    content.packedSize =
        entry.claimedPackedSize.value_or(static_cast<std::uint32_t>(content.packed.size()));
    content.size = entry.claimedSize.value_or(static_cast<std::uint32_t>(entry.bytes.size()));
    content.crc = entry.claimedCrc.value_or(SlowCrc16(entry.bytes));
    return content;
}

// From the method to the level, alike in all levels.
std::string MiddleOfHeader(const LzhEntry& entry, std::uint32_t packedSize, std::uint32_t size) {
    const bool isOld = entry.level < 2;
    return entry.method + LittleEndian(packedSize, 4) + LittleEndian(size, 4) +
           LittleEndian(isOld ? entry.dosTime : entry.unixTime, 4) +
           static_cast<char>(entry.dosAttributes) + static_cast<char>(entry.level);
}

std::string WithSizeAndSum(const std::string& rest) {
    unsigned sum = 0;
    for (const char byte : rest)
        sum += static_cast<unsigned char>(byte);
    return LittleEndian(rest.size(), 1) + LittleEndian(sum, 1) + rest;
}

struct Chain {
    std::string bytes;     // begins with the first size
    std::size_t crcAt = 0; // in `bytes`; 0 when there is no checksum
};

Chain MakeChain(const LzhEntry& entry, unsigned sizeBytes, bool nameToo) {
    std::vector<LzhExtended> all;
    if (entry.headerCrc)
        all.push_back({0x00, std::string(2, '\0')});
    if (nameToo)
        all.push_back({0x01, entry.name});
    if (!entry.folder.empty())
        all.push_back({0x02, entry.folder});
    all.insert(all.end(), entry.extended.begin(), entry.extended.end());

    Chain chain;
    for (const LzhExtended& extended : all) {
        chain.bytes += LittleEndian(1 + extended.data.size() + sizeBytes, sizeBytes);
        chain.bytes += static_cast<char>(extended.type);
        if (extended.type == 0x00 && chain.crcAt == 0 && entry.headerCrc)
            chain.crcAt = chain.bytes.size();
        chain.bytes += extended.data;
    }
    chain.bytes += std::string(sizeBytes, '\0');
    return chain;
}

void SetCrc(std::string& header, std::size_t at) {
    header.replace(at, 2, LittleEndian(SlowCrc16(header), 2));
}

std::string Level0(const LzhEntry& entry, const Content& content) {
    const std::string name = entry.folder.empty() ? entry.name : entry.folder + '\\' + entry.name;
    std::string rest = MiddleOfHeader(entry, content.packedSize, content.size) +
                       LittleEndian(name.size(), 1) + name;
    if (!entry.withoutCrc)
        rest += LittleEndian(content.crc, 2) + entry.area;
    return WithSizeAndSum(rest);
}

std::string Level1(const LzhEntry& entry, const Content& content) {
    const Chain chain = MakeChain(entry, 2, false);
    const auto chainSize = static_cast<std::uint32_t>(chain.bytes.size() - 2);
    const std::string rest = MiddleOfHeader(entry, content.packedSize + chainSize, content.size) +
                             LittleEndian(entry.name.size(), 1) + entry.name +
                             LittleEndian(content.crc, 2) + entry.system + entry.padding +
                             chain.bytes.substr(0, 2);
    std::string header = WithSizeAndSum(rest);
    const std::size_t chainAt = header.size() - 2;
    header += chain.bytes.substr(2);
    if (chain.crcAt > 0)
        SetCrc(header, chainAt + chain.crcAt);
    return header;
}

std::string Level2(const LzhEntry& entry, const Content& content) {
    const Chain chain = MakeChain(entry, 2, !entry.name.empty());
    const std::string rest = MiddleOfHeader(entry, content.packedSize, content.size) +
                             LittleEndian(content.crc, 2) + entry.system;
    std::string padding = entry.padding;
    // A size whose lower byte is zero would be taken for the end of the archive.
    if ((2 + rest.size() + chain.bytes.size() + padding.size()) % 256 == 0)
        padding += '\0';
    std::string header =
        LittleEndian(2 + rest.size() + chain.bytes.size() + padding.size(), 2) + rest;
    const std::size_t chainAt = header.size();
    header += chain.bytes + padding;
    if (chain.crcAt > 0)
        SetCrc(header, chainAt + chain.crcAt);
    return header;
}

std::string Level3(const LzhEntry& entry, const Content& content) {
    const Chain chain = MakeChain(entry, 4, !entry.name.empty());
    const std::string rest = MiddleOfHeader(entry, content.packedSize, content.size) +
                             LittleEndian(content.crc, 2) + entry.system;
    const std::size_t size = 2 + rest.size() + 4 + chain.bytes.size() + entry.padding.size();
    std::string header = LittleEndian(4, 2) + rest + LittleEndian(size, 4);
    const std::size_t chainAt = header.size();
    header += chain.bytes + entry.padding;
    if (chain.crcAt > 0)
        SetCrc(header, chainAt + chain.crcAt);
    return header;
}

std::string MakeHeader(const LzhEntry& entry, const Content& content) {
    switch (entry.level) {
        case 0:
            return Level0(entry, content);
        case 1:
            return Level1(entry, content);
        case 2:
            return Level2(entry, content);
        default:
            return Level3(entry, content);
    }
}

std::string InShiftJis(std::wstring_view text) {
    return NativeAnsiCodePage().Encode(text).value();
}

// Folders end in 0xFF where they have a header of their own, and are separated by it.
std::string StoredFolder(std::wstring_view folder, unsigned level) {
    std::string stored;
    while (!folder.empty()) {
        const std::size_t end = folder.find(L'\\');
        stored += InShiftJis(folder.substr(0, end));
        folder = end == std::wstring_view::npos ? L"" : folder.substr(end + 1);
        if (level > 0)
            stored += '\xFF';
        else if (!folder.empty())
            stored += '\\';
    }
    return stored;
}

} // namespace

std::uint16_t SlowCrc16(std::string_view bytes, std::uint16_t before) {
    unsigned crc = before;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xA001u : 0u);
    }
    return static_cast<std::uint16_t>(crc);
}

std::string LittleEndian(std::uint64_t value, unsigned bytes) {
    std::string text;
    for (unsigned i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

std::string Utf16Bytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text)
        bytes += LittleEndian(unit, 2);
    return bytes;
}

LzhEntry MakeEntry(std::wstring_view path, std::string_view bytes, const std::string& method,
                   unsigned level) {
    LzhEntry entry;
    const std::size_t backslash = path.rfind(L'\\');
    if (backslash != std::wstring_view::npos) {
        entry.folder = StoredFolder(path.substr(0, backslash), level);
        path.remove_prefix(backslash + 1);
    }
    entry.name = InShiftJis(path);
    entry.bytes = bytes;
    entry.method = method;
    entry.level = level;
    entry.headerCrc = level >= 2;
    return entry;
}

LzhWriter& LzhWriter::Add(const LzhEntry& entry) {
    const Content content = MakeContent(entry);
    archive += MakeHeader(entry, content) + content.packed;
    return *this;
}

LzhWriter& LzhWriter::AddFile(std::wstring_view path, std::string_view bytes,
                              const std::string& method, unsigned level) {
    return Add(MakeEntry(path, bytes, method, level));
}

LzhWriter& LzhWriter::AddFolder(std::wstring_view path, unsigned level) {
    return Add(MakeEntry(std::wstring(path) + L'\\', "", "-lhd-", level));
}

} // namespace tamblin::lzh
