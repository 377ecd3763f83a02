// After any change of its size a form looks as if it had just been painted, and while its edge is
// dragged each control is painted once for each size, if at all.
#include <deque>

#include "app/main_window.h"
#include "install/confirmation_window.h"
#include "maintenance/folder_check_window.h"
#include "settings/folder_management_window.h"
#include "setup/choice_window.h"
#include "setup/manual_folder_window.h"
#include "support/hosts.h"
#include "windows/form_check.h"
#include "windows/screen_picture.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class ResizeTest : public WindowScene {
  protected:
    void SetUp() override {
        for (const wchar_t* host : {L"C:\\Vimora", L"C:\\Second"})
            AddHost(fake.files, host);
        for (int number = 0; number < 40; ++number) {
            const std::wstring name = L"表ソ能 " + std::to_wstring(number);
            AddCharacter(fake.files, L"C:\\Vimora", name);
            fake.files.AddFile(L"C:\\Vimora\\lonely " + std::to_wstring(number) + L".obl");
            fake.files.AddFolder(L"C:\\Vimora\\orphan " + std::to_wstring(number));
            fake.files.AddFolder(L"C:\\packages\\a folder with a rather long name " + name);
            fake.files.AddFile(L"C:\\packages\\a package with a rather long name " + name +
                               L".lzh");
        }
        for (size_t slot = 1; slot <= 10; ++slot)
            state.HostFolders[slot] = L"C:\\packages\\a folder with a rather long name " +
                                      std::to_wstring(slot) + L"\\Vimora";
        state.HostFolders[1] = L"C:\\Vimora";
        state.HostFolderCount = 3;
        state.WorkingFolderCount = 10;
        state.DefaultFolder = L"C:\\Vimora";
        state.ViewFolder = L"C:\\packages";
        state.BrowseStartFolder = L"C:\\packages\\";
        state.KvaOption = L"OFF";
        for (SelectionList* list :
             {&lists.toInstall, &lists.cannotInstall, &lists.alreadyInstalled})
            for (int number = 0; number < 30; ++number)
                list->Add(L"an entry with a rather long name, such as users give to their files " +
                          std::to_wstring(number));
        MainModel model(fake.platform, state);
        model.combo.entries = {L"C:\\Vimora"};
        model.combo.selected = 0;
        check.RunCheck(model);
    }

    // Each resizable form once, with more in its lists than they can show.
    void ForEachForm(const std::function<void(Form&)>& step) {
        With(application.Open<Form1>(application, fake.platform, state, file, handOver), step);
        With(application.Open<Form3>(application, fake.platform, state, handOver), step);
        With(application.Open<Form5>(application, state, handOver), step);
        With(application.Open<Form7>(application, lists, answer, nullptr), step);
        With(application.Open<Form8>(application, state, handOver), step);
        With(application.Open<Form11>(application, check, nullptr), step);
    }
    void With(Form& form, const std::function<void(Form&)>& step) {
        const testing::ScopedTrace trace(__FILE__, __LINE__,
                                         testing::PrintToString(ClassOf(form.Handle())));
        form.Show();
        ScrollListsToTheirEnds(form);
        Settle();
        step(form);
        form.Close();
        Pump();
    }
    static void ScrollListsToTheirEnds(const Form& form) {
        for (const Control* control : form.Controls())
            if (control->Name().kind == ControlKind::List) {
                SendMessageW(control->Handle(), WM_VSCROLL, SB_BOTTOM, 0);
                SendMessageW(control->Handle(), WM_HSCROLL, SB_RIGHT, 0);
            }
    }

    void ExpectFreshlyPainted(const Form& form) {
        Settle();
        const ScreenPicture before(form.Handle());
        RedrawWindow(form.Handle(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
        Settle();
        const ScreenPicture after(form.Handle());
        EXPECT_GT(after.Colours(), 4u) << "the screen shows nothing";
        EXPECT_EQ(before.DifferencesFrom(after), "");
    }

    static void SetSize(const Form& form, int width, int height) {
        SetWindowPos(form.Handle(), nullptr, 10, 10, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }

    SettingsState state;
    SettingsFile file{fake.platform, state};
    HandOverFake handOver;
    InstallConfirmation lists;
    std::int16_t answer = 0;
    FolderCheck check{fake.platform};
};

TEST_F(ResizeTest, LooksFreshlyPaintedAtEverySize) {
    ForEachForm([&](Form& form) {
        for (const auto& [width, height] : {std::pair{1100, 800}, {700, 600}, {900, 500}, {1, 1}}) {
            const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(width));
            SetSize(form, width, height);
            ExpectFreshlyPainted(form);
        }
    });
}

TEST_F(ResizeTest, LooksFreshlyPaintedMaximisedAndRestored) {
    ForEachForm([&](Form& form) {
        ShowWindow(form.Handle(), SW_MAXIMIZE);
        ExpectFreshlyPainted(form);
        ShowWindow(form.Handle(), SW_RESTORE);
        ExpectFreshlyPainted(form);
    });
}

TEST_F(ResizeTest, LooksFreshlyPaintedAfterADrag) {
    ForEachForm([&](Form& form) {
        SendMessageW(form.Handle(), WM_ENTERSIZEMOVE, 0, 0);
        for (int step = 0; step < 12; ++step) {
            SetSize(form, 600 + step * 43, 820 - step * 30);
            Pump();
        }
        SendMessageW(form.Handle(), WM_EXITSIZEMOVE, 0, 0);
        ExpectFreshlyPainted(form);
    });
}

// How often a window is painted.
class PaintCount {
  public:
    explicit PaintCount(HWND countedWindow) : window(countedWindow) {
        SetWindowSubclass(window, Procedure, SubclassId, reinterpret_cast<DWORD_PTR>(this));
    }
    ~PaintCount() { RemoveWindowSubclass(window, Procedure, SubclassId); }
    PaintCount(const PaintCount&) = delete;
    PaintCount& operator=(const PaintCount&) = delete;

    int count = 0;
    int frames = 0;

  private:
    static constexpr UINT_PTR SubclassId = 99;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR data) {
        if (message == WM_PAINT)
            ++reinterpret_cast<PaintCount*>(data)->count;
        if (message == WM_NCPAINT)
            ++reinterpret_cast<PaintCount*>(data)->frames;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    HWND window;
};

// A control before and after a change of its form's size.
class WatchedControl {
  public:
    explicit WatchedControl(const Control& watched)
        : control(watched), paintings(watched.Handle()), before(AreaOf(watched.Handle())) {}

    void ExpectPaintedForItsMove() const {
        const HWND window = control.Handle();
        const RECT after = AreaOf(window);
        EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << control.Name().number;
        const bool stayed = EqualRect(&before, &after) || IsRectEmpty(&after);
        EXPECT_EQ(paintings.count, stayed ? 0 : 1) << GetDlgCtrlID(window);
        // A list's scroll bars may come, go or change besides.
        if (control.Name().kind != ControlKind::List) {
            EXPECT_LE(paintings.frames, stayed ? 0 : 1) << GetDlgCtrlID(window);
        }
    }

  private:
    const Control& control;
    const PaintCount paintings;
    const RECT before;
};

// What flickers is what is painted twice, what is painted without need, and what waits unpainted
// while the next size comes.
TEST_F(ResizeTest, PaintsEachControlAtMostOnceForASizeAndAtOnce) {
    ForEachForm([&](Form& form) {
        SetSize(form, 800, 700);
        Settle();
        std::deque<WatchedControl> controls;
        for (const Control* control : form.Controls())
            if (control->IsVisible() && control->Name().kind != ControlKind::Combo)
                controls.emplace_back(*control);
        SetSize(form, 830, 720);
        for (const WatchedControl& control : controls)
            control.ExpectPaintedForItsMove();
    });
}

} // namespace
} // namespace tamblin
