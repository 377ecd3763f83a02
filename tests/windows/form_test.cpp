// The window kit: reporting failures, activation, closing, keyboard, pointer, timers.
#include "ui/form.h"

#include "base/win32/busy_pointer.h"
#include "ui/at_exit.h"
#include "ui/button.h"
#include "ui/text_box.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class PlainForm : public Form {
  public:
    explicit PlainForm(Application& owner, int itsNumber, HWND ownerWindow = nullptr)
        : Form(owner, itsNumber, L"Plain", FormFrame::Resizable, ownerWindow), number(itsNumber) {
        auto column = Column();
        column->Add(first).Add(second).Add(third).Add(text).Gap(20, 1);
        SetLayout(std::move(column));
        SetFirstFocus(first);
    }

    using Form::StartTimer;
    using Form::StopTimer;

    const int number;
    int activations = 0;
    int closings = 0;
    int ticks = 0;
    bool mayClose = true;
    std::vector<CloseReason> asked;
    std::vector<std::wstring> keys;
    std::vector<Control*> pointedAt;
    std::function<void()> onTick;
    std::function<void()> onClosing;

    Button first{*this, 1, L"First"};
    Button second{*this, 2, L"Second"};
    Button third{*this, 3, L"Third"};
    TextBox text{*this, 1, TextBox::Access::Editable};

  private:
    void Activated() override { ++activations; }
    bool MayClose(CloseReason reason) override {
        asked.push_back(reason);
        return mayClose;
    }
    void Closing() override {
        ++closings;
        if (onClosing)
            onClosing();
    }
    void Tick() override {
        ++ticks;
        if (onTick)
            onTick();
    }
    void PointerOver(Control* control) override { pointedAt.push_back(control); }
    void ReturnPressed() override { keys.push_back(L"return"); }
    void EscapePressed() override { keys.push_back(L"escape"); }
};

class FormTest : public WindowScene {
  protected:
    PlainForm& Open(int number) {
        auto& opened = application.Open<PlainForm>(application, number);
        opened.Show();
        Pump();
        return opened;
    }
    // Shows a modal form over the first one and closes it after `step`.
    void ShowModalAnd(const std::function<void()>& step) {
        PlainForm modal(application, 102, form.Handle());
        modal.onTick = [&] {
            step();
            modal.Close();
        };
        modal.StartTimer(10);
        modal.ShowModal();
        EXPECT_FALSE(modal.IsOpen());
    }
    // Presses a button whose command does this.
    static void Command(PlainForm& clicked, std::function<void()> command) {
        clicked.first.onClick = std::move(command);
        Click(clicked.first.Handle());
    }

    PlainForm& form = Open(101);
};

TEST_F(FormTest, HasTheClassOfItsNumberAndControlsByTheirNames) {
    wchar_t name[64]{};
    GetClassNameW(form.Handle(), name, 64);
    EXPECT_STREQ(name, L"Tamblin.Form101");
    EXPECT_EQ(ControlId({ControlKind::Command, 12}), 1240);
    EXPECT_EQ(ControlId({ControlKind::Option, 1, 2}), 6022);
    EXPECT_EQ(ControlId({ControlKind::Image, 1}), 8020);
    EXPECT_EQ(Find(form, ControlKind::Command, 2), form.second.Handle());
}

// Failures of commands

TEST_F(FormTest, ReportsTheFailureOfACommandWithNumberAndText) {
    Command(form, [] { throw RunTimeError(ErrorNumber::FileNotFound); });
    ASSERT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(fake.messages.shown[0].text, L"実行時エラー '53':\n\nファイルが見つかりません。");
    EXPECT_EQ(fake.messages.shown[0].icon, MessageIcon::Stop);
    EXPECT_EQ(timesEnded, 0);
    EXPECT_TRUE(form.IsOpen());
}

TEST_F(FormTest, ReportsExhaustedMemory) {
    Command(form, [] { throw std::bad_alloc(); });
    ASSERT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(fake.messages.shown[0].text.substr(0, 10), L"実行時エラー '7'");
}

