#include "platform/win32/win32_event_loop.h"

namespace tamblin {
namespace {

constexpr ULONGLONG betweenYields = 5; // milliseconds

} // namespace

void Win32EventLoop::Yield() {
    const ULONGLONG now = GetTickCount64();
    if (now - lastYield < betweenYields)
        return;
    lastYield = now;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (filter && filter(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace tamblin
