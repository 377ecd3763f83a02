#include "message_operations.h"

#include <chrono>
#include <stdexcept>

#include "json.h"

namespace tamblin {

namespace {

using Clock = std::chrono::steady_clock;

// No loaded machine takes as long; who waits until the end waits for something that never comes.
constexpr UINT answerMilliseconds = 120000;
constexpr auto longestWait = std::chrono::milliseconds(answerMilliseconds);

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

BOOL CALLBACK LookForButton(HWND window, LPARAM button) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    if (lstrcmpiW(name, L"Button") != 0)
        return TRUE;
    *reinterpret_cast<HWND*>(button) = window;
    return FALSE;
}

// Any button of the window that `window` belongs to.
HWND ButtonBeside(HWND window) {
    HWND button = nullptr;
    EnumChildWindows(GetAncestor(window, GA_ROOT), LookForButton,
                     reinterpret_cast<LPARAM>(&button));
    if (button == nullptr)
        throw std::runtime_error("the window has no button");
    return button;
}

bool IsHeldDown(HWND button) {
    return (Ask(button, BM_GETSTATE) & BST_PUSHED) != 0;
}

// What is posted has its turn in order: once the button is drawn held down, all before it is done.
void WaitUntilHeldDown(HWND button) {
    PostMessageW(button, BM_SETSTATE, TRUE, 0);
    const Clock::time_point posted = Clock::now();
    while (!IsHeldDown(button)) {
        if (Clock::now() - posted > longestWait)
            throw std::runtime_error("the window does not get round to what it was given");
        Sleep(1);
    }
    Ask(button, BM_SETSTATE, FALSE);
}

} // namespace

LRESULT Ask(HWND window, UINT message, WPARAM wide, LPARAM along) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(window, message, wide, along, SMTO_NORMAL, answerMilliseconds,
                            &result) == 0) {
        throw std::runtime_error("the window is gone or does not answer");
    }
    return static_cast<LRESULT>(result);
}

std::string Send(HWND window, UINT message, WPARAM wide, LPARAM along) {
    return JsonNumber(Ask(window, message, wide, along));
}

std::string Post(HWND window, UINT message, WPARAM wide, LPARAM along) {
    if (PostMessageW(window, message, wide, along) == 0)
        throw std::runtime_error("the window is gone");
    return "true";
}

std::string WaitUntilHandled(HWND window) {
    HWND button = nullptr;
    try {
        button = ButtonBeside(window);
        WaitUntilHeldDown(button);
    } catch (const std::runtime_error&) {
        if (IsWindow(window) != 0 && IsWindow(button) != 0)
            throw;
        return "false";
    }
    return "true";
}

std::string PressUntilMessageBox(HWND button) {
    DWORD process = 0;
    GetWindowThreadProcessId(button, &process);
    const Clock::time_point pressed = Clock::now();
    Post(button, BM_CLICK);
    while (!ShowsMessageBox(process)) {
        if (Clock::now() - pressed > longestWait)
            throw std::runtime_error("no message box was shown");
        Sleep(1);
    }
    const std::chrono::duration<double, std::milli> taken = Clock::now() - pressed;
    return JsonNumber(taken.count());
}

} // namespace tamblin
