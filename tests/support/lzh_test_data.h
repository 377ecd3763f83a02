// Data to be packed, of the kinds that bring out different sides of a packing method. The same seed
// gives the same data.
#pragma once

#include <cstddef>
#include <string>

namespace tamblin::lzh {

std::string RandomBytes(std::size_t size, unsigned seed);

// Words out of a small vocabulary, with repetitions near and far.
std::string RandomText(std::size_t size, unsigned seed);

// Every byte value half as frequent as the one before: codes become as long as they can.
std::string SkewedBytes(std::size_t size, unsigned seed);

} // namespace tamblin::lzh
