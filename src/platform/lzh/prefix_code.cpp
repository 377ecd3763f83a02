#include "platform/lzh/prefix_code.h"

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {

void PrefixCode::SetLengths(std::span<const std::uint8_t> codeLengths) {
    countOf.fill(0);
    for (const std::uint8_t length : codeLengths)
        ++countOf[length];
    countOf[0] = 0;

    std::uint32_t end = 0;
    for (unsigned length = 1; length <= longestCode; ++length) {
        end += static_cast<std::uint32_t>(countOf[length]) << (16 - length);
        endOf[length] = end;
    }
    if (end > 0x10000)
        throw LzhError(LzhFailure::DamagedData);
    Sort(codeLengths);
}

void PrefixCode::Sort(std::span<const std::uint8_t> codeLengths) {
    unsigned begin = 0;
    for (unsigned length = 1; length <= longestCode; ++length) {
        sortedEnd[length] = static_cast<std::uint16_t>(begin);
        begin += countOf[length];
    }
    for (unsigned symbol = 0; symbol < codeLengths.size(); ++symbol) {
        if (const unsigned length = codeLengths[symbol]; length != 0)
            sorted[sortedEnd[length]++] = static_cast<std::uint16_t>(symbol);
    }
}

PrefixCode::Code PrefixCode::Find(unsigned bits16) const {
    for (unsigned length = 1; length <= longestCode; ++length) {
        if (bits16 < endOf[length]) {
            const unsigned fromEnd = (endOf[length] - 1 - bits16) >> (16 - length);
            return {sorted[sortedEnd[length] - 1 - fromEnd], length};
        }
    }
    throw LzhError(LzhFailure::DamagedData);
}

} // namespace tamblin::lzh
