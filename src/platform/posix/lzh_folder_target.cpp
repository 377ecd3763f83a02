#include "platform/posix/lzh_folder_target.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <utility>

#include "platform/lzh/lzh_error.h"

namespace tamblin {

using lzh::EntryPath;
using lzh::EntryTimes;
using lzh::LzhError;
using lzh::LzhFailure;

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

[[noreturn]] void ThrowSystemError(int error) {
    const bool isFull = error == ENOSPC || error == EDQUOT;
    const std::string text = std::strerror(error);
    throw LzhError(isFull ? LzhFailure::DiskFull : LzhFailure::CannotWrite,
                   {text.begin(), text.end()});
}

class Handle {
  public:
    explicit Handle(int descriptor) : value(descriptor) {}
    Handle(Handle&& other) noexcept : value(std::exchange(other.value, -1)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(value, other.value);
        return *this;
    }
    ~Handle() {
        if (value >= 0)
            close(value);
    }
    int Get() const { return value; }

  private:
    int value;
};

void RefuseLink(int folder, const std::string& name) {
    struct stat status {};
    if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode))
        throw LzhError(LzhFailure::LinkInTheWay);
}

// The folder of that name, made when it is missing.
Handle EnterFolder(int parent, const std::string& name) {
    if (mkdirat(parent, name.c_str(), 0777) != 0 && errno != EEXIST)
        ThrowSystemError(errno);
    Handle folder(openat(parent, name.c_str(), folderFlags));
    if (folder.Get() < 0) {
        const int error = errno;
        RefuseLink(parent, name);
        ThrowSystemError(error);
    }
    return folder;
}

Handle EnterFolders(int root, EntryPath::const_iterator first, EntryPath::const_iterator last) {
    Handle folder(openat(root, ".", folderFlags));
    for (; first != last; ++first)
        folder = EnterFolder(folder.Get(), ToUtf8(*first));
    return folder;
}

timespec ModifiedTime(const EntryTimes& times) {
    if (times.modified) {
        constexpr std::uint64_t from1601To1970 = 11'644'473'600;
        const auto seconds = static_cast<time_t>(*times.modified / 10'000'000 - from1601To1970);
        return {seconds, static_cast<long>(*times.modified % 10'000'000 * 100)};
    }
    if (!times.modifiedLocal)
        return {0, UTIME_NOW};
    const auto field = [&](unsigned shift, unsigned bits) {
        return static_cast<int>(*times.modifiedLocal >> shift & ((1u << bits) - 1));
    };
    std::tm local{};
    local.tm_sec = field(0, 5) * 2;
    local.tm_min = field(5, 6);
    local.tm_hour = field(11, 5);
    local.tm_mday = field(16, 5);
    local.tm_mon = field(21, 4) - 1;
    local.tm_year = field(25, 7) + 80;
    local.tm_isdst = -1;
    return {std::mktime(&local), 0};
}

class FolderTargetFile : public lzh::TargetFile {
  public:
    FolderTargetFile(Handle parent, std::string fileName)
        : folder(std::move(parent)),
          name(std::move(fileName)),
          file(openat(folder.Get(), name.c_str(),
                      O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666)) {
        if (file.Get() < 0)
            ThrowSystemError(errno);
    }
    ~FolderTargetFile() override {
        if (!finished)
            unlinkat(folder.Get(), name.c_str(), 0);
    }

    void Write(const std::uint8_t* bytes, std::size_t size) override {
        while (size > 0) {
            const ssize_t written = write(file.Get(), bytes, size);
            if (written < 0)
                ThrowSystemError(errno);
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
    }

    void Finish(const EntryTimes& times, lzh::EntryAttributes attributes) override {
        const timespec stamps[2] = {{0, UTIME_NOW}, ModifiedTime(times)};
        futimens(file.Get(), stamps);
        struct stat status {};
        if (attributes.readOnly && fstat(file.Get(), &status) == 0)
            fchmod(file.Get(), status.st_mode & 0555);
        finished = true;
    }

  private:
    Handle folder;
    std::string name;
    Handle file;
    bool finished = false;
};

} // namespace

LzhFolderTarget::LzhFolderTarget(const std::string& folder)
    : root(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (root < 0)
        ThrowSystemError(errno);
}

LzhFolderTarget::~LzhFolderTarget() {
    close(root);
}

void LzhFolderTarget::MakeFolders(const EntryPath& folder) {
    EnterFolders(root, folder.begin(), folder.end());
}

std::unique_ptr<lzh::TargetFile> LzhFolderTarget::NewFile(const EntryPath& file) {
    Handle folder = EnterFolders(root, file.begin(), file.end() - 1);
    std::string name = ToUtf8(file.back());
    RefuseLink(folder.Get(), name);
    if (unlinkat(folder.Get(), name.c_str(), 0) != 0 && errno != ENOENT)
        ThrowSystemError(errno);
    return std::make_unique<FolderTargetFile>(std::move(folder), std::move(name));
}

std::string ToUtf8(const std::wstring& text) {
    std::string bytes;
    const auto put = [&](unsigned value) {
        bytes += static_cast<char>(value);
    };
    for (const wchar_t letter : text) {
        const auto code = static_cast<std::uint32_t>(static_cast<char32_t>(letter));
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | code >> 6);
            put(0x80 | (code & 63));
        } else if (code < 0x10000) {
            put(0xE0 | code >> 12);
            put(0x80 | (code >> 6 & 63));
            put(0x80 | (code & 63));
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 63));
            put(0x80 | (code >> 6 & 63));
            put(0x80 | (code & 63));
        }
    }
    return bytes;
}

} // namespace tamblin
