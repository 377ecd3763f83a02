// Activation, the focus, and what the keyboard does.
#include <algorithm>

#include "base/at_exit.h"
#include "base/upper_case.h"
#include "ui/form.h"

namespace tamblin {
namespace {

bool IsRepeat(const MSG& keyDown) {
    return (HIWORD(keyDown.lParam) & KF_REPEAT) != 0;
}

KeyPress PressOf(const MSG& message) {
    const auto held = [](int key, int modifier) {
        return GetKeyState(key) < 0 ? modifier : KeyPress::None;
    };
    return {message.wParam, held(VK_SHIFT, KeyPress::Shift) | held(VK_CONTROL, KeyPress::Control)};
}

} // namespace

void Form::Hold() {
    if (holds++ != 0)
        return;
    if (const HWND focus = GetFocus(); focus && IsChild(handle, focus)) {
        lastFocus = parkedFocus = focus;
        SetFocus(handle);
    }
    EnableWindow(handle, FALSE);
}

void Form::Release() {
    if (--holds == 0 && IsOpen()) {
        EnableWindow(handle, TRUE);
        if (GetActiveWindow() == handle)
            GiveFocusBack();
    }
}

void Form::ActivationChanged(WPARAM wParam) {
    if (LOWORD(wParam) == WA_INACTIVE) {
        const HWND focus = GetFocus();
        if (focus && IsChild(handle, focus))
            lastFocus = focus;
        return;
    }
    if (HIWORD(wParam) != 0) // minimised
        return;
    GiveFocusBack();
    Focused();
}

void Form::Focused() {
    const bool fromElsewhere = application.lastActive != this;
    application.lastActive = this;
    if (!fromElsewhere || IsHeld() || closing)
        return;
    PaintNow(); // the event may take its time
    application.Guard([this] { Activated(); });
}

void Form::GiveFocusBack() {
    if (!lastFocus || !IsWindow(lastFocus))
        lastFocus = firstFocus ? firstFocus->Handle() : nullptr;
    if (lastFocus)
        SetFocus(lastFocus);
    KeepFocusUsable();
}

// A command may have disabled or hidden the control that has the focus, which would leave the
// keyboard dead.
void Form::KeepFocusUsable() {
    if (!IsOpen() || GetActiveWindow() != handle || IsHeld() || IsUsable(GetFocus()))
        return;
    const HWND first = firstFocus ? firstFocus->Handle() : nullptr;
    if (first && IsWindowEnabled(first) && firstFocus->IsVisible())
        SetFocus(first);
    else if (const HWND next = GetNextDlgTabItem(handle, nullptr, FALSE))
        SetFocus(next);
}

bool Form::IsUsable(HWND control) const {
    return control && IsChild(handle, control) && IsWindowEnabled(control) &&
           (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE);
}

// The control from which an operation was started may have become usable only after the form, and
// events lie within events: the focus's own notifications come while the operation still runs.
void Form::EventOver() {
    if (--events == 0 && IsOpen() && !IsHeld()) {
        if (GetActiveWindow() == handle && IsUsable(parkedFocus))
            SetFocus(parkedFocus);
        parkedFocus = nullptr;
    }
    KeepFocusUsable();
}

bool Form::TakesKey(const MSG& message) {
    if (message.message == WM_SYSCHAR)
        return TakesAccessKey(message);
    if (message.message != WM_KEYDOWN || !IsWindowEnabled(handle))
        return false;
    tip.Remove();
    bool taken = message.wParam == VK_RETURN || message.wParam == VK_ESCAPE;
    // The key that has closed a box, or another window, may still be down.
    if (taken && IsRepeat(message))
        return true;
    Control* const control = Find(message.hwnd);
    const KeyPress press = PressOf(message);
    ++events;
    const AtExit over([this] { EventOver(); });
    application.Guard([&] {
        if (control && control->TakeKey(press))
            taken = true;
        else if (message.wParam == VK_RETURN)
            ReturnPressed();
        else if (message.wParam == VK_ESCAPE)
            EscapePressed();
        else
            taken = KeyPressed(press, control);
    });
    return taken;
}

bool Form::TakesAccessKey(const MSG& message) {
    const wchar_t key = UpperCase(static_cast<wchar_t>(message.wParam));
    const auto found =
        std::find_if(controls.begin(), controls.end(),
                     [key](const Control* control) { return control->AccessKey() == key; });
    if (!key || found == controls.end() || !IsWindowEnabled(handle))
        return false;
    if (IsRepeat(message))
        return true;
    ++events;
    const AtExit over([this] { EventOver(); });
    application.Guard([&] { (*found)->AccessTarget()->TakeAccessKey(); });
    return true;
}

} // namespace tamblin
