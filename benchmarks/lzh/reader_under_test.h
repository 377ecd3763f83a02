// A reader of LZH archives that is to be timed.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench_data.h"

namespace tamblin::bench {

class ReaderUnderTest {
  public:
    virtual ~ReaderUnderTest() = default;

    virtual std::string Name() const = 0;
    // Is told what comes next, for what need not be timed.
    virtual void Prepare(const Data&, const std::string& /*archive*/) {}
    // Unpacks all files of the archive, with checksums, and throws the bytes away. Returns how many
    // there were; 0 when the reader gives up.
    virtual std::uint64_t Unpack(const std::string& archive) = 0;
};

using Readers = std::vector<std::unique_ptr<ReaderUnderTest>>;

std::unique_ptr<ReaderUnderTest> MakeOwnReader();
Readers MakeOtherReaders(); // as far as there are any

std::unique_ptr<ReaderUnderTest> MakeLibarchiveReader();
std::unique_ptr<ReaderUnderTest> MakeLhasaReader();
std::unique_ptr<ReaderUnderTest> MakeSevenZipReader();
std::unique_ptr<ReaderUnderTest> MakeLibdeflateReader();

} // namespace tamblin::bench
