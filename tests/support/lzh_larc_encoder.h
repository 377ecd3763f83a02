// The encoders of -lzs- and -lz5-.
#pragma once

#include <string>
#include <string_view>

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

std::string EncodeLzs(std::string_view data, EncoderOptions options);
std::string EncodeLz5(std::string_view data, EncoderOptions options);

} // namespace tamblin::lzh
