#include "platform/lzh/entry_list.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {
namespace {

// Leading bytes are searched for a header in pieces of this size.
constexpr std::size_t searchPiece = 64 * 1024;

// What looks like a header and is none costs time; a self-extracting program has a handful.
constexpr int mostFalseHeaders = 1000;

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

EntryHeader EntryList::First() {
    char begin[smallestHeader] = {};
    const std::size_t got = source.Read(0, begin, sizeof begin);
    if (ResemblesHeader({begin, got}))
        return parser.Parse(0);
    if (auto entry = Search())
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
// for programs contain much that looks like one.
std::optional<EntryHeader> EntryList::Search() {
    int falseHeaders = 0;
    std::vector<char> piece(searchPiece);
    for (std::uint64_t base = 0; base + smallestHeader <= source.Size();) {
        const std::size_t got = source.Read(base, piece.data(), piece.size());
        if (got < smallestHeader)
            break;
        for (std::size_t i = 0; i + smallestHeader <= got; ++i) {
            if (piece[i + methodOffset] != '-' || !CouldBeHeader({&piece[i], smallestHeader}))
                continue;
            if (auto entry = Faultless(base + i))
                return entry;
            if (++falseHeaders == mostFalseHeaders)
                return std::nullopt;
        }
        base += got - smallestHeader + 1;
    }
    return std::nullopt;
}

// Behind an entry stands another one, a zero byte as the mark of the end and then anything, or
// nothing at all. Archives that were filled up to some size without such a mark end as well, unless
// what follows is the damaged header of one more entry.
bool EntryList::IsEnd() {
    char begin[smallestHeader] = {};
    const std::size_t got = source.Read(offset, begin, sizeof begin);
    const std::string_view bytes(begin, got);
    if (ResemblesHeader(bytes))
        return false;
    if (bytes.empty() || bytes[0] == '\0' || IsFiller(bytes))
        return true;
    if (got < smallestHeader)
        throw LzhError(LzhFailure::Truncated);
    return true;
}

} // namespace tamblin::lzh
