#include "platform/win32/win32_file_swap.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "base/file_name.h"
#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_held_file.h"
#include "platform/win32/win32_path.h"
#include "platform/win32/win32_permissions.h"

namespace tamblin {
namespace {

// With these a file can be written and, while it is still open, be put in another's place: no other
// program can come in between.
constexpr DWORD successorAccess = GENERIC_WRITE | DELETE;

void WriteAll(HANDLE file, std::string_view bytes, const std::wstring& fullPath) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<size_t>(bytes.size(), LongestTransfer));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), wanted, &written, nullptr))
            ThrowLastError(fullPath);
        if (written == 0)
            throw RunTimeError(ErrorNumber::DiskFull, fullPath);
        bytes.remove_prefix(written);
    }
}

// Not every file system can flush; what it then cannot report is not an error.
bool IsFlushed(HANDLE file) {
    return FlushFileBuffers(file) || GetLastError() == ERROR_INVALID_FUNCTION ||
           GetLastError() == ERROR_NOT_SUPPORTED;
}

void Flush(HANDLE file, const std::wstring& fullPath) {
    if (!IsFlushed(file))
        ThrowLastError(fullPath);
}

void SetBits(const std::wstring& fullPath, DWORD bits) {
    SetFileAttributesW(PathForWindows(fullPath).c_str(), bits);
}

// Lets a file be written while it lives, read-only or not.
class Writable {
  public:
    explicit Writable(std::wstring fullPath) : path(std::move(fullPath)), bits(BitsOf(path)) {
        if (IsReadOnly())
            SetBits(path, bits & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    ~Writable() {
        if (IsReadOnly())
            SetBits(path, bits);
    }
    Writable(const Writable&) = delete;
    Writable& operator=(const Writable&) = delete;

    DWORD Bits() const { return bits; }

  private:
    bool IsReadOnly() const {
        return bits != INVALID_FILE_ATTRIBUTES && (bits & FILE_ATTRIBUTE_READONLY) != 0;
    }

    std::wstring path;
    DWORD bits;
};

// A name beside the file that nothing has yet. Long ones are cut, to make room for the ending.
std::wstring FreeNameBeside(const std::wstring& fullPath) {
    const std::wstring start = fullPath.substr(0, fullPath.rfind(L'\\') + 1 + LongestName - 15);
    for (int number = 0;; ++number) {
        std::wstring name = start + L".new" + std::to_wstring(number);
        if (BitsOf(name) == INVALID_FILE_ATTRIBUTES)
            return name;
    }
}

// The path with the last name as it is spelled on the disk.
std::wstring Spelled(const std::wstring& fullPath) {
    const auto found = FindAt(fullPath);
    return found ? fullPath.substr(0, fullPath.rfind(L'\\') + 1) + found->cFileName : fullPath;
}

bool RenameOver(HANDLE successor, const std::wstring& target) {
    const std::wstring name = PathForWindows(target);
    const size_t bytes = name.size() * sizeof(wchar_t);
    std::vector<std::byte> room(sizeof(FILE_RENAME_INFO) + bytes);
    auto* const rename = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    rename->ReplaceIfExists = TRUE;
    rename->FileNameLength = static_cast<DWORD>(bytes);
    std::memcpy(rename->FileName, name.data(), bytes);
    return SetFileInformationByHandle(successor, FileRenameInfo, rename,
                                      static_cast<DWORD>(room.size()));
}

void TakePlace(HANDLE successor, const std::wstring& successorPath, const std::wstring& target,
               const Patience& patience) {
    Flush(successor, successorPath);
    CopyPermissions(target, successorPath);
    SetBits(successorPath, BitsOf(target) | FILE_ATTRIBUTE_ARCHIVE);
    const std::wstring spelled = Spelled(target);
    if (!Persist(patience, target, [&] { return RenameOver(successor, spelled); }))
        ThrowFileError(target);
}

UniqueHandle OpenSuccessor(const std::wstring& successorPath, DWORD disposition,
                           const Patience& patience) {
    UniqueHandle file =
        OpenFile(successorPath, {successorAccess, FILE_SHARE_READ, disposition}, patience);
    if (!file)
        ThrowFileError(successorPath);
    return file;
}

bool MayBeRead(const std::wstring& fullPath) {
    return OpenAt(fullPath, GENERIC_READ, ShareAll, OPEN_EXISTING, 0) != nullptr;
}

// Windows takes the part of a copy that fitted on a full disk away again, Wine leaves it.
[[noreturn]] void ThrowCopyError(const std::wstring& source, const std::wstring& target) {
    const DWORD code = GetLastError();
    if (ErrorNumberOf(code) == ErrorNumber::DiskFull)
        DeleteFileW(PathForWindows(target).c_str());
    if (MeansNotThere(code))
        CheckDrive(target, ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady);
    const std::wstring& failed = MayBeRead(source) ? target : source;
    SetLastError(code);
    ThrowFileError(failed);
}

// The user knows nothing of successors.
template <typename Swapping>
void NameTarget(const std::wstring& successor, const std::wstring& target,
                const Swapping& swapping) {
    try {
        swapping();
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), error.Path() == successor ? target : error.Path());
    }
}

