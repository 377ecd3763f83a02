#include "platform/posix/lzh_file_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/lzh/lzh_error.h"

namespace tamblin {

using lzh::LzhError;
using lzh::LzhFailure;

LzhFileSource::LzhFileSource(const std::string& path)
    : file(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    struct stat status {};
    if (file < 0)
        throw LzhError(LzhFailure::CannotOpenArchive);
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(file);
        throw LzhError(LzhFailure::CannotOpenArchive);
    }
    size = static_cast<std::uint64_t>(status.st_size);
}

LzhFileSource::~LzhFileSource() {
    close(file);
}

std::size_t LzhFileSource::Read(std::uint64_t offset, void* buffer, std::size_t wanted) {
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t got = pread(file, static_cast<char*>(buffer) + done, wanted - done,
                                  static_cast<off_t>(offset + done));
        if (got < 0)
            throw LzhError(LzhFailure::CannotReadArchive);
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

} // namespace tamblin
