#include "ui/form.h"

#include <algorithm>
#include <limits>

#include "base/upper_case.h"
#include "base/win32/busy_pointer.h"
#include "ui/at_exit.h"
#include "ui/dpi.h"

namespace tamblin {
namespace {

constexpr UINT_PTR TheTimer = 1;
constexpr int ProgramIcon = 1;
constexpr int FirstMenuId = 9000; // above all control IDs

DWORD FrameStyleOf(FormFrame frame) {
    switch (frame) {
        case FormFrame::Resizable:
            return WS_OVERLAPPEDWINDOW;
        case FormFrame::ResizableAsk:
            return WS_POPUP | WS_CAPTION | WS_THICKFRAME;
        case FormFrame::Fixed:
            return WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
        case FormFrame::Borderless:
            return WS_POPUP;
    }
    return 0;
}

// An owned window has no button in the task bar from which it could be brought back.
DWORD StyleOf(FormFrame frame, HWND ownerWindow) {
    const DWORD style = FrameStyleOf(frame) | WS_CLIPCHILDREN;
    return ownerWindow ? style & ~static_cast<DWORD>(WS_MINIMIZEBOX) : style;
}

DWORD ExtendedStyleOf(FormFrame frame) {
    switch (frame) {
        case FormFrame::ResizableAsk:
            return WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
        case FormFrame::Borderless:
            return WS_EX_CONTROLPARENT | WS_EX_APPWINDOW;
        default:
            return WS_EX_CONTROLPARENT;
    }
}

// Controls that move are painted anew, not copied: in a batch one control's new place may be
// another's old one, which is then no longer there to be copied from. They are painted, and their
// frames drawn, once all have moved: until then one may stand where another still is. Those that
// stay are left alone.
class MoveTogether : public Placement {
  public:
    explicit MoveTogether(size_t count) : moves(BeginDeferWindowPos(static_cast<int>(count))) {}
    ~MoveTogether() override {
        EndDeferWindowPos(moves);
        if (!moved.empty())
            RedrawWindow(GetParent(moved.front()), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
        for (const HWND control : moved)
            RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
    void Put(HWND control, const Place& place) override {
        if (Stands(control, place))
            return;
        moved.push_back(control);
        moves = DeferWindowPos(moves, control, nullptr, place.left, place.top, place.width,
                               place.height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }

  private:
    static bool Stands(HWND control, const Place& place) {
        RECT area{};
        GetWindowRect(control, &area);
        MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
        return area.left == place.left && area.top == place.top &&
               area.right - area.left == place.width && area.bottom - area.top == place.height;
    }

    HDWP moves;
    std::vector<HWND> moved;
};

// How far across controls would reach, without moving them.
class Reach : public Placement {
  public:
    void Put(HWND, const Place& place) override {
        left = std::min(left, place.left);
        right = std::max(right, place.left + place.width);
    }
    // With as much room on the right as on the left.
    bool IsWithin(int width) const { return right <= width - left; }

  private:
    int left = std::numeric_limits<int>::max();
    int right = 0;
};

bool IsRepeat(const MSG& keyDown) {
    return (HIWORD(keyDown.lParam) & KF_REPEAT) != 0;
}

KeyPress PressOf(const MSG& message) {
    const auto held = [](int key, int modifier) {
        return GetKeyState(key) < 0 ? modifier : KeyPress::None;
    };
    return {message.wParam, held(VK_SHIFT, KeyPress::Shift) | held(VK_CONTROL, KeyPress::Control)};
}

// Closed when it goes.
class Drop {
  public:
    explicit Drop(HDROP dropHandle) : handle(dropHandle) {}
    ~Drop() { DragFinish(handle); }
    Drop(const Drop&) = delete;
    Drop& operator=(const Drop&) = delete;

    std::vector<std::wstring> Paths() const {
        std::vector<std::wstring> paths;
        const UINT count = DragQueryFileW(handle, 0xFFFFFFFF, nullptr, 0);
        for (UINT file = 0; file < count; ++file) {
            std::wstring path(DragQueryFileW(handle, file, nullptr, 0), L'\0');
            DragQueryFileW(handle, file, path.data(), static_cast<UINT>(path.size()) + 1);
            paths.push_back(path);
        }
        return paths;
    }

  private:
    HDROP handle;
};

bool SamePoint(POINT a, POINT b) {
    return a.x == b.x && a.y == b.y;
}

} // namespace

void Form::RegisterClass(const std::wstring& name) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    WNDCLASSEXW existing{};
    existing.cbSize = sizeof existing;
    if (GetClassInfoExW(program, name.c_str(), &existing))
        return;
    WNDCLASSEXW formClass{};
    formClass.cbSize = sizeof formClass;
    formClass.lpfnWndProc = Procedure;
    formClass.hInstance = program;
    formClass.hIcon = LoadIconW(program, MAKEINTRESOURCEW(ProgramIcon));
    formClass.hIconSm = static_cast<HICON>(LoadImageW(program, MAKEINTRESOURCEW(ProgramIcon),
                                                      IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                                      GetSystemMetrics(SM_CYSMICON), LR_SHARED));
    formClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    formClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    formClass.lpszClassName = name.c_str();
    RegisterClassExW(&formClass);
}

Form::Form(Application& owner, int number, const std::wstring& title, FormFrame frame,
           HWND ownerWindow)
    : application(owner), ownerHandle(ownerWindow) {
    const std::wstring name = L"Tamblin.Form" + std::to_wstring(number);
    RegisterClass(name);
    // On the monitor where the form will stand, so that it has that monitor's density from the
    // start.
    const HWND below = WindowBelow();
    RECT around{};
    const bool hasPlace = below && GetWindowRect(below, &around);
    CreateWindowExW(ExtendedStyleOf(frame), name.c_str(), title.c_str(),
                    StyleOf(frame, ownerHandle),
                    hasPlace ? (around.left + around.right) / 2 : CW_USEDEFAULT,
                    hasPlace ? (around.top + around.bottom) / 2 : CW_USEDEFAULT, 0, 0, ownerHandle,
                    nullptr, GetModuleHandleW(nullptr), this);
    const Form* const formBelow = application.FormOf(below);
    SetDensity(formBelow ? formBelow->dpi : DpiOf(handle));
    // Focus marks stay hidden until the keyboard is used.
    ::SendMessageW(handle, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    application.Opened(*this);
}

Form::~Form() {
    if (handle)
        DestroyWindow(handle);
    measure.reset();
    DeleteObject(font);
}

void Form::Adopt(Control& control) {
    controls.push_back(&control);
    control.SetFont(*measure);
}

// Showing, hiding and closing

void Form::Show() {
    if (!loaded) {
        loaded = true;
        application.Guard([this] { Load(); });
        if (!IsOpen())
            return;
        PutInPlace();
    }
    GetCursorPos(&lastPointer);
    ShowWindow(handle, IsIconic(handle) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(handle);
    if (application.lastActive != this && IsOpen())
        Focused();
}

void Form::Hide() {
    ShowWindow(handle, SW_HIDE);
    if (application.lastActive == this)
        application.lastActive = nullptr;
}

void Form::ShowModal() {
    for (const Form* other : application.OpenForms()) {
        if (other == this || !IsWindowEnabled(other->Handle()))
            continue;
        disabledByModal.push_back(other->Handle());
        EnableWindow(other->Handle(), FALSE);
    }
    modal = true;
    const BusyPointer::Pause usable;
    Show();
    application.RunUntilClosed(*this);
}

// Hands the focus back to the owner while this window still exists; otherwise the system would pick
// a window of another program. An owner that an operation holds is enabled for that moment.
void Form::EndModal() {
    modal = false;
    for (const HWND other : disabledByModal)
        EnableWindow(other, TRUE);
    disabledByModal.clear();
    if (!ownerHandle || GetActiveWindow() != handle)
        return;
    const bool heldOwner = !IsWindowEnabled(ownerHandle);
    if (heldOwner)
        EnableWindow(ownerHandle, TRUE);
    SetActiveWindow(ownerHandle);
    if (heldOwner)
        EnableWindow(ownerHandle, FALSE);
}

void Form::CloseFor(CloseReason reason) {
    if (IsOpen() && !closing && MayClose(reason))
        Destroy();
}

void Form::Destroy() {
    if (!IsOpen() || closing)
        return;
    closing = true;
    Closing();
    if (modal)
        EndModal();
    DestroyWindow(handle);
}

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

// Activation and focus

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

// Keys

bool Form::TakesKey(const MSG& message) {
    if (message.message == WM_SYSCHAR)
        return TakesAccessKey(message);
    if (message.message != WM_KEYDOWN || !IsWindowEnabled(handle))
        return false;
    tip.Remove();
    // The key that has closed a box, or another window, may still be down.
    if ((message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) && IsRepeat(message))
        return true;
    Control* const control = Find(message.hwnd);
    bool taken = false;
    ++events;
    const AtExit over([this] { EventOver(); });
    if (message.wParam == VK_RETURN) {
        taken = true;
        application.Guard([&] {
            if (!control || !control->TakeReturn())
                ReturnPressed();
        });
    } else if (message.wParam == VK_ESCAPE) {
        taken = true;
        application.Guard([&] {
            if (!control || !control->TakeEscape())
                EscapePressed();
        });
    } else {
        const KeyPress press = PressOf(message);
        application.Guard(
            [&] { taken = (control && control->TakeKey(press)) || KeyPressed(press, control); });
    }
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

// Drag and drop

// Also from programs with fewer rights, when ours runs as administrator: what they send then has to
// be let through.
void Form::AcceptFiles() {
    constexpr UINT copyGlobalData = 0x0049; // carries the names; no header has it
    for (const UINT message : {static_cast<UINT>(WM_DROPFILES), copyGlobalData})
        ChangeWindowMessageFilterEx(handle, message, MSGFLT_ALLOW, nullptr);
    DragAcceptFiles(handle, TRUE);
}

void Form::TakeDroppedFiles(HDROP dropHandle) {
    const Drop drop(dropHandle);
    if (IsHeld() || !IsWindowEnabled(handle))
        return;
    SetForegroundWindow(handle);
    ++events;
    const AtExit over([this] { EventOver(); });
    FilesDropped(drop.Paths());
}

// Pointer

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

// Timer

void Form::StartTimer(unsigned milliseconds) {
    SetTimer(handle, TheTimer, milliseconds, nullptr);
}

void Form::StopTimer() {
    KillTimer(handle, TheTimer);
}

void Form::TimerRang() {
    if (ticking)
        return;
    ticking = true;
    const AtExit over([this] { ticking = false; });
    Tick();
}

// Size, font and density

void Form::SetDensity(unsigned newDpi) {
    dpi = newDpi;
    WriteAtDensity(dpi);
    FitTextToScreen();
}

// Better a smaller text than the user has chosen than controls that cannot be reached. Never
// smaller than on a screen without scaling.
void Form::FitTextToScreen() {
    constexpr unsigned least = 96;
    unsigned textDpi = dpi;
    while (textDpi > least && !FitsScreen()) {
        textDpi = std::max(least, textDpi * 15 / 16);
        WriteAtDensity(textDpi);
    }
}

bool Form::FitsScreen() const {
    if (!layout)
        return true;
    const Size size = MinimumSize();
    Reach reach;
    layout->Arrange({0, 0, size.width, size.height}, *measure, reach);
    return size.height <= RoomOnScreen().height && reach.IsWithin(size.width);
}

void Form::WriteAtDensity(unsigned textDpi) {
    const HFONT former = font;
    font = CreateMessageFont(textDpi);
    measure = std::make_unique<TextMeasure>(font);
    for (Control* control : controls)
        control->SetFont(*measure);
    DeleteObject(former);
}

void Form::DensityChanged(unsigned newDpi, const RECT& suggested) {
    SetDensity(newDpi);
    const RECT least = FrameAround(MinimumSize());
    const LONG width = std::max(suggested.right - suggested.left, least.right - least.left);
    const LONG height = std::max(suggested.bottom - suggested.top, least.bottom - least.top);
    SetWindowPos(handle, nullptr, suggested.left, suggested.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
    InvalidateRect(handle, nullptr, TRUE);
}

// The user has chosen another font or other colours for all programs.
void Form::AppearanceChanged() {
    RECT window{};
    GetWindowRect(handle, &window);
    DensityChanged(dpi, window);
}

// Room for the layout and for the title, with its icon and boxes beside it.
Size Form::MinimumSize() const {
    if (!layout)
        return {};
    ++layoutPass;
    Size least = layout->Minimum(*measure);
    if (GetWindowLongW(handle, GWL_STYLE) & WS_DLGFRAME) {
        std::wstring title(static_cast<size_t>(GetWindowTextLengthW(handle)) + 1, L'\0');
        GetWindowTextW(handle, title.data(), static_cast<int>(title.size()));
        title.pop_back();
        least.width = std::max(least.width, measure->Width(title) + measure->Across(70));
    }
    // On a narrow screen texts wrap instead.
    if (const int room = RoomOnScreen().width; least.width > room)
        return {room, layout->HeightFor(room, *measure)};
    return least;
}

Size Form::RoomOnScreen() const {
    const HWND below = IsWindowVisible(handle) ? nullptr : WindowBelow();
    const RECT work = WorkAreaOf(below ? below : handle);
    const RECT frame = FrameAround({});
    return {static_cast<int>(work.right - work.left - (frame.right - frame.left)),
            static_cast<int>(work.bottom - work.top - (frame.bottom - frame.top))};
}

RECT Form::FrameAround(Size clientSize) const {
    const RECT client{0, 0, clientSize.width, clientSize.height};
    const auto style = static_cast<DWORD>(GetWindowLongW(handle, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongW(handle, GWL_EXSTYLE));
    return AroundClientArea(client, style, extendedStyle, dpi);
}

void Form::Arrange() {
    if (!layout)
        return;
    RECT client{};
    GetClientRect(handle, &client);
    ++layoutPass;
    {
        MoveTogether together(controls.size());
        layout->Arrange({0, 0, client.right, client.bottom}, *measure, together);
    }
    Arranged();
    // Before the next size: otherwise a dragged edge leaves the picture behind.
    PaintNow();
}

void Form::PaintNow() {
    RedrawWindow(handle, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// The window that the form opens over: its owner, or the form that it takes over from. Null when
// there is none to be seen.
HWND Form::WindowBelow() const {
    const Form* const last = application.lastActive;
    const HWND below = ownerHandle ? ownerHandle : last && last != this ? last->handle : nullptr;
    return below && IsWindowVisible(below) && !IsIconic(below) ? below : nullptr;
}

// The first time a form is shown it stands in the middle of the window below it or of the screen.
void Form::PutInPlace() {
    FitTextToScreen();
    const RECT frame = FrameAround(FirstSize());
    const HWND below = WindowBelow();
    const RECT work = WorkAreaOf(below ? below : handle);
    const LONG width = std::min(frame.right - frame.left, work.right - work.left);
    const LONG height = std::min(frame.bottom - frame.top, work.bottom - work.top);
    RECT around = work;
    if (below)
        GetWindowRect(below, &around);
    const LONG left = (around.left + around.right - width) / 2;
    const LONG top = (around.top + around.bottom - height) / 2;
    SetWindowPos(handle, nullptr, std::clamp(left, work.left, work.right - width),
                 std::clamp(top, work.top, work.bottom - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
}

void Form::KeepSizeInBounds(MINMAXINFO& info) const {
    if (!measure || !layout)
        return;
    const RECT least = FrameAround(MinimumSize());
    const RECT work = WorkAreaOf(handle);
    info.ptMinTrackSize = {std::min(least.right - least.left, work.right - work.left),
                           std::min(least.bottom - least.top, work.bottom - work.top)};
}

void Form::PaintBehind(HDC target, HWND control, const RECT& area) {
    const HBRUSH brush = LabelBackground(target, control);
    FillRect(target, &area, brush ? brush : GetSysColorBrush(COLOR_BTNFACE));
}

// Messages

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
            return reinterpret_cast<LRESULT>(font);
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

} // namespace tamblin
