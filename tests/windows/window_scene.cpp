#include "windows/window_scene.h"

namespace tamblin {

std::wstring ClassOf(HWND window) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextOf(HWND window) {
    const auto length = static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(copied));
    return text;
}

RECT AreaOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

RECT ClientAreaOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

RECT AreaInForm(const Form& form, const Control& control) {
    RECT area = AreaOf(control.Handle());
    MapWindowPoints(nullptr, form.Handle(), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

void WindowScene::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (application.TakesMessage(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void WindowScene::Settle() {
    for (int round = 0; round < 3; ++round) {
        Pump();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 30, QS_ALLINPUT);
    }
    Pump();
}

// A step that is running may itself say what comes next.
void WindowScene::Meanwhile(std::function<bool()> step) {
    meanwhile = std::move(step);
    KillTimer(nullptr, meanwhileTimer);
    meanwhileTimer = SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) {
        const auto now = std::exchange(meanwhile, nullptr);
        if (now && !now() && !meanwhile)
            meanwhile = now;
    });
}

Form* WindowScene::FormOfClass(const std::wstring& name) const {
    for (Form* form : application.OpenForms())
        if (ClassOf(form->Handle()) == name && IsWindowVisible(form->Handle()))
            return form;
    return nullptr;
}

bool WindowScene::PumpUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 120000;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        Pump();
    }
    return true;
}

HWND WindowScene::Find(const Form& form, ControlKind kind, int number, int index) {
    return GetDlgItem(form.Handle(), ControlId({kind, number, index}));
}

RECT WindowScene::WorkArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

std::vector<std::wstring> WindowScene::EntriesOf(HWND list) {
    std::vector<std::wstring> entries;
    const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
        const auto length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
        std::wstring entry(static_cast<size_t>(length) + 1, L'\0');
        SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(entry.data()));
        entry.pop_back();
        entries.push_back(entry);
    }
    return entries;
}

std::vector<std::wstring> WindowScene::SelectedOf(HWND list) {
    std::vector<std::wstring> selected;
    const auto entries = EntriesOf(list);
    for (size_t row = 0; row < entries.size(); ++row)
        if (SendMessageW(list, LB_GETSEL, row, 0) > 0)
            selected.push_back(entries[row]);
    return selected;
}

namespace {

void Notify(HWND control, UINT code) {
    const auto id = static_cast<WORD>(GetDlgCtrlID(control));
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(id, code),
                 reinterpret_cast<LPARAM>(control));
}

} // namespace

void WindowScene::SelectRows(HWND list, std::initializer_list<int> rows) {
    SendMessageW(list, LB_SETSEL, FALSE, -1);
    for (const int row : rows)
        SendMessageW(list, LB_SETSEL, TRUE, row);
    Notify(list, LBN_SELCHANGE);
}

void WindowScene::Click(HWND button) {
    Notify(button, BN_CLICKED);
}

void WindowScene::Choose(HWND combo, int entry) {
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    Notify(combo, CBN_SELCHANGE);
}

void WindowScene::DoubleClick(HWND list, int row) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    Notify(list, LBN_DBLCLK);
}

void WindowScene::PressKey(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    Pump();
}

void WindowScene::HoldKeyDown(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, KF_REPEAT << 16 | 1);
    Pump();
}

void WindowScene::PressControlAnd(WPARAM key) {
    BYTE keys[256]{};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    PressKey(key);
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
}

void WindowScene::PressAltAnd(wchar_t letter, WORD flags) {
    PostMessageW(GetFocus(), WM_SYSCHAR, letter, MAKELPARAM(1, KF_ALTDOWN | flags));
    Pump();
}

void WindowScene::MovePointerTo(const Form& form, POINT inClient) {
    SendMessageW(form.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(inClient.x, inClient.y));
}

// The system gives the moves over an enabled control to the control, over a disabled one to the
// form.
void WindowScene::MovePointerOver(const Form& form, HWND control) {
    const RECT area = ClientAreaOf(control);
    POINT middle{area.right / 2, area.bottom / 2};
    if (IsWindowEnabled(control)) {
        SendMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(middle.x, middle.y));
        return;
    }
    MapWindowPoints(control, form.Handle(), &middle, 1);
    MovePointerTo(form, middle);
}

} // namespace tamblin
