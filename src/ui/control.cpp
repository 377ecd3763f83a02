#include "ui/control.h"

#include <algorithm>

#include "base/upper_case.h"
#include "ui/accessibility.h"
#include "ui/form.h"

namespace tamblin {

Control::Control(Form& owner, ControlName controlName, const wchar_t* windowClass,
                 const std::wstring& text, DWORD style, DWORD extendedStyle)
    : form(owner), name(controlName) {
    const auto id = static_cast<INT_PTR>(ControlId(name));
    handle = CreateWindowExW(extendedStyle, windowClass, text.c_str(),
                             style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, form.Handle(),
                             reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    systemProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    form.Adopt(*this);
}

Control::~Control() {
    form.Disown(*this);
    if (IsWindow(handle))
        DestroyWindow(handle);
}

// Not SetWindowSubclass: it looks the window's properties up with every message, which is slow on
// Wine.
LRESULT CALLBACK Control::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* control = reinterpret_cast<Control*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    Form& form = control->form;
    if (message == WM_NCDESTROY)
        return control->Control::Received(message, wParam, lParam);
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT)
        if (IAccessible* const object = control->Accessible())
            return LresultOf(object, wParam);
    if (message == WM_MOUSEMOVE) {
        POINT pointer{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(window, &pointer);
        form.PointerMoved(pointer, control);
    }
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
        form.ShowTip(*control, {window, message, wParam, lParam, 0, {}});
    LRESULT result = 0;
    form.App().Guard([&] { result = control->Received(message, wParam, lParam); });
    // What the system has drawn of itself, without our underline.
    if (control->accessKey && (message == WM_UPDATEUISTATE || message == WM_ENABLE))
        InvalidateRect(window, nullptr, TRUE);
    if (message == WM_SETFOCUS)
        form.App().Guard([&] { form.FocusCame(*control); });
    return result;
}

LRESULT Control::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(systemProcedure, handle, message, wParam, lParam);
}

void Control::SetText(const std::wstring& text) {
    if (text == Text())
        return;
    SetWindowTextW(handle, text.c_str());
    if (announced)
        NotifyWinEvent(LiveRegionChanged, handle, OBJID_CLIENT, CHILDID_SELF);
}

void Control::AnnounceChanges() {
    announced = true;
    AnnotateLiveRegion(handle);
}

std::wstring Control::Text() const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(handle)), L'\0');
    const int length = GetWindowTextW(handle, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<size_t>(length));
    return text;
}

bool Control::IsEnabled() const {
    return (GetWindowLongW(handle, GWL_STYLE) & WS_DISABLED) == 0;
}

void Control::SetEnabled(bool on) {
    if (on != IsEnabled())
        EnableWindow(handle, on);
}

bool Control::IsVisible() const {
    return (GetWindowLongW(handle, GWL_STYLE) & WS_VISIBLE) != 0;
}

void Control::SetVisible(bool on) {
    if (on != IsVisible())
        ShowWindow(handle, on ? SW_SHOWNA : SW_HIDE);
}

void Control::SetAccessibleName(const std::wstring& newName) {
    accessibleName = newName;
    AnnotateAccessibleName(handle, newName);
}

void Control::SetAccessKey(wchar_t letter, Control& target) {
    accessKey = letter;
    accessTarget = &target;
    AnnotateAccessKey(target.handle, std::wstring(L"Alt+") + letter);
}

void Control::TakeAccessKey() {
    if (IsEnabled() && IsVisible())
        Focus();
}

bool Control::ShowsAccessKey() const {
    return accessKey && (Send(WM_QUERYUISTATE) & UISF_HIDEACCEL) == 0;
}

void Control::UnderlineAccessKey(HDC target, POINT text) const {
    const TextMeasure& measure = form.Measure();
    const std::wstring caption = Text();
    const auto isKey = [this](wchar_t letter) {
        return UpperCase(letter) == accessKey;
    };
    const auto letter = std::find_if(caption.begin(), caption.end(), isKey);
    const LONG left = text.x + measure.Width({caption.begin(), letter});
    const LONG top = text.y + measure.Baseline() + 1;
    const RECT line{left, top, left + measure.Width({letter, letter + 1}),
                    top + std::max(1, measure.LineHeight() / 16)};
    FillRect(target, &line, GetSysColorBrush(IsEnabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
}

void Control::JoinWidth(WidthGroup& group) {
    group.push_back(this);
    widthGroup = &group;
}

Size Control::Minimum(const TextMeasure& measure) const {
    Size size = MeasuredSize(measure);
    if (widthGroup)
        for (const Control* other : *widthGroup)
            size.width = std::max(size.width, other->MeasuredSize(measure).width);
    return size;
}

Size Control::MeasuredSize(const TextMeasure& measure) const {
    if (measuredInPass != form.LayoutPass()) {
        measured = NaturalSize(measure);
        measuredInPass = form.LayoutPass();
    }
    return measured;
}

void Control::Arrange(const Place& place, const TextMeasure&, Placement& placement) {
    placement.Put(handle, place);
}

void Control::SetFont(const TextMeasure& measure) {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(measure.Font()), TRUE);
}

} // namespace tamblin
