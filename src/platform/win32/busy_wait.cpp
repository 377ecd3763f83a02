#include "platform/win32/busy_wait.h"

namespace tamblin {

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
    constexpr ULONGLONG longWork = 100;
    constexpr ULONGLONG betweenPictures = 50;
    const ULONGLONG now = GetTickCount64();
    if (now - latest > closely)
        begin = now;
    latest = now;
    if (now - begin < longWork || now - painted < betweenPictures)
        return;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    LetPaint();
    painted = latest = GetTickCount64();
}

} // namespace tamblin
