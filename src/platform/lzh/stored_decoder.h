// -lh0- and -lz4-: the data stands in the archive as it is.
#pragma once

#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

class StoredDecoder : public Decoder {
  public:
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;
};

} // namespace tamblin::lzh
