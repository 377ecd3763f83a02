// What all controls of a form have in common: a child window with its computed ID, a place in the
// layout, and a name for those who cannot see it. Controls are members of their form, declared in
// tab order; a label stands before the control it names.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/control_id.h"
#include "ui/layout.h"
#include "ui/windows_headers.h"

namespace tamblin {

class Control;
class Form;

// Controls that shall be equally wide, however long their captions are.
using WidthGroup = std::vector<const Control*>;

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

    // For a control without a text of its own and without a label before it.
    void SetAccessibleName(const std::wstring& newName);
    const std::wstring& AccessibleName() const { return accessibleName; }

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
    // Return was pressed while the control has the focus. False leaves it to the form.
    virtual bool TakeReturn() { return false; }
    // Escape was pressed while the control has the focus.
    virtual bool TakeEscape() { return false; }

  protected:
    // A message to the control's window. True when it has been dealt with.
    virtual bool Received(UINT, WPARAM, LPARAM) { return false; }

    Control(Form& owner, ControlName controlName, const wchar_t* windowClass,
            const std::wstring& text, DWORD style, DWORD extendedStyle = 0);

    Form& form;

  private:
    static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);

    HWND handle = nullptr;
    ControlName name;
    std::wstring accessibleName;
    WidthGroup* widthGroup = nullptr;
    mutable Size measured;
    mutable unsigned measuredInPass = 0;
};

} // namespace tamblin
