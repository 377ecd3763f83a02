// How long after its start the program's splash is on the screen, against a program that only shows
// an empty window (this one, started with an argument). Usage: bench_start PROGRAM
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace {

constexpr wchar_t BareClass[] = L"Tamblin.BareWindow";
constexpr int Runs = 7;

int ShowBareWindow() {
    WNDCLASSW bare{};
    bare.lpfnWndProc = DefWindowProcW;
    bare.lpszClassName = BareClass;
    RegisterClassW(&bare);
    CreateWindowW(BareClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr, nullptr,
                  nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}

// Milliseconds from the start of the process until its window is visible.
double Measure(std::wstring commandLine, const wchar_t* windowClass) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const auto start = std::chrono::steady_clock::now();
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return -1;
    HWND window = nullptr;
    while (!window || !IsWindowVisible(window)) {
        window = FindWindowW(windowClass, nullptr);
        Sleep(1);
    }
    const auto taken = std::chrono::steady_clock::now() - start;
    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return std::chrono::duration<double, std::milli>(taken).count();
}

double Median(const std::wstring& commandLine, const wchar_t* windowClass) {
    double times[Runs];
    for (double& time : times)
        time = Measure(commandLine, windowClass);
    std::sort(times, times + Runs);
    return times[Runs / 2];
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2)
        return 2;
    if (std::wstring(arguments[1]) == L"bare")
        return ShowBareWindow();
    const double bare = Median(std::wstring(L"\"") + arguments[0] + L"\" bare", BareClass);
    const double splash = Median(arguments[1], L"Tamblin.Form6");
    std::printf("empty window %.0f ms, splash %.0f ms, ratio %.2f (allowed: 200 ms)\n", bare,
                splash, splash / bare);
    return 0;
}
