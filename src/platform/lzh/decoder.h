// Unpacks the data of one entry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/lzh/byte_sink.h"
#include "platform/lzh/output_window.h"
#include "platform/lzh/packed_input.h"

namespace tamblin::lzh {

class Decoder {
  public:
    virtual ~Decoder() = default;

    // Unpacks exactly `size` bytes. Throws LzhError (DamagedData, Truncated), and what the sink
    // throws.
    virtual void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) = 0;
};

// The decoders of all methods. They share one window, so that memory is asked for once.
class Decoders {
  public:
    // For a method's five letters ("-lh5-"); null when nobody knows the method.
    Decoder* Find(const std::string& method);

  private:
    std::unique_ptr<Decoder> Make(const std::string& method);

    OutputWindow window;
    std::string currentMethod;
    std::unique_ptr<Decoder> current;
};

} // namespace tamblin::lzh