TEST_F(FormTest, EndsTheProcessAfterTheReportOfAFatalFailure) {
    fake.messages.onShow = [&](const auto&) {
        EXPECT_EQ(timesEnded, 0);
    };
    Command(form, [] { throw RunTimeError(ErrorNumber::DiskFull).AsFatal(); });
    EXPECT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(timesEnded, 1);
}

TEST_F(FormTest, EnablesWhatAFailedCommandHadDisabledBeforeItReports) {
    auto& other = Open(102);
    fake.messages.onShow = [&](const auto&) {
        EXPECT_TRUE(IsEnabled(form.Handle()));
        EXPECT_TRUE(IsEnabled(other.Handle()));
    };
    Command(form, [&] {
        const Form::Held held(form);
        const Form::Held otherHeld(other);
        throw RunTimeError(ErrorNumber::DiskFull);
    });
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(FormTest, ReportsAFailureInATimerTickAndGoesOnTicking) {
    form.onTick = [&] {
        if (form.ticks == 1)
            throw RunTimeError(ErrorNumber::DiskNotReady);
    };
    form.StartTimer(10);
    EXPECT_TRUE(PumpUntil([&] { return form.ticks >= 3; }));
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(FormTest, DoesNotTickWhileATickIsBeingHandled) {
    int depth = 0;
    int deepest = 0;
    form.onTick = [&] {
        ++depth;
        deepest = std::max(deepest, depth);
        Sleep(30);
        Pump();
        --depth;
    };
    form.StartTimer(10);
    EXPECT_TRUE(PumpUntil([&] { return form.ticks >= 2; }));
    EXPECT_EQ(deepest, 1);
}

// Activation

TEST_F(FormTest, IsActivatedWhenItIsShownAndWhenTheFocusComesFromAnotherForm) {
    EXPECT_EQ(form.activations, 1);
    auto& other = Open(102);
    SetActiveWindow(form.Handle());
    Pump();
    EXPECT_EQ(form.activations, 2);
    EXPECT_EQ(other.activations, 1);
    form.Hide();
    Pump();
    form.Show();
    Pump();
    EXPECT_EQ(form.activations, 3);
}

TEST_F(FormTest, IsNotActivatedByAWindowThatIsNoForm) {
    const HWND box = CreateWindowExW(0, L"Static", L"box", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                     form.Handle(), nullptr, nullptr, nullptr);
    SetActiveWindow(box);
    Pump();
    ASSERT_EQ(GetActiveWindow(), box);
    DestroyWindow(box);
    SetActiveWindow(form.Handle());
    Pump();
    EXPECT_EQ(form.activations, 1);
}

TEST_F(FormTest, IsNotActivatedWhileAnOperationHoldsIt) {
    form.Hold();
    auto& other = Open(102);
    other.Close();
    Pump();
    SetActiveWindow(form.Handle());
    Pump();
    form.Release();
    Pump();
    EXPECT_EQ(form.activations, 1);
}

TEST_F(FormTest, GivesTheFocusBackToTheControlThatHadIt) {
    SetFocus(form.third.Handle());
    auto& other = Open(102);
    EXPECT_EQ(GetFocus(), other.first.Handle());
    SetActiveWindow(form.Handle());
    EXPECT_EQ(GetFocus(), form.third.Handle());
}

// Modal forms

TEST_F(FormTest, ModalFormDisablesTheOthersAndPausesTheBusyPointerUntilItIsClosed) {
    const BusyPointer busy;
    bool seen = false;
    ShowModalAnd([&] {
        seen = true;
        EXPECT_FALSE(IsEnabled(form.Handle()));
        EXPECT_FALSE(BusyPointer::IsShown());
    });
    EXPECT_TRUE(seen);
    EXPECT_TRUE(BusyPointer::IsShown());
    EXPECT_TRUE(IsEnabled(form.Handle()));
    EXPECT_EQ(GetActiveWindow(), form.Handle());
}

TEST_F(FormTest, ModalFormLeavesAHeldOwnerHeldButActive) {
    form.Hold();
    ShowModalAnd([] {});
    EXPECT_FALSE(IsEnabled(form.Handle()));
    EXPECT_EQ(GetActiveWindow(), form.Handle());
    EXPECT_EQ(form.activations, 1);
}

// Closing

TEST_F(FormTest, AsksWhoeverClosesItUnlessItIsDisabled) {
    form.Hold();
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsOpen());
    EXPECT_TRUE(form.asked.empty());
    form.Release();
    form.mayClose = false;
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsOpen());
    EXPECT_EQ(form.asked, std::vector{CloseReason::User});
    form.mayClose = true;
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(form.IsOpen());
    auto& other = Open(102);
    other.Close();
    EXPECT_EQ(other.asked, std::vector{CloseReason::Program});
    EXPECT_EQ(other.closings, 1);
}

