// Stands in for the host program: shows in a small window how it was started and which character
// ombrel.rc named when it was read, and appends the same to ombrel.log beside itself (UTF-8, one
// "name: value" line each; "window" is the last). Whoever starts the host may put ombrel.rc back
// meanwhile, so what is read is left to chance.
#include <windows.h>

#include <fstream>
#include <iterator>
#include <string>

#include "../started_program.h"

namespace {

using namespace tamblin;

std::wstring shownText;

std::wstring Decoded(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), size)));
    return text;
}

// The first line of ombrel.rc, or a word in angle brackets for a file that cannot be read.
std::wstring StartUpLine() {
    std::ifstream file((ProgramFolder() + L"ombrel.rc").c_str(), std::ios::binary);
    if (!file)
        return L"<none>";
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return Decoded(bytes.substr(0, bytes.find_first_of("\r\n")));
}

void Tell(const std::wstring& name, const std::wstring& value) {
    std::ofstream log((ProgramFolder() + L"ombrel.log").c_str(), std::ios::binary | std::ios::app);
    log << Utf8(name + L": " + value) << '\n';
    shownText += name + L": " + value + L"\n";
}

void Paint(HWND window) {
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(window, &paint);
    RECT area;
    GetClientRect(window, &area);
    InflateRect(&area, -8, -8);
    SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, shownText.c_str(), -1, &area, DT_NOPREFIX | DT_WORDBREAK);
    EndPaint(window, &paint);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wide, LPARAM along) {
    switch (message) {
        case WM_PAINT:
            Paint(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, wide, along);
    }
}

HWND MakeWindow(HINSTANCE instance) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = L"StandIn.Ombrel";
    RegisterClassW(&windowClass);
    return CreateWindowW(windowClass.lpszClassName, L"ombrel", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                         CW_USEDEFAULT, 480, 200, nullptr, nullptr, instance, nullptr);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    Tell(L"rc", StartUpLine());
    Tell(L"command line", GetCommandLineW());
    Tell(L"show command", std::to_wstring(ShowCommand()));
    Tell(L"current folder", CurrentFolder());

    const HWND window = MakeWindow(instance);
    ShowWindow(window, static_cast<int>(ShowCommand()));
    Tell(L"window", L"shown");

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
