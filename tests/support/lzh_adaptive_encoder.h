// The encoder of -lh1-.
#pragma once

#include <string>
#include <string_view>

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

std::string EncodeLh1(std::string_view data, EncoderOptions options);
} // namespace tamblin::lzh
