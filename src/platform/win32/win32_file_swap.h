// New contents for files: a file that is replaced stands until its successor is complete beside it
// and on the disk, and then gives way in one step. The successor takes over its attributes and its
// permissions. All throw RunTimeError; what stood at the target is then as it was.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/patience.h"
#include "platform/win32/busy_wait.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {

struct OpenMode {
    DWORD access = 0;
    DWORD share = 0;
    DWORD disposition = 0;
};

// Null when it fails; GetLastError() then tells why.
UniqueHandle OpenFile(const std::wstring& fullPath, const OpenMode& mode, const Patience& patience);

// Reads and writes go in pieces of at most this many bytes.
inline constexpr DWORD LongestTransfer = 16U << 20;

// Where nothing is yet.
void WriteNewFile(const std::wstring& target, std::string_view bytes, const Patience& patience);
void CopyToNewFile(const std::wstring& source, const std::wstring& target, const Patience& patience,
                   BusyWatch& busy);

// Where a file is. The last one takes the source away; both are on one drive.
void SwapInBytes(const std::wstring& target, std::string_view bytes, const Patience& patience);
void SwapInCopy(const std::wstring& source, const std::wstring& target, const Patience& patience,
                BusyWatch& busy);
void SwapInFile(const std::wstring& source, const std::wstring& target, const Patience& patience);

} // namespace tamblin
