// What all controls of a form have in common: a child window with its computed ID, a place in the
// layout, and a name for those who cannot see it. Controls are members of their form, declared in
// tab order; a label stands before the control it names.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/control_id.h"
#include "ui/layout.h"
#include "ui/windows_headers.h"

struct IAccessible;

namespace tamblin {

class Control;
class Form;

// A key and the modifiers held with it, Alt excepted.
struct KeyPress {
    enum Modifiers { None = 0, Shift = 1, Control = 2 };
    WPARAM key = 0;
    int modifiers = None;

    bool operator==(const KeyPress&) const = default;
};

// Controls that shall be equally wide, however long their captions are.
using WidthGroup = std::vector<const Control*>;

// A text that does not fit, and the area of its control's client area where it stands.
struct CutOffText {
    RECT area{};
    std::wstring text;
};

class Control : public LayoutItem {
  public:
    ~Control() override;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    HWND Handle() const { return handle; }
    ControlName Name() const { return name; }

    // Both do nothing when nothing changes, so that nothing flickers.
    void SetText(const std::wstring& text);
    std::wstring Text() const;
    void SetEnabled(bool on);
    bool IsEnabled() const;
    void SetVisible(bool on);
    // Whether the control itself is shown, also while its form is not.
    bool IsVisible() const;
    void Focus() { SetFocus(handle); }

    // Tells screen readers of every change of the text, wherever they are.
    void AnnounceChanges();

    // For a control without a text of its own and without a label before it.
    void SetAccessibleName(const std::wstring& newName);
    const std::wstring& AccessibleName() const { return accessibleName; }

    // Alt with a letter of this control's text stands for a click on `target`, or gives it the
    // focus. The text stays as it is, without a marker: the letter is underlined once the user has
    // held Alt.
    void SetAccessKey(wchar_t letter, Control& target);
    // Zero without one. A capital.
    wchar_t AccessKey() const { return accessKey; }
    Control* AccessTarget() const { return accessTarget; }

    void JoinWidth(WidthGroup& group);

    Size Minimum(const TextMeasure& measure) const final;
    // The natural size, measured once while the form works out its layout.
    Size MeasuredSize(const TextMeasure& measure) const;
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override;

    // What the control needs for its text, without regard to the others of its width group.
    virtual Size NaturalSize(const TextMeasure& measure) const = 0;

    virtual void SetFont(const TextMeasure& measure);
    // A notification that the control has sent to its form.
    virtual void Notified(UINT) {}
    // Owner-drawn controls draw themselves here.
    virtual void Draw(const DRAWITEMSTRUCT&) {}
    // A key was pressed while the control has the focus. False leaves it to the form.
    virtual bool TakeKey(const KeyPress&) { return false; }

    // The control's access key, or that of its label. Where the control is disabled it does
    // nothing.
    virtual void TakeAccessKey();
    // How to go on with a stage of the control's drawing (CDRF_...).
    virtual LRESULT CustomDraw(const NMCUSTOMDRAW&) { return CDRF_DODEFAULT; }

    // The text under a position of the client area, if it does not fit.
    virtual std::optional<CutOffText> CutOffAt(POINT) const { return std::nullopt; }

    // What screen readers are told instead of what the system knows of the control; null leaves it
    // to the system. The control keeps it.
    virtual IAccessible* Accessible() { return nullptr; }

  protected:
    // A message to the control's window. What is left to the system goes to the base class.
    virtual LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam);

    Control(Form& owner, ControlName controlName, const wchar_t* windowClass,
            const std::wstring& text, DWORD style, DWORD extendedStyle = 0);

    // A message to the control's own window.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(handle, message, wParam, lParam);
    }
    // Underlines the access key in the first line of the text, which stands there.
    void UnderlineAccessKey(HDC target, POINT text) const;
    bool ShowsAccessKey() const;

    Form& form;

  private:
    static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM);

    HWND handle = nullptr;
    WNDPROC systemProcedure = nullptr;
    ControlName name;
    std::wstring accessibleName;
    wchar_t accessKey = 0;
    Control* accessTarget = nullptr;
    bool announced = false;
    WidthGroup* widthGroup = nullptr;
    mutable Size measured;
    mutable unsigned measuredInPass = 0;
};

} // namespace tamblin
