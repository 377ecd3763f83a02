#include "ui/form.h"

#include "base/win32/busy_pointer.h"
#include "ui/dpi.h"

namespace tamblin {
namespace {

constexpr int ProgramIcon = 1;

struct FrameStyles {
    DWORD style = 0;
    DWORD extended = 0;
};

FrameStyles StylesOf(FormFrame frame) {
    switch (frame) {
        case FormFrame::Resizable:
            return {WS_OVERLAPPEDWINDOW, 0};
        case FormFrame::ResizableAsk:
            return {WS_POPUP | WS_CAPTION | WS_THICKFRAME, WS_EX_DLGMODALFRAME};
        case FormFrame::Fixed:
            return {WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, 0};
        case FormFrame::Borderless:
            return {WS_POPUP, WS_EX_APPWINDOW};
    }
    return {};
}

} // namespace

// The class that there is already stays.
void Form::RegisterClass(const std::wstring& name) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
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
    FrameStyles styles = StylesOf(frame);
    // An owned window has no button in the task bar from which it could be brought back.
    if (ownerHandle)
        styles.style &= ~static_cast<DWORD>(WS_MINIMIZEBOX);
    // On the monitor where the form will stand, so that it has that monitor's density from the
    // start.
    const HWND below = WindowBelow();
    RECT around{};
    const bool hasPlace = below && GetWindowRect(below, &around);
    CreateWindowExW(styles.extended | WS_EX_CONTROLPARENT, name.c_str(), title.c_str(),
                    styles.style | WS_CLIPCHILDREN,
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
}

void Form::Adopt(Control& control) {
    controls.push_back(&control);
    control.SetFont(*measure);
}

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

void Form::PaintNow() {
    RedrawWindow(handle, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void Form::PaintBehind(HDC target, HWND control, const RECT& area) {
    const HBRUSH brush = LabelBackground(target, control);
    FillRect(target, &area, brush ? brush : GetSysColorBrush(COLOR_BTNFACE));
}

} // namespace tamblin
