#include "platform/lzh/lzh_error.h"

#include <utility>

namespace tamblin::lzh {
namespace {

constexpr std::pair<LzhFailure, const char*> Descriptions[] = {
    {LzhFailure::None, "no error"},
    {LzhFailure::BadCommand, "the command is not understood"},
    {LzhFailure::CannotOpenArchive, "the archive cannot be opened"},
    {LzhFailure::CannotReadArchive, "the archive cannot be read"},
    {LzhFailure::NotAnArchive, "this is not an LZH archive"},
    {LzhFailure::DamagedHeader, "the header is damaged"},
    {LzhFailure::UnknownMethod, "the packing method is unknown"},
    {LzhFailure::DamagedData, "the packed data is damaged"},
    {LzhFailure::Truncated, "the archive ends too early"},
    {LzhFailure::WrongChecksum, "the checksum is wrong"},
    {LzhFailure::ForbiddenName, "the name is not allowed"},
    {LzhFailure::LinkInTheWay, "a link stands in the way"},
    {LzhFailure::CannotWrite, "the entry cannot be written"},
    {LzhFailure::DiskFull, "the disk is full"},
    {LzhFailure::OutOfMemory, "there is not enough memory"},
};

} // namespace

const char* Describe(LzhFailure failure) {
    for (const auto& [described, text] : Descriptions)
        if (described == failure)
            return text;
    return "unknown failure";
}

} // namespace tamblin::lzh
