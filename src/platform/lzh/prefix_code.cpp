#include "platform/lzh/prefix_code.h"

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {

void PrefixCode::Finish() {
    std::uint32_t end = 0;
    for (unsigned length = 1; length <= longestCode; ++length) {
        end += static_cast<std::uint32_t>(countOf[length]) << (16 - length);
        endOf[length] = end;
    }
    if (end > 0x10000)
        throw LzhError(LzhFailure::DamagedData);
    Sort();
}

void PrefixCode::Sort() {
    unsigned begin = 0;
    for (unsigned length = 1; length <= longestCode; ++length) {
        sortedEnd[length] = static_cast<std::uint16_t>(begin);
        begin += countOf[length];
    }
    for (std::size_t i = 0; i < addedCount; ++i)
        sorted[sortedEnd[added[i].length]++] = added[i].symbol;
}

PrefixCode::Code PrefixCode::Find(unsigned bits16, unsigned shortest) const {
    for (unsigned length = shortest; length <= longestCode; ++length) {
        if (bits16 < endOf[length]) {
            const unsigned fromEnd = (endOf[length] - 1 - bits16) >> (16 - length);
            return {sorted[sortedEnd[length] - 1u - fromEnd], length};
        }
    }
    throw LzhError(LzhFailure::DamagedData);
}

} // namespace tamblin::lzh
