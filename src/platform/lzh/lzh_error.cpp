#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {

const char* Describe(LzhFailure failure) {
    switch (failure) {
        case LzhFailure::None:
            return "no error";
        case LzhFailure::BadCommand:
            return "the command is not understood";
        case LzhFailure::CannotOpenArchive:
            return "the archive cannot be opened";
        case LzhFailure::CannotReadArchive:
            return "the archive cannot be read";
        case LzhFailure::NotAnArchive:
            return "this is not an LZH archive";
        case LzhFailure::DamagedHeader:
            return "the header is damaged";
        case LzhFailure::UnknownMethod:
            return "the packing method is unknown";
        case LzhFailure::DamagedData:
            return "the packed data is damaged";
        case LzhFailure::Truncated:
            return "the archive ends too early";
        case LzhFailure::WrongChecksum:
            return "the checksum is wrong";
        case LzhFailure::ForbiddenName:
            return "the name is not allowed";
        case LzhFailure::LinkInTheWay:
            return "a link stands in the way";
        case LzhFailure::CannotWrite:
            return "the entry cannot be written";
        case LzhFailure::DiskFull:
            return "the disk is full";
        case LzhFailure::OutOfMemory:
            return "there is not enough memory";
    }
    return "unknown failure";
}

} // namespace tamblin::lzh
