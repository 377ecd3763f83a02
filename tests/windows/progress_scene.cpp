#include "windows/progress_scene.h"

#include <commctrl.h>

namespace tamblin {
namespace {

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT)
        ++ProgressOwner::paintings;
    if (message == WM_LBUTTONDOWN)
        ++ProgressOwner::clicks;
    if (message == WM_GETFONT)
        return reinterpret_cast<LRESULT>(ProgressOwner::font);
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

ProgressOwner::ProgressOwner() {
    WNDCLASSW ownerClass{};
    ownerClass.lpfnWndProc = OwnerProcedure;
    ownerClass.hInstance = GetModuleHandleW(nullptr);
    ownerClass.lpszClassName = L"ProgressOwner";
    RegisterClassW(&ownerClass);
    window = CreateWindowW(ownerClass.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                           100, 600, 400, nullptr, nullptr, ownerClass.hInstance, nullptr);
    paintings = clicks = 0;
}

ProgressOwner::~ProgressOwner() {
    DestroyWindow(window);
}

Watcher::Watcher(std::function<void()> atEachLook)
    : look(std::move(atEachLook)), thread([this] {
          while (!ended) {
              look();
              Sleep(20);
          }
      }) {}

Watcher::~Watcher() {
    ended = true;
    thread.join();
}

HWND ShownProgressWindow() {
    return FindWindowW(L"Tamblin.Progress", nullptr);
}

HWND ShownProgressBar() {
    const HWND window = ShownProgressWindow();
    return window && IsWindowVisible(window)
               ? FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr)
               : nullptr;
}

bool Says(HWND window, const std::wstring& wanted) {
    HWND label = nullptr;
    while ((label = FindWindowExW(window, label, L"Static", nullptr)) != nullptr) {
        wchar_t text[100]{};
        SendMessageW(label, WM_GETTEXT, 100, reinterpret_cast<LPARAM>(text));
        if (text == wanted)
            return true;
    }
    return false;
}

} // namespace tamblin
