// Alt with a letter of a caption does what a click on it does; the letters are underlined where the
// system shows them, which it does once Alt has been held.
#include "ui/button.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "windows/screen_picture.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class KeyForm : public Form {
  public:
    explicit KeyForm(Application& owner) : Form(owner, 101, L"Keys", FormFrame::Resizable) {
        auto column = Column();
        column->Add(first).Add(run).Add(label).Add(list, 1);
        SetLayout(std::move(column));
        SetFirstFocus(first);
        run.SetAccessKey(L'U');
        label.SetAccessKey(L'F', list);
        run.onClick = [this] {
            ++clicks;
        };
    }

    int clicks = 0;
    Button first{*this, 1, L"First"};
    Button run{*this, 2, L"RUN"};
    Label label{*this, 1, L"すべてのfolder:\r\n& 二行目"};
    ListBox list{*this, 1, ListBox::Selecting::One, 10, 3};
};

// Answers for the system whether the user has held Alt: not every one hides the keys at all.
class AltSeen {
  public:
    explicit AltSeen(const Control& control) : window(control.Handle()) {
        SetWindowSubclass(window, Procedure, SubclassId, 0);
    }
    ~AltSeen() { RemoveWindowSubclass(window, Procedure, SubclassId); }
    AltSeen(const AltSeen&) = delete;
    AltSeen& operator=(const AltSeen&) = delete;

    static void Set(const Form& form, bool on) {
        seen = on;
        for (const Control* control : form.Controls())
            SendMessageW(control->Handle(), WM_UPDATEUISTATE,
                         MAKEWPARAM(on ? UIS_CLEAR : UIS_SET, UISF_HIDEACCEL), 0);
    }

  private:
    static constexpr UINT_PTR SubclassId = 98;
    static inline bool seen = false;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR) {
        if (message == WM_QUERYUISTATE)
            return seen ? 0 : UISF_HIDEACCEL;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    HWND window;
};

class AccessKeyTest : public WindowScene {
  protected:
    void SetUp() override {
        form.Show();
        Settle();
    }

    KeyForm& form = application.Open<KeyForm>(application);
};

TEST_F(AccessKeyTest, PressesItsButtonInEitherCaseAndOnceWhileItIsHeldDown) {
    PressAltAnd(L'u');
    PressAltAnd(L'u', KF_REPEAT);
    EXPECT_EQ(form.clicks, 1);
    PressAltAnd(L'U');
    EXPECT_EQ(form.clicks, 2);
    EXPECT_EQ(GetFocus(), form.run.Handle());
}

TEST_F(AccessKeyTest, DoesNothingWhereTheButtonOrTheWindowIsDisabled) {
    form.run.SetEnabled(false);
    PressAltAnd(L'u');
    EXPECT_EQ(form.clicks, 0);
    EXPECT_EQ(GetFocus(), form.first.Handle());
    form.run.SetEnabled(true);
    EnableWindow(form.Handle(), FALSE);
    PostMessageW(form.first.Handle(), WM_SYSCHAR, L'u', MAKELPARAM(1, KF_ALTDOWN));
    Pump();
    EXPECT_EQ(form.clicks, 0);
}

TEST_F(AccessKeyTest, OfALabelGivesTheFocusToWhatItNames) {
    PressAltAnd(L'f');
    EXPECT_EQ(GetFocus(), form.list.Handle());
    PressAltAnd(L'x');
    EXPECT_EQ(GetFocus(), form.list.Handle());
    PressAltAnd(L'u');
    form.list.SetEnabled(false);
    PressAltAnd(L'f');
    EXPECT_EQ(GetFocus(), form.run.Handle());
}

TEST_F(AccessKeyTest, IsUnderlinedWhereTheSystemShowsKeysAndLeavesTheText) {
    const AltSeen runKeys(form.run);
    const AltSeen labelKeys(form.label);
    for (const bool enabled : {true, false}) {
        form.run.SetEnabled(enabled);
        form.label.SetEnabled(enabled);
        AltSeen::Set(form, false);
        Settle();
        const ScreenPicture plain(form.run.Handle());
        const ScreenPicture plainLabel(form.label.Handle());
        AltSeen::Set(form, true);
        Settle();
        EXPECT_NE(plain.DifferencesFrom(ScreenPicture(form.run.Handle())), "");
        EXPECT_NE(plainLabel.DifferencesFrom(ScreenPicture(form.label.Handle())), "");
        EXPECT_EQ(TextOf(form.run.Handle()), L"RUN");
        EXPECT_EQ(TextOf(form.label.Handle()), L"すべてのfolder:\r\n& 二行目");
        AltSeen::Set(form, false);
        Settle();
        EXPECT_EQ(plain.DifferencesFrom(ScreenPicture(form.run.Handle())), "");
        EXPECT_EQ(plainLabel.DifferencesFrom(ScreenPicture(form.label.Handle())), "");
    }
}

// The underline is one line of few pixels, below the letter.
TEST_F(AccessKeyTest, UnderlineIsBelowItsLetter) {
    const AltSeen keys(form.label);
    AltSeen::Set(form, false);
    Settle();
    const ScreenPicture plain(form.label.Handle());
    AltSeen::Set(form, true);
    Settle();
    const RECT line = plain.DifferencesTo(ScreenPicture(form.label.Handle())).around;
    const TextMeasure& measure = form.Measure();
    EXPECT_EQ(line.left, measure.Width(L"すべての"));
    EXPECT_NEAR(line.right - line.left, measure.Width(L"f"), 1);
    EXPECT_LE(line.bottom - line.top, 2);
    EXPECT_LE(line.bottom, measure.LineHeight());
    EXPECT_GT(line.top, measure.LineHeight() / 2);
}

} // namespace
} // namespace tamblin
