#include "platform/win32/lzh_file_source.h"

#include <algorithm>
#include <cstring>

#include "platform/lzh/lzh_error.h"
#include "platform/win32/win32_path.h"

namespace tamblin {

using lzh::LzhError;
using lzh::LzhFailure;

namespace {

constexpr std::size_t pieceSize = 8 * 1024;
constexpr std::size_t aheadSize = 64 * 1024;

} // namespace

LzhFileSource::LzhFileSource(const std::wstring& path)
    : file(OpenAt(FullPath(path), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING,
                  FILE_FLAG_SEQUENTIAL_SCAN)) {
    LARGE_INTEGER fileSize{};
    if (!file || !GetFileSizeEx(file.get(), &fileSize))
        throw LzhError(LzhFailure::CannotOpenArchive);
    size = static_cast<std::uint64_t>(fileSize.QuadPart);
}

std::size_t LzhFileSource::Read(std::uint64_t offset, void* buffer, std::size_t wanted) {
    char* const to = static_cast<char*>(buffer);
    if (wanted > pieceSize)
        return ReadDirectly(offset, to, wanted);
    if (offset < aheadOffset || offset + wanted > aheadOffset + aheadFill) {
        ahead.resize(aheadSize);
        aheadFill = 0;
        aheadFill = ReadDirectly(offset, ahead.data(), aheadSize);
        aheadOffset = offset;
    }
    const auto at = static_cast<std::size_t>(offset - aheadOffset);
    const std::size_t got = std::min(wanted, aheadFill - at);
    std::memcpy(to, ahead.data() + at, got);
    return got;
}

std::size_t LzhFileSource::ReadDirectly(std::uint64_t offset, char* to, std::size_t wanted) {
    std::size_t done = 0;
    while (done < wanted && offset + done < size) {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>((offset + done) & 0xFFFFFFFF);
        place.OffsetHigh = static_cast<DWORD>((offset + done) >> 32);
        DWORD got = 0;
        if (!ReadFile(file.get(), to + done, static_cast<DWORD>(wanted - done), &got, &place) &&
            GetLastError() != ERROR_HANDLE_EOF)
            throw LzhError(LzhFailure::CannotReadArchive);
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

} // namespace tamblin
