// Packs data by the methods of LZH archives, for archives that tests and benchmarks make up.
// Written to be plain, apart from the reader, so that the two can only agree by both being right.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamblin::lzh {

struct EncoderOptions {
    std::size_t blockSize = 16 * 1024; // symbols to a block, of -lh4- to -lh7- and -lhx-
    bool lazy = true;                  // look one byte further before a match is taken
    bool useInitialHistory = true;     // copy from what stands before the first byte
};

// For "-lh0-", "-lh1-", "-lh4-" to "-lh7-", "-lhx-", "-lz4-", "-lz5-", "-lzs-". Throws
// std::invalid_argument for others.
std::string Encode(const std::string& method, std::string_view data, EncoderOptions options = {});

} // namespace tamblin::lzh
