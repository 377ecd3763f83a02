// Files and folders that another program has open, or whose deletion waits for one to close them.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "base/win32/busy_pointer.h"
#include "platform/patience.h"
#include "platform/win32/busy_wait.h"

namespace tamblin {

// The usual patience of the window's thread, which does something after each moment of waiting.
Patience PatienceOfWindows(Patience::Milliseconds limit = Patience::usual,
                           std::function<void()> meanwhile = nullptr);

// True when any other handle to it is open, or it is only waiting to vanish.
bool IsHeld(const std::wstring& fullPath);

// True when a call on the path that failed with this code may succeed once other programs let go.
bool MayPass(DWORD code, const std::wstring& fullPath);

// Makes a call of Windows until it succeeds or what stands at the path is not the reason why it
// does not. The call answers whether it succeeded; so does this, and GetLastError() tells why not.
template <typename Call>
bool Persist(const Patience& patience, const std::wstring& fullPath, const Call& call) {
    DWORD code = ERROR_SUCCESS;
    std::unique_ptr<BusyPointer> hourglass;
    patience.Outwait([&] {
        code = call() ? ERROR_SUCCESS : GetLastError();
        const bool held = code != ERROR_SUCCESS && MayPass(code, fullPath);
        if (held && !hourglass)
            hourglass = std::make_unique<BusyPointer>();
        return held;
    });
    hourglass.reset();
    SetLastError(code);
    return code == ERROR_SUCCESS;
}

} // namespace tamblin
