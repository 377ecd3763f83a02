// Real windows over fakes of everything else, and what tests do with them: events handled when the
// test says so, controls found by name, keys and pointer as messages.
#pragma once

#include <gtest/gtest.h>

#include "base/next_window.h"
#include "support/platform_fake.h"
#include "ui/application.h"
#include "ui/control_id.h"
#include "ui/form.h"

namespace tamblin {

// What any window tells.
std::wstring ClassOf(HWND window);
std::wstring TextOf(HWND window);
RECT AreaOf(HWND window); // on the screen
RECT ClientAreaOf(HWND window);
RECT AreaInForm(const Form& form, const Control& control);

class HandOverFake : public HandOver {
  public:
    std::vector<NextWindow> shown;
    std::optional<ErrorNumber> failure;
    std::function<void()> onShow;
    void Show(NextWindow next) override {
        if (onShow)
            onShow();
        if (failure)
            throw RunTimeError(*failure);
        shown.push_back(next);
    }
};

class WindowScene : public testing::Test {
  protected:
    // Handles all events that wait.
    void Pump();
    // Until nothing waits and the screen shows what has been painted.
    void Settle();
    // Does something while a modal window holds the test up: as soon as `step` is not false.
    void Meanwhile(std::function<bool()> step);
    // The open form of that window class, or null.
    Form* FormOfClass(const std::wstring& name) const;

    // Handles events until the condition holds. False when it does not come true in two minutes,
    // more than the most loaded machine needs.
    bool PumpUntil(const std::function<bool()>& condition);

    static HWND Find(const Form& form, ControlKind kind, int number, int index = 0);
    static RECT WorkArea();
    static bool IsEnabled(HWND window) { return IsWindowEnabled(window) != 0; }
    static std::vector<std::wstring> EntriesOf(HWND list);
    static std::vector<std::wstring> SelectedOf(HWND list);

    // As another program would do it: selects, then notifies the form.
    static void SelectRows(HWND list, std::initializer_list<int> rows);
    static void Click(HWND button);
    static void Choose(HWND combo, int entry);
    static void DoubleClick(HWND list, int row);
    void PressKey(WPARAM key);
    void HoldKeyDown(WPARAM key); // one that was down before
    void PressControlAnd(WPARAM key);
    void PressAltAnd(wchar_t letter, WORD flags = 0); // KF_REPEAT: still down
    void MovePointerOver(const Form& form, HWND control);
    void MovePointerTo(const Form& form, POINT inClient);

    ~WindowScene() override { KillTimer(nullptr, meanwhileTimer); }

    PlatformFake fake;
    int timesEnded = 0;
    Application application{fake.messages, [this] {
                                ++timesEnded;
                            }};

  private:
    static inline std::function<bool()> meanwhile;
    UINT_PTR meanwhileTimer = 0;
};

} // namespace tamblin
