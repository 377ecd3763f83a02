// The main window with many rows: how long it takes to show a folder of 10,000 files or a host of
// 10,000 characters, from the click until the list is painted, and how long one change of its size
// takes until everything is painted. Files and folders are in memory: what is measured is the
// window.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "app/main_window.h"
#include "settings/settings_file.h"
#include "support/platform_fake.h"
#include "support/processor_time.h"
#include "ui/application.h"
#include "ui/control_id.h"

namespace tamblin {
namespace {

constexpr size_t rows = 10'000;
constexpr int rounds = 3;
constexpr int sizes = 60;
constexpr double picture = 1000.0 / 60; // milliseconds that one picture may take

class NoHandOver : public HandOver {
  public:
    void Show(NextWindow) override {}
};

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

class Scene {
  public:
    Scene() {
        for (const wchar_t* host : {L"C:\\small\\", L"C:\\large\\"}) {
            fake.files.AddFile(std::wstring(host) + L"ombrel.exe");
            fake.files.AddFile(std::wstring(host) + L"ombrel.rc");
        }
        for (size_t number = 0; number < rows; ++number) {
            const std::wstring character = L"C:\\large\\character" + std::to_wstring(number);
            fake.files.AddFolder(character);
            fake.files.AddFile(character + L".obl");
            fake.files.AddFile(L"C:\\packages\\many\\package" + std::to_wstring(number) + L".lzh");
        }
        fake.files.AddFolder(L"C:\\packages\\none");
        fake.files.KeepLog(false);
        state.HostFolders[1] = state.DefaultFolder = L"C:\\small";
        state.HostFolders[2] = L"C:\\large";
        state.HostFolderCount = 2;
        state.ViewFolder = L"C:\\packages";
        form = &application.Open<Form1>(application, fake.platform, state, file, handOver);
        form->Show();
        Paint();
    }

    // Handles all that waits, and leaves nothing unpainted.
    void Paint() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (application.TakesMessage(message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        RedrawWindow(form->Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

    double OpenFolder(const wchar_t* name) {
        const HWND tree = Control(ControlKind::List, 1);
        const LRESULT row = RowThatEndsIn(tree, name);
        return Milliseconds([&] {
            SendMessageW(tree, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
            Notify(tree, LBN_DBLCLK);
            Paint();
        });
    }

    double ChooseHost(int entry) {
        const HWND combo = Control(ControlKind::Combo, 1);
        return Milliseconds([&] {
            SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
            Notify(combo, CBN_SELCHANGE);
            Paint();
        });
    }

    double Resize(int step) {
        return Milliseconds([&] {
            SetWindowPos(form->Handle(), nullptr, 0, 0, 800 + 4 * step, 600 + 2 * step,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            Paint();
        });
    }

    LRESULT Rows(int list) const {
        return SendMessageW(Control(ControlKind::List, list), LB_GETCOUNT, 0, 0);
    }

  private:
    HWND Control(ControlKind kind, int number) const {
        return GetDlgItem(form->Handle(), ControlId({kind, number}));
    }
    // Rows are indented.
    static LRESULT RowThatEndsIn(HWND list, const std::wstring& name) {
        for (LRESULT row = SendMessageW(list, LB_GETCOUNT, 0, 0); row-- > 0;) {
            wchar_t text[MAX_PATH]{};
            SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(text));
            if (std::wstring(text).ends_with(name))
                return row;
        }
        return LB_ERR;
    }
    static void Notify(HWND control, int code) {
        SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                     reinterpret_cast<LPARAM>(control));
    }

    PlatformFake fake;
    Application application{fake.messages, [] {
                                ExitProcess(1);
                            }};
    SettingsState state;
    SettingsFile file{fake.platform, state};
    NoHandOver handOver;
    Form1* form = nullptr;
};

void Print(const char* what, double milliseconds, double against, LRESULT shown) {
    std::printf("%-44s %10.1f ms %8.2f   (%lld rows)\n", what, milliseconds, against,
                static_cast<long long>(shown));
    std::fflush(stdout);
}

void Run() {
    Scene scene;
    std::printf("%-44s %13s %8s\n", "", "time", "ratio");
    double few = 1e9;
    double many = 1e9;
    for (int round = 0; round < rounds; ++round) {
        few = std::min(few, scene.OpenFolder(L"none"));
        scene.OpenFolder(L"packages");
        many = std::min(many, scene.OpenFolder(L"many"));
        if (round + 1 < rounds)
            scene.OpenFolder(L"packages");
    }
    Print("click to painted list, 10,000 files", many, many / few, scene.Rows(2));
    few = many = 1e9;
    for (int round = 0; round < rounds; ++round) {
        few = std::min(few, scene.ChooseHost(0));
        many = std::min(many, scene.ChooseHost(1));
    }
    Print("click to painted list, 10,000 characters", many, many / few, scene.Rows(3));
    double all = 0;
    double longest = 0;
    const double workedBefore = ProcessorMilliseconds();
    for (int step = 0; step < sizes; ++step) {
        const double time = scene.Resize(step);
        all += time;
        longest = std::max(longest, time);
    }
    const double worked = (ProcessorMilliseconds() - workedBefore) / sizes;
    Print("WM_SIZE, processor time, mean", worked, worked / picture, scene.Rows(3));
    Print("WM_SIZE until painted, mean", all / sizes, all / sizes / picture, scene.Rows(3));
    Print("WM_SIZE until painted, longest", longest, longest / picture, scene.Rows(3));
    std::printf("(ratios: to the same with no rows; of a sixtieth of a second)\n");
}

} // namespace
} // namespace tamblin

int wmain() {
    tamblin::Run();
    return 0;
}
