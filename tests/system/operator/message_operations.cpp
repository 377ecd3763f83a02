#include "message_operations.h"

#include <chrono>
#include <stdexcept>

#include "json.h"

namespace tamblin {

namespace {

constexpr UINT answerMilliseconds = 20000;
constexpr auto longestWait = std::chrono::seconds(10);

struct BoxSearch {
    DWORD process;
    bool found;
};

BOOL CALLBACK LookForBox(HWND window, LPARAM along) {
    auto* search = reinterpret_cast<BoxSearch*>(along);
    wchar_t name[16] = L"";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 16);
    search->found = process == search->process && IsWindowVisible(window) != 0 &&
                    lstrcmpW(name, L"#32770") == 0;
    return search->found ? FALSE : TRUE;
}

bool ShowsMessageBox(DWORD process) {
    BoxSearch search{process, false};
    EnumWindows(LookForBox, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

std::string Send(HWND window, UINT message, WPARAM wide, LPARAM along) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(window, message, wide, along, SMTO_NORMAL, answerMilliseconds,
                            &result) == 0) {
        throw std::runtime_error("the window is gone or does not answer");
    }
    return JsonNumber(static_cast<LRESULT>(result));
}

std::string Post(HWND window, UINT message, WPARAM wide, LPARAM along) {
    if (PostMessageW(window, message, wide, along) == 0) {
        throw std::runtime_error("the window is gone");
    }
    return "true";
}

std::string PressUntilMessageBox(HWND button) {
    using Clock = std::chrono::steady_clock;
    DWORD process = 0;
    GetWindowThreadProcessId(button, &process);
    const Clock::time_point pressed = Clock::now();
    Post(button, BM_CLICK, 0, 0);
    while (!ShowsMessageBox(process)) {
        if (Clock::now() - pressed > longestWait) {
            throw std::runtime_error("no message box was shown");
        }
        Sleep(1);
    }
    const std::chrono::duration<double, std::milli> taken = Clock::now() - pressed;
    return JsonNumber(taken.count());
}

} // namespace tamblin
