// The window kit: keyboard, pointer, size and density, text boxes.
#include "windows/form_scene.h"

namespace tamblin {
namespace {

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
    EXPECT_LE(AreaInForm(form, form.text).bottom, ClientAreaOf(form.Handle()).bottom);
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
        const RECT last = AreaInForm(wide, wide.second);
        const RECT client = ClientAreaOf(wide.Handle());
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
