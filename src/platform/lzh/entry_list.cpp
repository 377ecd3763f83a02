#include "platform/lzh/entry_list.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "platform/lzh/header_fields.h"
#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {
namespace {

// Leading bytes are searched for a header in pieces of this size.
constexpr std::size_t searchPiece = 64 * 1024;

// What looks like a header and is none costs time; a self-extracting program has a handful.
constexpr int mostFalseHeaders = 1000;
constexpr std::size_t mostFalseBytes = 1024 * 1024;

bool IsOneOf(char letter, std::string_view letters) {
    return letters.find(letter) != std::string_view::npos;
}

// How many of a method's five letters are as they have to be: "-lh5-", "-lzs-", "-pm2-".
int MethodLikeness(std::string_view method) {
    return (method[0] == '-') + IsOneOf(method[1], "lp") + IsOneOf(method[2], "hzmZ") +
           (IsOneOf(method[3], "0123456789dsxabc")) + (method[4] == '-');
}

// Even with damage at a place or two a header is still known as one.
bool ResemblesHeader(std::string_view bytes) {
    if (bytes.size() < methodOffset + methodSize)
        return false;
    return MethodLikeness(bytes.substr(methodOffset, methodSize)) >= 3;
}

bool CouldBeHeader(std::string_view bytes) {
    return MethodLikeness(bytes.substr(methodOffset, methodSize)) == 5 &&
           static_cast<unsigned char>(bytes[levelOffset]) <= 3;
}

// What disks, transfers and text tools fill files up with.
bool IsFiller(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) {
        return IsOneOf(byte, {"\0\x1A\xFF\r\n ", 6});
    });
}

// Where the entry ends whose header these bytes begin, as far as they say so.
std::uint64_t ClaimedEnd(std::uint64_t place, std::string_view bytes) {
    const HeaderFields fields(bytes);
    const std::size_t headerSize =
        fields.U8(levelOffset) < 2 ? 2u + fields.U8(0) : std::size_t{fields.U16(0)};
    return place + headerSize + fields.U32(methodOffset + methodSize);
}

} // namespace

std::optional<EntryHeader> EntryList::Next() {
    if (!started) {
        started = true;
        return Take(First());
    }
    if (IsEnd())
        return std::nullopt;
    return Take(parser.Parse(offset));
}

EntryHeader EntryList::Take(EntryHeader entry) {
    const bool whole = entry.FitsInto(source.Size());
    offset = whole ? entry.dataOffset + entry.packedSize : source.Size();
    return entry;
}

// Damaged headers resemble sound ones; a sound header of a method that nobody has heard of
// resembles nothing, but proves itself.
bool EntryList::IsHeaderAt(std::uint64_t place, std::string_view bytes) {
    if (ResemblesHeader(bytes))
        return true;
    return bytes.size() == smallestHeader && bytes[methodOffset] == '-' &&
           bytes[methodOffset + methodSize - 1] == '-' && Faultless(place);
}

EntryHeader EntryList::First() {
    char begin[smallestHeader] = {};
    const std::size_t got = source.Read(0, begin, sizeof begin);
    if (IsHeaderAt(0, {begin, got}))
        return parser.Parse(0);
    if (auto entry = Search(0))
        return *entry;
    throw LzhError(LzhFailure::NotAnArchive);
}

std::optional<EntryHeader> EntryList::Faultless(std::uint64_t place) {
    try {
        EntryHeader entry = parser.Parse(place);
        if (entry.FitsInto(source.Size()))
            return entry;
    } catch (const LzhError&) {
        // No header after all.
    }
    return std::nullopt;
}

// Self-extracting archives begin with a program. The first header behind it has to be faultless,
// for programs contain much that looks like one. What looks like one and leads right to it was one:
// damage must not pass for an archive without its first entry.
std::optional<EntryHeader> EntryList::Search(std::uint64_t from) {
    int falseHeaders = 0;
    std::size_t falseBytes = 0;
    std::set<std::uint64_t> claimedEnds;
    std::vector<char> piece(searchPiece);
    for (std::uint64_t base = from; base + smallestHeader <= source.Size();) {
        const std::size_t got = source.Read(base, piece.data(), piece.size());
        if (got < smallestHeader)
            break;
        for (std::size_t i = 0; i + smallestHeader <= got; ++i) {
            const std::string_view bytes(&piece[i], smallestHeader);
            if (piece[i + methodOffset] != '-' || !CouldBeHeader(bytes))
                continue;
            if (auto entry = Faultless(base + i)) {
                if (claimedEnds.count(base + i) != 0)
                    throw LzhError(LzhFailure::DamagedHeader);
                return entry;
            }
            claimedEnds.insert(ClaimedEnd(base + i, bytes));
            falseBytes += parser.BytesParsed();
            if (++falseHeaders == mostFalseHeaders || falseBytes > mostFalseBytes)
                return std::nullopt;
        }
        base += got - smallestHeader + 1;
    }
    return std::nullopt;
}

// Behind an entry stands another one, a zero byte as the mark of the end and then anything, or
// nothing at all. Archives to which something else was appended end as well, unless one more entry
// comes behind it: then a header between has been overwritten. Of a few bytes nobody can tell
// whether they are the rest of a header.
bool EntryList::IsEnd() {
    char begin[smallestHeader] = {};
    const std::size_t got = source.Read(offset, begin, sizeof begin);
    const std::string_view bytes(begin, got);
    if (IsHeaderAt(offset, bytes))
        return false;
    if (bytes.empty() || bytes[0] == '\0' || IsFiller(bytes))
        return true;
    if (got < methodOffset + methodSize)
        throw LzhError(LzhFailure::Truncated);
    if (Search(offset))
        throw LzhError(LzhFailure::DamagedHeader);
    return true;
}

} // namespace tamblin::lzh
