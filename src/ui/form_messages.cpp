// What the system tells a form.
#include <algorithm>

#include "base/at_exit.h"
#include "base/win32/busy_pointer.h"
#include "ui/form.h"

namespace tamblin {
namespace {

constexpr UINT_PTR TheTimer = 1;
constexpr int FirstMenuId = 9000; // above all control IDs

std::vector<std::wstring> PathsIn(HDROP drop) {
    std::vector<std::wstring> paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT file = 0; file < count; ++file) {
        std::wstring path(DragQueryFileW(drop, file, nullptr, 0), L'\0');
        DragQueryFileW(drop, file, path.data(), static_cast<UINT>(path.size()) + 1);
        paths.push_back(path);
    }
    return paths;
}

bool SamePoint(POINT a, POINT b) {
    return a.x == b.x && a.y == b.y;
}

} // namespace

LRESULT CALLBACK Form::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTW*>(lParam);
        auto* form = static_cast<Form*>(creation->lpCreateParams);
        form->handle = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
    }
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form)
        return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    form->application.Guard([&] { result = form->HandleMessage(message, wParam, lParam); });
    return result;
}

LRESULT Form::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            Commanded(wParam, lParam);
            return 0;
        case WM_NOTIFY:
            return Notified(*reinterpret_cast<NMHDR*>(lParam));
        case WM_DROPFILES:
            TakeDroppedFiles(reinterpret_cast<HDROP>(wParam));
            return 0;
        case WM_TIMER:
            TimerRang();
            return 0;
        case WM_ACTIVATE:
            ActivationChanged(wParam);
            return 0;
        case WM_MOUSEMOVE: {
            POINT pointer{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            ClientToScreen(handle, &pointer);
            PointerMoved(pointer, ControlUnder(pointer));
            return 0;
        }
        case WM_CLOSE:
            if (IsWindowEnabled(handle))
                CloseFor(CloseReason::User);
            return 0;
        case WM_ENDSESSION:
            if (wParam)
                application.CloseAll();
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font.get());
        case WM_DPICHANGED:
            DensityChanged(LOWORD(wParam), *reinterpret_cast<RECT*>(lParam));
            return 0;
        default:
            return HandleSystemMessage(message, wParam, lParam);
    }
}

LRESULT Form::HandleSystemMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED)
                Arrange();
            return 0;
        case WM_ENTERSIZEMOVE:
        case WM_EXITSIZEMOVE:
            beingMoved = message == WM_ENTERSIZEMOVE;
            break;
        case WM_GETMINMAXINFO:
            KeepSizeInBounds(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_SETCURSOR:
            // A disabled window is asked as if the pointer were nowhere.
            if (!BusyPointer::IsShown() ||
                (LOWORD(lParam) != HTCLIENT && LOWORD(lParam) != LOWORD(HTERROR)))
                break;
            SetCursor(LoadCursorW(nullptr, IDC_WAIT));
            return TRUE;
        case WM_ERASEBKGND:
            if (PaintBackground(reinterpret_cast<HDC>(wParam)))
                return 1;
            break;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            AppearanceChanged();
            break;
        case WM_CTLCOLORSTATIC:
            if (const HBRUSH brush =
                    LabelBackground(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)))
                return reinterpret_cast<LRESULT>(brush);
            break;
        case WM_DRAWITEM: {
            const auto* drawing = reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
            if (Control* const control = Find(drawing->hwndItem))
                control->Draw(*drawing);
            return TRUE;
        }
        case WM_NCDESTROY:
            SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
            handle = nullptr;
            application.Closed(*this);
            return 0;
        default:
            break;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

void Form::Commanded(WPARAM wParam, LPARAM lParam) {
    // What another program sends must not reach a form behind a modal one or a question.
    if (IsHeld() || !IsWindowEnabled(handle))
        return;
    auto* window = reinterpret_cast<HWND>(lParam);
    if (!window && LOWORD(wParam) >= FirstMenuId) {
        MenuChosen(static_cast<MenuItem>(LOWORD(wParam)));
        return;
    }
    Control* const control = Find(window ? window : GetDlgItem(handle, LOWORD(wParam)));
    if (!control || !control->IsEnabled())
        return;
    ++events;
    const AtExit over([this] { EventOver(); });
    control->Notified(HIWORD(wParam));
}

LRESULT Form::Notified(const NMHDR& notification) {
    Control* const control = Find(notification.hwndFrom);
    if (!control || notification.code != NM_CUSTOMDRAW)
        return 0;
    return control->CustomDraw(reinterpret_cast<const NMCUSTOMDRAW&>(notification));
}

void Form::ShowMenu(const Menu& menu, POINT screenPosition) {
    if (menu.empty())
        return;
    const HMENU popup = CreatePopupMenu();
    const AtExit destroy([&] { DestroyMenu(popup); });
    for (const MenuRow& row : menu)
        AppendMenuW(popup,
                    row.item == MenuItem::Separator ? MF_SEPARATOR
                    : row.enabled                   ? MF_STRING
                                                    : MF_GRAYED,
                    static_cast<UINT_PTR>(row.item), row.text.c_str());
    const BusyPointer::Pause usable;
    TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_LEFTBUTTON, screenPosition.x,
                   screenPosition.y, 0, handle, nullptr);
}

void Form::TimerRang() {
    if (ticking)
        return;
    ticking = true;
    const AtExit over([this] { ticking = false; });
    Tick();
}

void Form::StartTimer(unsigned milliseconds) {
    SetTimer(handle, TheTimer, milliseconds, nullptr);
}

void Form::StopTimer() {
    KillTimer(handle, TheTimer);
}

// Also from programs with fewer rights, when ours runs as administrator: what they send then has to
// be let through.
void Form::AcceptFiles() {
    constexpr UINT copyGlobalData = 0x0049; // carries the names; no header has it
    for (const UINT message : {static_cast<UINT>(WM_DROPFILES), copyGlobalData})
        ChangeWindowMessageFilterEx(handle, message, MSGFLT_ALLOW, nullptr);
    DragAcceptFiles(handle, TRUE);
}

void Form::TakeDroppedFiles(HDROP drop) {
    const AtExit finish([&] { DragFinish(drop); });
    if (IsHeld() || !IsWindowEnabled(handle))
        return;
    SetForegroundWindow(handle);
    ++events;
    const AtExit over([this] { EventOver(); });
    FilesDropped(PathsIn(drop));
}

Control* Form::Find(HWND window) const {
    const auto found = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
        return control->Handle() == window;
    });
    return window && found != controls.end() ? *found : nullptr;
}

// The system gives the pointer's moves over a disabled control to the form.
Control* Form::ControlUnder(POINT screenPosition) const {
    POINT position = screenPosition;
    ScreenToClient(handle, &position);
    return Find(ChildWindowFromPointEx(handle, position, CWP_SKIPINVISIBLE));
}

void Form::PointerMoved(POINT screenPosition, Control* control) {
    // A move to where the pointer already was is the system's echo of a window that has changed.
    if (SamePoint(screenPosition, lastPointer))
        return;
    lastPointer = screenPosition;
    if (IsWindowEnabled(handle))
        application.Guard([&] { PointerOver(control); });
}

void Form::ShowTip(const Control& control, const MSG& message) {
    tip.Relay(handle, control, message, measure->Font());
}

} // namespace tamblin