TEST_F(FormTest, ClosesAllWithTheMostRecentlyOpenedFirst) {
    std::vector<int> order;
    for (PlainForm* opened : {&form, &Open(102), &Open(103)})
        opened->onClosing = [&order, opened] {
            order.push_back(opened->number);
        };
    application.CloseAll();
    EXPECT_EQ(order, (std::vector{103, 102, 101}));
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, AFormThatClosesAllIsClosedOnce) {
    Open(102);
    form.onClosing = [&] {
        application.CloseAll();
    };
    form.Close();
    EXPECT_EQ(form.closings, 1);
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, TheEndOfTheSessionClosesAllWithoutAsking) {
    auto& other = Open(102);
    form.mayClose = other.mayClose = false;
    EXPECT_NE(SendMessageW(form.Handle(), WM_QUERYENDSESSION, 0, 0), 0);
    SendMessageW(form.Handle(), WM_ENDSESSION, FALSE, 0); // it goes on
    EXPECT_TRUE(form.IsOpen());
    SendMessageW(form.Handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(form.asked.empty());
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, TheLoopEndsWithTheLastForm) {
    form.onTick = [&] {
        application.CloseAll();
    };
    form.StartTimer(10);
    application.Run();
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, ACommandMayCloseItsOwnForm) {
    bool ranToItsEnd = false;
    Command(form, [&] {
        form.Close();
        ranToItsEnd = true;
    });
    EXPECT_TRUE(ranToItsEnd);
    EXPECT_FALSE(form.IsOpen());
}

// Keyboard

TEST_F(FormTest, TabMovesThroughTheControlsInTheirOrder) {
    EXPECT_EQ(GetFocus(), form.first.Handle());
    PressKey(VK_TAB);
    EXPECT_EQ(GetFocus(), form.second.Handle());
    form.third.SetEnabled(false);
    PressKey(VK_TAB);
    EXPECT_EQ(GetFocus(), form.text.Handle());
    PressKey(VK_TAB);
    EXPECT_EQ(GetFocus(), form.first.Handle());
}

// A key that is held down is the one that closed a message box, say.
TEST_F(FormTest, ReturnPressesTheButtonThatHasTheFocusAndElseGoesToTheFormAsEscapeDoes) {
    int presses = 0;
    form.second.onClick = [&] {
        ++presses;
    };
    for (const HWND control : {form.second.Handle(), form.text.Handle()})
        for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
            SetFocus(control);
            HoldKeyDown(key);
        }
    EXPECT_EQ(presses, 0);
    EXPECT_TRUE(form.IsOpen());
    SetFocus(form.second.Handle());
    PressKey(VK_RETURN);
    EXPECT_EQ(presses, 1);
    EXPECT_TRUE(form.keys.empty());
    SetFocus(form.text.Handle());
    PressKey(VK_RETURN);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(form.keys, (std::vector<std::wstring>{L"return", L"escape"}));
}

