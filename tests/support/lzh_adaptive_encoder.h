// The encoders of -lh1- and -lh2-.
#pragma once

#include <string>
#include <string_view>

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

std::string EncodeLh1(std::string_view data, EncoderOptions options);
std::string EncodeLh2(std::string_view data, EncoderOptions options);

} // namespace tamblin::lzh
