// Windows handles that close themselves.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "platform/win32/win32_path.h"

namespace tamblin {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, HandleCloser>;

struct FindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { FindClose(handle); }
};
using UniqueFindHandle = std::unique_ptr<void, FindCloser>;

// Windows' calls that open something report a failure in one of two ways; this makes it one.
inline HANDLE NullIfInvalid(HANDLE handle) {
    return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

// Opens what stands at a full path, or makes it. Null when it fails; GetLastError() then tells why.
inline UniqueHandle OpenAt(const std::wstring& fullPath, DWORD access, DWORD share,
                           DWORD disposition, DWORD flags) {
    return UniqueHandle(NullIfInvalid(CreateFileW(PathForWindows(fullPath).c_str(), access, share,
                                                  nullptr, disposition, flags, nullptr)));
}

inline constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

} // namespace tamblin
