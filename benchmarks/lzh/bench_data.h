// The data that the readers are timed on. Always the same, as far as it is made up.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tamblin::bench {

struct Data {
    const char* name;
    std::vector<std::string> files;
    int copies = 1; // of all files in an archive

    std::size_t Size() const; // of all copies
};

// Made up: text, binary data and data that cannot be packed.
std::vector<Data> MadeUpData();

// As packages hold it: a tar of sources, a Windows program, small bitmaps, many small files. What
// this machine does not have is left out.
std::vector<Data> RealData();

} // namespace tamblin::bench
