#include "platform/lzh/packed_input.h"

#include <algorithm>
#include <cstring>

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {
namespace {

constexpr std::size_t bufferSize = 64 * 1024;

} // namespace

PackedInput::PackedInput(ArchiveSource& archive)
    : source(archive),
      buffer(std::make_unique_for_overwrite<std::uint8_t[]>(bufferSize + slack)),
      begin(buffer.get()),
      end(begin),
      dataEnd(begin) {}

void PackedInput::Open(std::uint64_t offset, std::uint64_t size) {
    next = offset;
    unread = size;
    Fill(0);
}

void PackedInput::Renew(const std::uint8_t* used) {
    Finish(used);
    if (unread == 0) {
        begin = used;
        return;
    }
    const auto kept = static_cast<std::size_t>(dataEnd - used);
    std::memmove(buffer.get(), used, kept);
    Fill(kept);
}

void PackedInput::Fill(std::size_t kept) {
    std::uint8_t* to = buffer.get() + kept;
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(unread, bufferSize - kept));
    if (source.Read(next, to, wanted) < wanted)
        throw LzhError(LzhFailure::Truncated);
    next += wanted;
    unread -= wanted;
    begin = buffer.get();
    dataEnd = to + wanted;
    end = unread == 0 ? dataEnd : dataEnd - slack;
    std::memset(to + wanted, 0, slack);
}

void PackedInput::Finish(const std::uint8_t* used) {
    if (used > dataEnd)
        throw LzhError(LzhFailure::Truncated);
}

} // namespace tamblin::lzh
