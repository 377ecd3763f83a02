// What can be wrong with an archive or with unpacking it. The numbers are the return codes of
// Unlha and of unlha.exe.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace tamblin::lzh {

enum class LzhFailure : std::int16_t {
    None = 0,
    BadCommand = 1,        // the command is not x "PATH"
    CannotOpenArchive = 2, // there is no such file, or it cannot be opened
    CannotReadArchive = 3, // the medium failed
    NotAnArchive = 4,      // no entry anywhere in the file
    DamagedHeader = 5,     // a header contradicts itself, its checksum or the file's size
    UnknownMethod = 6,     // packed in a way that no decoder knows
    DamagedData = 7,       // packed data that no encoder writes
    Truncated = 8,         // the archive ends too early
    WrongChecksum = 9,     // the unpacked data is not what was packed
    ForbiddenName = 10,    // the name leaves the folder, or Windows would take it for another
    LinkInTheWay = 11,     // a link stands where the entry belongs
    CannotWrite = 12,      // the file system refuses the entry
    DiskFull = 13,
    OutOfMemory = 14,
};

// "the data is damaged"
const char* Describe(LzhFailure failure);

class LzhError : public std::exception {
  public:
    explicit LzhError(LzhFailure lzhFailure, std::wstring moreAboutIt = {})
        : failure(lzhFailure), detail(std::move(moreAboutIt)) {}

    LzhFailure Failure() const { return failure; }
    const std::wstring& Detail() const { return detail; } // the method, the system's code, or empty
    const char* what() const noexcept override { return Describe(failure); }

  private:
    LzhFailure failure;
    std::wstring detail;
};

} // namespace tamblin::lzh
