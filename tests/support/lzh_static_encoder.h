// The encoder of -lh4-, -lh5-, -lh6-, -lh7- and -lhx-.
#pragma once

#include <string>
#include <string_view>

#include "support/lzh_encoder.h"

namespace tamblin::lzh {

std::string EncodeStatic(unsigned historyBits, std::string_view data, EncoderOptions options);

} // namespace tamblin::lzh
