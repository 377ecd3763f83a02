// The main window with many rows: how long it takes to show a folder of 10,000 files or a host of
// 10,000 characters, from the click until the list is painted, and how long one change of its size
// takes until everything is painted, also against a bare window with the same controls. Files and
// folders are in memory: what is measured is the window.
#include <objbase.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

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

void SizeTo(HWND window, int step) {
    SetWindowPos(window, nullptr, 0, 0, 800 + 4 * step, 600 + 2 * step,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// What the system alone needs for a window with controls of the same classes, at the same places:
// each of them moves with every size.
class BareWindow {
  public:
    explicit BareWindow(HWND like) {
        window = CreateWindowExW(0, L"#32770", L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0,
                                 800, 600, nullptr, nullptr, nullptr, nullptr);
        for (HWND child = GetWindow(like, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (IsWindowVisible(child))
                AddOneLike(child);
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
    }
    ~BareWindow() { DestroyWindow(window); }
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;

    double Resize(int step) {
        return Milliseconds([&] {
            SizeTo(window, step);
            HDWP moves = BeginDeferWindowPos(static_cast<int>(controls.size()));
            for (const auto& [control, place] : controls)
                moves = DeferWindowPos(moves, control, nullptr, place.left + step, place.top + step,
                                       place.right - place.left + step, place.bottom - place.top,
                                       SWP_NOZORDER | SWP_NOACTIVATE);
            EndDeferWindowPos(moves);
            RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        });
    }

  private:
    struct Placed {
        HWND control;
        RECT place;
    };

    void AddOneLike(HWND child) {
        wchar_t className[100]{};
        wchar_t text[100]{};
        GetClassNameW(child, className, 100);
        GetWindowTextW(child, text, 100);
        auto style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
        const bool isList = std::wstring(className) == L"ListBox";
        if (isList)
            style &= ~static_cast<DWORD>(LBS_OWNERDRAWFIXED);
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
        const HWND control =
            CreateWindowExW(static_cast<DWORD>(GetWindowLongW(child, GWL_EXSTYLE)), className, text,
                            style, place.left, place.top, place.right - place.left,
                            place.bottom - place.top, window, nullptr, nullptr, nullptr);
        SendMessageW(control, WM_SETFONT, SendMessageW(child, WM_GETFONT, 0, 0), FALSE);
        for (int row = 0; isList && row < 100; ++row)
            SendMessageW(control, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"package1000.lzh"));
        controls.push_back({control, place});
    }

    HWND window;
    std::vector<Placed> controls;
};

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
            SizeTo(form->Handle(), step);
            Paint();
        });
    }

    HWND Handle() const { return form->Handle(); }

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

// In turns with the bare window.
void MeasureSizes(Scene& scene) {
    BareWindow bareWindow(scene.Handle());
    double all = 0;
    double longest = 0;
    double worked = 0;
    double bare = 0;
    for (int step = 0; step < sizes; ++step) {
        const double workedBefore = ProcessorMilliseconds();
        const double time = scene.Resize(step);
        worked += ProcessorMilliseconds() - workedBefore;
        all += time;
        longest = std::max(longest, time);
        bare += bareWindow.Resize(step);
    }
    const LRESULT shown = scene.Rows(3);
    Print("WM_SIZE, processor time, mean", worked / sizes, worked / sizes / picture, shown);
    Print("WM_SIZE until painted, mean", all / sizes, all / sizes / picture, shown);
    Print("WM_SIZE until painted, longest", longest, longest / picture, shown);
    Print("the same, a bare window, mean", bare / sizes, bare / sizes / picture, 100);
    Print("WM_SIZE until painted, to the bare window's", all / sizes, all / bare, shown);
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
    MeasureSizes(scene);
    std::printf(
        "(ratios: to the same with no rows; of a sixtieth of a second, the last to the bare "
        "window)\n");
}

} // namespace
} // namespace tamblin

int wmain() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); // for the pictures
    tamblin::Run();
    CoUninitialize();
    return 0;
}