TEST_F(FormTest, FocusLeavesAControlThatItsCommandDisables) {
    form.second.onClick = [&] {
        form.second.SetEnabled(false);
    };
    SetFocus(form.second.Handle());
    PressKey(VK_RETURN);
    EXPECT_EQ(GetFocus(), form.first.Handle());
}

// Disabled and held forms

TEST_F(FormTest, IgnoresCommandsOfDisabledButtonsAndHeldForms) {
    int presses = 0;
    form.first.onClick = [&] {
        ++presses;
    };
    form.first.SetEnabled(false);
    Click(form.first.Handle());
    form.first.SetEnabled(true);
    form.Hold();
    Click(form.first.Handle());
    EXPECT_EQ(presses, 0);
    form.Release();
    Click(form.first.Handle());
    EXPECT_EQ(presses, 1);
}

// Pointer

TEST_F(FormTest, TellsWhatThePointerIsOverAlsoWhenItIsDisabled) {
    form.Hold();
    MovePointerOver(form, form.third.Handle());
    EXPECT_TRUE(form.pointedAt.empty());
    form.Release();
    form.second.SetEnabled(false);
    for (int time = 0; time < 2; ++time) // the second is nothing new
        MovePointerOver(form, form.first.Handle());
    MovePointerOver(form, form.second.Handle());
    MovePointerTo(form, {3, 300});
    EXPECT_EQ(form.pointedAt, (std::vector<Control*>{&form.first, &form.second, nullptr}));
}

// Size

TEST_F(FormTest, CannotBeMadeSmallerThanItsLayout) {
    SetWindowPos(form.Handle(), nullptr, 0, 0, 10, 10, SWP_NOMOVE);
    RECT client = ClientAreaOf(form.Handle());
    RECT last = AreaOf(form.text.Handle());
    MapWindowPoints(nullptr, form.Handle(), reinterpret_cast<POINT*>(&last), 2);
    EXPECT_LE(last.bottom, client.bottom);
}

class WideForm : public Form {
  public:
    explicit WideForm(Application& owner) : Form(owner, 120, L"W", FormFrame::Resizable) {
        auto row = Row();
        row->Margin(40, 7).Add(first).Add(second);
        SetLayout(std::move(row));
    }
    Button first{*this, 1, std::wstring(30, L'表')};
    Button second{*this, 2, std::wstring(30, L'表')};
};

TEST_F(FormTest, WritesSmallerWhereTheScreenIsTooNarrowAtItsDensity) {
    auto& wide = application.Open<WideForm>(application);
    wide.Show();
    const int before = wide.Measure().LineHeight();
    for (unsigned dpi = 192; dpi <= 288; dpi += 6) {
        MoveToDensity(wide, dpi);
        RECT last = AreaOf(wide.second.Handle());
        MapWindowPoints(nullptr, wide.Handle(), reinterpret_cast<POINT*>(&last), 2);
        RECT client = ClientAreaOf(wide.Handle());
        EXPECT_LE(last.right, client.right - wide.Measure().Across(40)) << dpi;
        RECT window = AreaOf(wide.Handle());
        EXPECT_LE(window.right - window.left, GetSystemMetrics(SM_CXSCREEN));
    }
    EXPECT_LT(wide.Measure().LineHeight(), 3 * before - 4);
}

