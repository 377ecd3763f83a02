#include "platform/win32/busy_wait.h"

#include "base/at_exit.h"
#include "base/win32/busy_pointer.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {
namespace {

constexpr DWORD longWork = 100;       // milliseconds
constexpr DWORD betweenPictures = 50; // milliseconds

DWORD CodeOf(const std::function<bool()>& call) {
    return call() ? ERROR_SUCCESS : GetLastError();
}

DWORD WINAPI RunOnThread(void* call) {
    return CodeOf(*static_cast<const std::function<bool()>*>(call));
}

} // namespace

void LetPaint() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE))
        DispatchMessageW(&message);
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT)) {
        // Windows that cannot answer the user drop it.
    }
}

bool PaintUntil(HANDLE event, DWORD time) {
    constexpr DWORD wanted = QS_PAINT | QS_SENDMESSAGE | QS_INPUT;
    const DWORD count = event == nullptr ? 0 : 1;
    const ULONGLONG end = GetTickCount64() + time;
    for (ULONGLONG now = GetTickCount64();; now = GetTickCount64()) {
        const DWORD left = now < end ? static_cast<DWORD>(end - now) : 0;
        const DWORD result = MsgWaitForMultipleObjects(count, &event, FALSE, left, wanted);
        if (count == 1 && result == WAIT_OBJECT_0)
            return true;
        LetPaint();
        if (left == 0)
            return false;
    }
}

void BusyWatch::Tick() {
    constexpr ULONGLONG closely = 250;
    const ULONGLONG now = GetTickCount64();
    if (now - latest > closely)
        begin = now;
    latest = now;
    if (now - begin < longWork || now - painted < betweenPictures)
        return;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    LetPaint();
    if (meanwhile)
        meanwhile();
    painted = latest = GetTickCount64();
}

bool BusyWatch::During(const std::function<bool()>& call) {
    std::function<bool()> shared = call;
    DWORD code = ERROR_SUCCESS;
    if (const UniqueHandle thread{CreateThread(nullptr, 0, RunOnThread, &shared, 0, nullptr)}) {
        // What the thread works with must outlive it, also when something is thrown meanwhile.
        const AtExit join([&] { WaitForSingleObject(thread.get(), INFINITE); });
        if (WaitForSingleObject(thread.get(), longWork) == WAIT_TIMEOUT) {
            const BusyPointer hourglass;
            while (!PaintUntil(thread.get(), betweenPictures))
                if (meanwhile)
                    meanwhile();
        }
        GetExitCodeThread(thread.get(), &code);
    } else {
        code = CodeOf(call);
    }
    latest = GetTickCount64();
    SetLastError(code);
    return code == ERROR_SUCCESS;
}

} // namespace tamblin
