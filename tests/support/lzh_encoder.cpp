#include "support/lzh_encoder.h"

#include <stdexcept>

#include "support/lzh_method_encoders.h"

namespace tamblin::lzh {

std::string Encode(const std::string& method, std::string_view data, EncoderOptions options) {
    if (method == "-lh0-" || method == "-lz4-")
        return std::string(data);
    if (method == "-lh1-")
        return EncodeLh1(data, options);
    if (method == "-lh4-" || method == "-lh5-")
        return EncodeStatic(method == "-lh4-" ? 12 : 13, data, options);
    if (method == "-lh6-" || method == "-lh7-")
        return EncodeStatic(method == "-lh6-" ? 15 : 16, data, options);
    if (method == "-lhx-")
        return EncodeStatic(19, data, options);
    if (method == "-lzs-")
        return EncodeLzs(data, options);
    if (method == "-lz5-")
        return EncodeLz5(data, options);
    throw std::invalid_argument("no encoder for " + method);
}

} // namespace tamblin::lzh