TEST_F(FormTest, FollowsTheSystemsChangeOfFontAndColours) {
    MoveToDensity(form, 192);
    const HFONT before = form.Measure().Font();
    SendMessageW(form.Handle(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    const auto shown = reinterpret_cast<HFONT>(SendMessageW(form.first.Handle(), WM_GETFONT, 0, 0));
    EXPECT_NE(form.Measure().Font(), before);
    EXPECT_EQ(shown, form.Measure().Font());
}

TEST_F(FormTest, GrowsWithTheDensityButNotBackBelowWhatItNeeds) {
    const int before = form.Measure().LineHeight();
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        EXPECT_NEAR(form.Measure().LineHeight(), before * static_cast<int>(dpi) / 96, 4);
        EXPECT_EQ(MisplacedControls(form), "");
    }
}

TEST_F(FormTest, OpensInsideTheWorkAreaAlsoAboveAFormAtItsEdge) {
    const RECT work = WorkArea();
    const RECT window = AreaOf(form.Handle());
    EXPECT_GE(window.left, work.left);
    EXPECT_GE(window.top, work.top);
    EXPECT_LE(window.right, work.right);
    EXPECT_LE(window.bottom, work.bottom);
    SetWindowPos(form.Handle(), nullptr, work.right - 60, work.bottom - 60, 500, 400, SWP_NOZORDER);
    const RECT above = AreaOf(Open(102).Handle());
    EXPECT_EQ(above.right, work.right);
    EXPECT_EQ(above.bottom, work.bottom);
}

TEST_F(FormTest, StaysWhereItIsWhenItIsShownAgain) {
    SetWindowPos(form.Handle(), nullptr, 40, 50, 400, 300, SWP_NOZORDER);
    form.Hide();
    form.Show();
    RECT window = AreaOf(form.Handle());
    EXPECT_EQ(window.left, 40);
    EXPECT_EQ(window.top, 50);
    EXPECT_EQ(window.right - window.left, 400);
}

TEST_F(FormTest, OpensInTheMiddleOfTheFormThatItTakesOverFromOrOfTheScreen) {
    SetWindowPos(form.Handle(), nullptr, 700, 500, 500, 400, SWP_NOZORDER);
    const RECT below = AreaOf(form.Handle());
    auto& other = Open(102);
    const RECT above = AreaOf(other.Handle());
    EXPECT_NEAR(above.left + above.right, below.left + below.right, 1);
    EXPECT_NEAR(above.top + above.bottom, below.top + below.bottom, 1);
    form.Hide();
    other.Hide();
    const RECT area = AreaOf(Open(103).Handle());
    const RECT work = WorkArea();
    EXPECT_NEAR(area.left + area.right, work.left + work.right, 1);
    EXPECT_NEAR(area.top + area.bottom, work.top + work.bottom, 1);
}

// The form below knows the density of its monitor, also while the system scales the new one.
TEST_F(FormTest, OpensWithTheDensityOfTheFormBelow) {
    MoveToDensity(form, 192);
    const PlainForm modal(application, 102, form.Handle());
    EXPECT_EQ(modal.Measure().LineHeight(), form.Measure().LineHeight());
    EXPECT_EQ(Open(103).Measure().LineHeight(), form.Measure().LineHeight());
    // Where the task bar can bring it back, it can be minimised.
    EXPECT_TRUE(GetWindowLongW(form.Handle(), GWL_STYLE) & WS_MINIMIZEBOX);
    EXPECT_FALSE(GetWindowLongW(modal.Handle(), GWL_STYLE) & WS_MINIMIZEBOX);
}

// Text boxes

TEST_F(FormTest, TextStandsInTheMiddleOfItsBoxAtEveryDensity) {
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        SendMessageW(form.text.Handle(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"text"));
        RECT box = AreaOf(form.text.Handle());
        POINT first{0, GET_Y_LPARAM(SendMessageW(form.text.Handle(), EM_POSFROMCHAR, 0, 0))};
        ClientToScreen(form.text.Handle(), &first);
        const LONG above = first.y - box.top;
        const LONG below = box.bottom - (first.y + form.Measure().LineHeight());
        EXPECT_NEAR(above, below, 1) << dpi;
        EXPECT_GT(above, 2) << dpi;
    }
}

TEST_F(FormTest, AClickBesideTheTextOfABoxIsOneIntoIt) {
    RECT box = AreaOf(form.text.Handle());
    EXPECT_EQ(
        SendMessageW(form.text.Handle(), WM_NCHITTEST, 0, MAKELPARAM(box.left + 20, box.top + 3)),
        HTCLIENT);
}

} // namespace
} // namespace tamblin
