#include "platform/win32/program_instance.h"

#include <cwchar>
#include <iterator>

namespace tamblin {
namespace {

constexpr wchar_t FormClasses[] = L"Tamblin.Form"; // and a number

// Windows are visited from the front to the back.
BOOL CALLBACK FindFront(HWND window, LPARAM result) {
    wchar_t name[32]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (std::wcsncmp(name, FormClasses, std::size(FormClasses) - 1) != 0 ||
        process == GetCurrentProcessId() || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

} // namespace

// A mutex that exists but may not be opened (ERROR_ACCESS_DENIED) belongs to a copy that runs with
// more rights. Any other failure must not keep the program from starting.
ProgramInstance::ProgramInstance(const std::wstring& name)
    : mutex(CreateMutexW(nullptr, FALSE, name.c_str())) {
    const DWORD code = GetLastError();
    isFirst = mutex ? code != ERROR_ALREADY_EXISTS : code != ERROR_ACCESS_DENIED;
}

// What was active last among the window and those it owns may be a question to the user.
void ProgramInstance::BringToFront() const {
    HWND window = nullptr;
    EnumWindows(FindFront, reinterpret_cast<LPARAM>(&window));
    if (!window)
        return;
    if (IsIconic(window))
        ShowWindowAsync(window, SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(window));
}

} // namespace tamblin
