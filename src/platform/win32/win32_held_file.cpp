#include "platform/win32/win32_held_file.h"

#include "base/win32/function_of.h"
#include "platform/win32/win32_attributes.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

constexpr LONG statusDeletePending = static_cast<LONG>(0xC0000056);

// Windows reports a file that waits to vanish as one that may not be opened. Only the status behind
// the error tells the two apart.
LONG LastStatus() {
    static auto* const function =
        FunctionOf<LONG WINAPI()>(GetModuleHandleW(L"ntdll.dll"), "RtlGetLastNtStatus");
    return function ? function() : 0;
}

// Deleted files stay in their folder until the last program has closed them.
bool HoldsOnlyWhatIsHeld(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(
        NullIfInvalid(FindFirstFileW((PathForWindows(folder) + L"\\*").c_str(), &found)));
    if (!search)
        return false;
    do {
        const std::wstring path = folder + L'\\' + found.cFileName;
        if (!IsDots(found.cFileName) && !IsHeld(path) && BitsOf(path) != INVALID_FILE_ATTRIBUTES)
            return false;
    } while (FindNextFileW(search.get(), &found));
    return true;
}

} // namespace

Patience PatienceOfWindows(Patience::Milliseconds limit, std::function<void()> meanwhile) {
    return {limit, [meanwhile = std::move(meanwhile)](Patience::Milliseconds time) {
                PaintUntil(nullptr, static_cast<DWORD>(time.count()));
                if (meanwhile)
                    meanwhile();
            }};
}

bool IsHeld(const std::wstring& fullPath) {
    if (OpenAt(fullPath, DELETE, 0, OPEN_EXISTING,
               FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT))
        return false;
    const DWORD code = GetLastError();
    return code == ERROR_SHARING_VIOLATION || code == ERROR_DELETE_PENDING ||
           (code == ERROR_ACCESS_DENIED && LastStatus() == statusDeletePending);
}

bool MayPass(DWORD code, const std::wstring& fullPath) {
    switch (code) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_DELETE_PENDING:
            return true;
        case ERROR_ACCESS_DENIED: // also when a file that is open is to be replaced
            return IsHeld(fullPath);
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return !HasBits(fullPath, FILE_ATTRIBUTE_DIRECTORY) && IsHeld(fullPath);
        case ERROR_DIR_NOT_EMPTY:
            return HoldsOnlyWhatIsHeld(fullPath);
        default:
            return false;
    }
}

} // namespace tamblin
