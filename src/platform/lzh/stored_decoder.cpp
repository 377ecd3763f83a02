#include "platform/lzh/stored_decoder.h"

#include <algorithm>

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {

void StoredDecoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    while (size > 0) {
        if (input.Begin() == input.End())
            input.Renew(input.End());
        if (input.Begin() == input.End())
            throw LzhError(LzhFailure::Truncated);
        const auto there = static_cast<std::uint64_t>(input.End() - input.Begin());
        const auto part = static_cast<std::size_t>(std::min(size, there));
        sink.Write(input.Begin(), part);
        size -= part;
        if (size > 0)
            input.Renew(input.Begin() + part);
    }
}

} // namespace tamblin::lzh
