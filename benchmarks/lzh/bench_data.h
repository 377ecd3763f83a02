// The data that the readers are timed on. Always the same.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tamblin::bench {

struct Data {
    const char* name;
    std::string bytes;
};

// Text, binary data and data that cannot be packed.
std::vector<Data> MakeData(std::size_t size);

} // namespace tamblin::bench
