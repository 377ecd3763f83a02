#include "platform/lzh/mac_binary.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace tamblin::lzh {
namespace {

constexpr std::size_t forkUnit = 128; // forks are filled up to a multiple of it

constexpr std::size_t nameSizeAt = 1;
constexpr std::size_t nameAt = 2;
constexpr std::size_t longestMacName = 63;
constexpr std::size_t dataSizeAt = 83;
constexpr std::size_t resourceSizeAt = 87;
constexpr std::size_t zeroPlaces[] = {0, 74, 82};

std::uint64_t FilledUp(std::uint64_t size) {
    return (size + forkUnit - 1) / forkUnit * forkUnit;
}

std::string_view LastComponent(std::string_view name) {
    const std::size_t separator = name.find_last_of("\xFF/:");
    return separator == std::string_view::npos ? name : name.substr(separator + 1);
}

} // namespace

bool MayBeMacBinary(const EntryHeader& entry) {
    return (entry.system == 'm' || entry.system == 0) && entry.originalSize >= 128;
}

std::uint32_t MacBinaryFilter::ForkSize(std::size_t offset) const {
    std::uint32_t size = 0;
    for (std::size_t i = 0; i < 4; ++i)
        size = size << 8 | header[offset + i];
    return size;
}

// Wrapped files are not marked. The sizes have to add up to the entry's, and where it is not said
// that a Macintosh packed it, the name inside has to be the entry's as well.
bool MacBinaryFilter::IsWrapped() const {
    if (std::any_of(std::begin(zeroPlaces), std::end(zeroPlaces),
                    [&](std::size_t place) { return header[place] != 0; }))
        return false;
    const std::size_t nameSize = header[nameSizeAt];
    if (nameSize == 0 || nameSize > longestMacName)
        return false;
    const std::uint64_t data = ForkSize(dataSizeAt);
    const std::uint64_t resource = ForkSize(resourceSizeAt);
    const std::uint64_t beforeLast = headerSize + (resource == 0 ? 0 : FilledUp(data));
    const std::uint64_t last = resource == 0 ? data : resource;
    if (entry.originalSize != beforeLast + last &&
        entry.originalSize != beforeLast + FilledUp(last))
        return false;
    const std::string_view name(reinterpret_cast<const char*>(&header[nameAt]), nameSize);
    return entry.system == 'm' || name == LastComponent(entry.name);
}

void MacBinaryFilter::Decide() {
    decided = true;
    if (headerFill == headerSize && IsWrapped()) {
        left = ForkSize(dataSizeAt);
        return;
    }
    left = std::numeric_limits<std::uint64_t>::max();
    if (headerFill > 0)
        sink.Write(header.data(), headerFill);
}

void MacBinaryFilter::Write(const std::uint8_t* bytes, std::size_t size) {
    if (!decided) {
        const std::size_t part = std::min(size, headerSize - headerFill);
        std::copy_n(bytes, part, header.begin() + static_cast<std::ptrdiff_t>(headerFill));
        headerFill += part;
        bytes += part;
        size -= part;
        if (headerFill == headerSize)
            Decide();
    }
    const auto passed = static_cast<std::size_t>(std::min<std::uint64_t>(size, left));
    if (passed > 0)
        sink.Write(bytes, passed);
    left -= passed;
}

void MacBinaryFilter::Finish() {
    if (!decided)
        Decide();
}

} // namespace tamblin::lzh
