#include "ui/dpi.h"

#include "base/win32/function_of.h"

namespace tamblin {
namespace {

// Functions newer than Windows 7 are looked up when first wanted.
template <class Function>
Function* UserFunction(const char* name) {
    return FunctionOf<Function>(GetModuleHandleW(L"user32.dll"), name);
}

unsigned SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return static_cast<unsigned>(dpi);
}

} // namespace

unsigned DpiOf(HWND window) {
    static const auto getDpi = UserFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    const unsigned dpi = getDpi ? getDpi(window) : 0;
    return dpi ? dpi : SystemDpi();
}

GdiObject<HFONT> CreateMessageFont(unsigned dpi) {
    static const auto infoForDpi =
        UserFunction<BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (infoForDpi && infoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi))
        return GdiObject<HFONT>(CreateFontIndirectW(&metrics.lfMessageFont));
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW& font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
    font.lfWidth = 0;
    return GdiObject<HFONT>(CreateFontIndirectW(&font));
}

RECT AroundClientArea(const RECT& client, DWORD style, DWORD extendedStyle, unsigned dpi) {
    static const auto adjust =
        UserFunction<BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    RECT window = client;
    if (!adjust || !adjust(&window, style, FALSE, extendedStyle, dpi))
        AdjustWindowRectEx(&window, style, FALSE, extendedStyle);
    return window;
}

int SystemMetric(int index, unsigned dpi) {
    static const auto metric = UserFunction<int WINAPI(int, UINT)>("GetSystemMetricsForDpi");
    return metric ? metric(index, dpi) : GetSystemMetrics(index);
}

RECT WorkAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

} // namespace tamblin
