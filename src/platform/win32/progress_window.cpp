#include "platform/win32/progress_window.h"

#include <commctrl.h>

#include <cstdlib>

namespace tamblin {
namespace {

constexpr wchar_t className[] = L"Tamblin.Progress";

// Sizes in quarters of the font's height, so that they follow the user's font and density.
constexpr int widthUnits = 92;
constexpr int marginUnits = 4;
constexpr int textUnits = 6;
constexpr int gapUnits = 2;
constexpr int barUnits = 5;

// The classes that there are already stay.
void RegisterClasses() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_WAIT);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
}

// The font in which the owner writes, which has the density of its monitor; else the system's.
LOGFONTW FontLikeThatOf(HWND owner) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(owner, WM_GETFONT, 0, 0));
    LOGFONTW description{};
    if (font && GetObjectW(font, sizeof description, &description))
        return description;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

int HeightOf(const LOGFONTW& font) {
    return font.lfHeight == 0 ? 12 : std::abs(static_cast<int>(font.lfHeight));
}

} // namespace

ProgressWindow::ProgressWindow(HWND owner, const std::wstring& work, const std::wstring& object) {
    RegisterClasses();
    const LOGFONTW description = FontLikeThatOf(owner);
    font = CreateFontIndirectW(&description);
    RECT around{};
    GetWindowRect(owner, &around);
    window = CreateWindowExW(WS_EX_DLGMODALFRAME, className, L"Tamblin", WS_POPUP | WS_CAPTION,
                             around.left, around.top, 0, 0, owner, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    AddControls((HeightOf(description) + 3) / 4, work, object);
    PlaceOver(owner);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
}

ProgressWindow::~ProgressWindow() {
    DestroyWindow(window);
    DeleteObject(font);
}

// A name that is too long is cut at its end.
void ProgressWindow::AddLine(const std::wstring& line, int top, int unit) {
    const HWND label = CreateWindowExW(
        0, L"STATIC", line.c_str(), WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_ENDELLIPSIS,
        marginUnits * unit, top * unit, (widthUnits - 2 * marginUnits) * unit, textUnits * unit,
        window, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void ProgressWindow::AddControls(int unit, const std::wstring& work, const std::wstring& object) {
    constexpr int barTop = marginUnits + 2 * textUnits + gapUnits;
    AddLine(work, marginUnits, unit);
    AddLine(object, marginUnits + textUnits, unit);
    bar = CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | WS_VISIBLE, marginUnits * unit,
                          barTop * unit, (widthUnits - 2 * marginUnits) * unit, barUnits * unit,
                          window, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(bar, PBM_SETRANGE32, 0, fullBar);
    SetClientSize(widthUnits * unit, (barTop + barUnits + marginUnits) * unit);
}

// The frame has the thickness that the system gives it on this monitor.
void ProgressWindow::SetClientSize(int width, int height) {
    constexpr UINT sizeOnly = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(window, nullptr, 0, 0, width, 2 * height, sizeOnly);
    RECT client{};
    GetClientRect(window, &client);
    SetWindowPos(window, nullptr, 0, 0, 2 * width - client.right, 3 * height - client.bottom,
                 sizeOnly);
}

void ProgressWindow::PlaceOver(HWND owner) {
    RECT around{};
    if (owner == nullptr || !GetWindowRect(owner, &around))
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
    RECT own{};
    GetWindowRect(window, &own);
    const auto middle = [](LONG begin, LONG end, LONG size) {
        return (begin + end - size) / 2;
    };
    SetWindowPos(window, nullptr, middle(around.left, around.right, own.right - own.left),
                 middle(around.top, around.bottom, own.bottom - own.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ProgressWindow::Show(int part) {
    SendMessageW(bar, PBM_SETPOS, static_cast<WPARAM>(part), 0);
}

} // namespace tamblin
