// Windows handles that close themselves.
#pragma once

#include <windows.h>

#include <memory>

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

} // namespace tamblin
