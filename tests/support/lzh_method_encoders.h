// The encoders of the methods, for lzh_encoder.cpp, which chooses among them.
#pragma once

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

std::string EncodeLh1(std::string_view data, EncoderOptions options);
std::string EncodeLzs(std::string_view data, EncoderOptions options);
std::string EncodeLz5(std::string_view data, EncoderOptions options);
// -lh4-, -lh5-, -lh6-, -lh7- and -lhx-, by the bits of their distances.
std::string EncodeStatic(unsigned historyBits, std::string_view data, EncoderOptions options);

} // namespace tamblin::lzh
