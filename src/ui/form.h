// A top-level window of the program: its controls, their layout, and its events. Form N has the
// window class "Tamblin.FormN". A form is hidden until it is shown, and open until it is closed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/at_exit.h"
#include "base/menu.h"
#include "ui/application.h"
#include "ui/control.h"
#include "ui/gdi_object.h"
#include "ui/layout.h"
#include "ui/tool_tip.h"
#include "ui/windows_headers.h"

namespace tamblin {

enum class FormFrame {
    Resizable,    // caption, close box, minimise and maximise boxes
    ResizableAsk, // resizable, but left by its buttons only: no close box
    Fixed,        // caption, close box
    Borderless,   // no caption
};

enum class CloseReason { User, Program };

class Form {
  public:
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    HWND Handle() const { return handle; }
    bool IsOpen() const { return handle != nullptr; }
    bool IsClosing() const { return closing; }
    Application& App() const { return application; }
    const TextMeasure& Measure() const { return *measure; }
    // Changes each time the layout is worked out; controls measure themselves once in between.
    unsigned LayoutPass() const { return layoutPass; }
    unsigned Dpi() const { return dpi; }

    void Show();
    void Hide();
    // Shows the form and returns when it has been closed. Until then no other form can be used.
    void ShowModal();

    // Closes the form, unless MayClose says no.
    void Close() { CloseFor(CloseReason::Program); }

    // While an operation holds the form it is disabled, no control of it has the focus, and
    // activation does nothing.
    void Hold();
    void Release();
    bool IsHeld() const { return holds > 0; }
    // The user has taken the form by its title or edge and not yet let go of it.
    bool IsBeingMoved() const { return beingMoved; }
    // Holds the form for as long as the result lives, as during the shell's own operations: these
    // show a window of the shell's and let the user act on ours meanwhile.
    [[nodiscard]] auto HoldMeanwhile() {
        Hold();
        return AtExit([this] { Release(); });
    }

    // In tab order.
    const std::vector<Control*>& Controls() const { return controls; }

    // For the controls.
    void Adopt(Control& control);
    void Disown(Control& control) { std::erase(controls, &control); }
    void PointerMoved(POINT screenPosition, Control* control);
    void FocusCame(const Control& control) { FocusOn(control); }
    // The mouse's messages to a control, for the text of what does not fit.
    void ShowTip(const Control& control, const MSG& message);

    // Paints into part of a control what lies behind it.
    void PaintBehind(HDC target, HWND control, const RECT& area);

    // Return and Escape, before the system's own keyboard handling of dialog boxes sees them.
    bool TakesKey(const MSG& message);

    // Closes without asking.
    void Destroy();

  protected:
    Form(Application& owner, int number, const std::wstring& title, FormFrame frame,
         HWND ownerWindow = nullptr);

    // Before the form is shown for the first time.
    virtual void Load() {}
    // The focus has come from another form of the program, or the form has been shown.
    virtual void Activated() {}
    // False keeps the form open.
    virtual bool MayClose(CloseReason) { return true; }
    // Once it is certain that the form closes.
    virtual void Closing() {}
    virtual void Tick() {}
    // The pointer has moved: over a button or other control, enabled or not, or over the form's
    // own surface (null).
    virtual void PointerOver(Control*) {}
    // A control of the form has got the focus.
    virtual void FocusOn(const Control&) {}
    // An item of a menu that the form has opened.
    virtual void MenuChosen(MenuItem) {}
    virtual void ReturnPressed() {}
    virtual void EscapePressed() {}
    // Any other key that the control with the focus has left. True when it has been dealt with.
    virtual bool KeyPressed(const KeyPress&, const Control*) { return false; }
    // Files that another program has dropped on the form, which AcceptFiles has asked for.
    virtual void FilesDropped(const std::vector<std::wstring>&) {}
    // Font, density or size have changed.
    virtual void Arranged() {}
    // Paints what lies behind the controls. False leaves it to the system.
    virtual bool PaintBackground(HDC) { return false; }
    // The brush behind a label; null leaves it to the system.
    virtual HBRUSH LabelBackground(HDC, HWND) { return nullptr; }
    // The client area's size when the form is shown for the first time.
    virtual Size FirstSize() const;
    // How large that shall be at the least, in the font's units.
    void SetFirstSize(Size units) { firstSize = units; }

    void SetLayout(std::unique_ptr<LayoutItem> newLayout) { layout = std::move(newLayout); }
    Size MinimumSize() const;
    void Arrange();
    // Paints what waits to be painted, before work that will not give way.
    void PaintNow();
    void AcceptFiles();
    // Returns when the menu has gone; at once when it is empty.
    void ShowMenu(const Menu& menu, POINT screenPosition);
    // Where the keyboard is when the form is shown.
    void SetFirstFocus(Control& control) { firstFocus = &control; }
    // One tick each so many milliseconds; no tick comes while one is being handled.
    void StartTimer(unsigned milliseconds);
    void StopTimer();
    // The part of the screen that the form may cover when it is first shown, without its frame.
    Size RoomOnScreen() const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void RegisterClass(const std::wstring& name);
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleSystemMessage(UINT message, WPARAM wParam, LPARAM lParam);

    void CloseFor(CloseReason reason);
    void EndModal();
    void GiveFocusBack();
    void ActivationChanged(WPARAM wParam);
    void Focused();
    void Commanded(WPARAM wParam, LPARAM lParam);
    LRESULT Notified(const NMHDR& notification);
    bool TakesAccessKey(const MSG& message);
    void TimerRang();
    void TakeDroppedFiles(HDROP drop);
    void SetDensity(unsigned newDpi);
    void FitTextToScreen();
    bool FitsScreen() const;
    void WriteAtDensity(unsigned textDpi);
    void DensityChanged(unsigned newDpi, const RECT& suggested);
    void AppearanceChanged();
    HWND WindowBelow() const;
    void PutInPlace();
    void KeepSizeInBounds(MINMAXINFO& info) const;
    RECT FrameAround(Size clientSize) const;
    bool IsUsable(HWND control) const;
    void KeepFocusUsable();
    void EventOver();
    Control* Find(HWND window) const;
    Control* ControlUnder(POINT screenPosition) const;

    Application& application;
    HWND handle = nullptr;
    HWND ownerHandle;
    std::vector<Control*> controls;
    std::unique_ptr<LayoutItem> layout;
    mutable unsigned layoutPass = 1;
    GdiObject<HFONT> font;
    std::unique_ptr<TextMeasure> measure;
    ToolTip tip;
    unsigned dpi = 96;
    Size firstSize;
    Control* firstFocus = nullptr;
    HWND lastFocus = nullptr;
    HWND parkedFocus = nullptr; // what had the focus before an operation held the form
    POINT lastPointer{};
    int holds = 0;
    int events = 0; // that are being handled, one within another
    bool loaded = false;
    bool closing = false;
    bool ticking = false;
    bool beingMoved = false;
    bool modal = false;
    std::vector<HWND> disabledByModal;
};

} // namespace tamblin