// Sees to it that a new file goes again when what it is made for fails.
template <typename Making>
void MakeOrDelete(const std::wstring& fullPath, const Making& make) {
    try {
        make();
    } catch (const RunTimeError&) {
        SetBits(fullPath, FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(PathForWindows(fullPath).c_str());
        throw;
    }
}

} // namespace

UniqueHandle OpenFile(const std::wstring& fullPath, const OpenMode& mode,
                      const Patience& patience) {
    UniqueHandle file;
    Persist(patience, fullPath, [&] {
        file = OpenAt(fullPath, mode.access, mode.share, mode.disposition,
                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN);
        return file != nullptr;
    });
    return file;
}

void WriteNewFile(const std::wstring& target, std::string_view bytes, const Patience& patience) {
    UniqueHandle file = OpenSuccessor(target, CREATE_NEW, patience);
    MakeOrDelete(target, [&] {
        const UniqueHandle open = std::move(file);
        WriteAll(open.get(), bytes, target);
        Flush(open.get(), target);
    });
}

void CopyToNewFile(const std::wstring& source, const std::wstring& target, const Patience& patience,
                   BusyWatch& busy) {
    const std::wstring from = PathForWindows(source);
    const std::wstring to = PathForWindows(target);
    const bool copied = Persist(patience, source, [&] {
        return busy.During([&] { return CopyFileW(from.c_str(), to.c_str(), TRUE) != 0; });
    });
    if (!copied)
        ThrowCopyError(source, target);
    MakeOrDelete(target, [&] {
        const Writable writable(target);
        const UniqueHandle file = OpenSuccessor(target, OPEN_EXISTING, patience);
        if (!busy.During([&] { return IsFlushed(file.get()); }))
            ThrowLastError(target);
    });
}

void SwapInBytes(const std::wstring& target, std::string_view bytes, const Patience& patience) {
    const std::wstring successor = FreeNameBeside(target);
    NameTarget(successor, target, [&] {
        UniqueHandle file = OpenSuccessor(successor, CREATE_NEW, patience);
        MakeOrDelete(successor, [&] {
            const UniqueHandle open = std::move(file);
            WriteAll(open.get(), bytes, successor);
            TakePlace(open.get(), successor, target, patience);
        });
    });
}

void SwapInCopy(const std::wstring& source, const std::wstring& target, const Patience& patience,
                BusyWatch& busy) {
    const std::wstring successor = FreeNameBeside(target);
    NameTarget(successor, target, [&] {
        CopyToNewFile(source, successor, patience, busy);
        MakeOrDelete(successor, [&] {
            SetBits(successor, FILE_ATTRIBUTE_NORMAL);
            const UniqueHandle file = OpenSuccessor(successor, OPEN_EXISTING, patience);
            TakePlace(file.get(), successor, target, patience);
        });
    });
}

void SwapInFile(const std::wstring& source, const std::wstring& target, const Patience& patience) {
    const DWORD bits = BitsOf(source);
    SetBits(source, FILE_ATTRIBUTE_NORMAL);
    try {
        const UniqueHandle file = OpenSuccessor(source, OPEN_EXISTING, patience);
        TakePlace(file.get(), source, target, patience);
    } catch (const RunTimeError&) {
        SetBits(source, bits);
        throw;
    }
}

} // namespace tamblin
