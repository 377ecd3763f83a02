#include "windows/form_check.h"

#include <algorithm>
#include <cstdio>
#include <cwctype>
#include <set>

#include "ui/picture_button.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

std::string Utf8(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                         nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(), size,
                        nullptr, nullptr);
    return bytes;
}

std::string Describe(const Control& control) {
    return Utf8(ClassOf(control.Handle())) + " " + std::to_string(GetDlgCtrlID(control.Handle())) +
           " \"" + Utf8(control.Text()) + "\"";
}

bool ShowsItsText(const Control& control) {
    if (const auto* picture = dynamic_cast<const PictureButton*>(&control))
        return picture->ShowsCaption();
    const std::wstring name = ClassOf(control.Handle());
    const DWORD style = static_cast<DWORD>(GetWindowLongW(control.Handle(), GWL_STYLE));
    if (name == L"Static")
        return (style & SS_TYPEMASK) != SS_OWNERDRAW && (style & SS_ELLIPSISMASK) == 0;
    return name == L"Button";
}

// Labels wrap at their width, other texts at "\n" only; "&&" shows as one sign unless the control
// takes it literally.
SIZE TextSize(const Control& control) {
    std::wstring text = control.Text();
    const HWND window = control.Handle();
    const HDC target = GetDC(window);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    const HGDIOBJ former = SelectObject(target, font);
    const DWORD style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const bool literal = ClassOf(window) == L"Static" && (style & SS_NOPREFIX);
    RECT area = ClientAreaOf(window);
    const bool wraps = ClassOf(window) == L"Static";
    DrawTextW(target, text.c_str(), -1, &area,
              DT_CALCRECT | (literal ? static_cast<UINT>(DT_NOPREFIX) : 0u) |
                  (wraps ? static_cast<UINT>(DT_WORDBREAK) : 0u));
    SelectObject(target, former);
    ReleaseDC(window, target);
    return {area.right, area.bottom};
}

bool Overlap(const RECT& a, const RECT& b) {
    RECT common{};
    return IntersectRect(&common, &a, &b) != 0;
}

} // namespace

void MoveToDensity(Form& form, unsigned dpi) {
    RECT suggested = AreaOf(form.Handle());
    SendMessageW(form.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&suggested));
}

void ShrinkToMinimum(Form& form) {
    MINMAXINFO info{};
    SendMessageW(form.Handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    SetWindowPos(form.Handle(), nullptr, 0, 0, info.ptMinTrackSize.x, info.ptMinTrackSize.y,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string CutOffCaptions(const Form& form) {
    std::string faults;
    for (const Control* control : form.Controls()) {
        if (!ShowsItsText(*control) || control->Text().empty())
            continue;
        const SIZE text = TextSize(*control);
        const RECT room = ClientAreaOf(control->Handle());
        if (text.cx > room.right || text.cy > room.bottom)
            faults += Describe(*control) + ": needs " + std::to_string(text.cx) + "x" +
                      std::to_string(text.cy) + ", has " + std::to_string(room.right) + "x" +
                      std::to_string(room.bottom) + "\n";
    }
    return faults;
}

std::string MisplacedControls(const Form& form) {
    std::string faults;
    const RECT client = ClientAreaOf(form.Handle());
    const auto& controls = form.Controls();
    for (size_t i = 0; i < controls.size(); ++i) {
        const RECT area = AreaInForm(form, *controls[i]);
        if (area.left < 0 || area.top < 0 || area.right > client.right ||
            area.bottom > client.bottom)
            faults += Describe(*controls[i]) + " sticks out of the form\n";
        for (size_t j = 0; j < i; ++j)
            if (controls[i]->IsVisible() && controls[j]->IsVisible() &&
                Overlap(area, AreaInForm(form, *controls[j])))
                faults += Describe(*controls[i]) + " overlaps " + Describe(*controls[j]) + "\n";
    }
    return faults;
}

std::string NamelessControls(const Form& form) {
    std::string faults;
    for (const Control* control : form.Controls()) {
        const bool textIsName =
            control->Name().kind != ControlKind::Text && control->Name().kind != ControlKind::Combo;
        const bool named =
            (textIsName && !control->Text().empty()) || !control->AccessibleName().empty();
        const bool isLabel = control->Name().kind == ControlKind::Label;
        if (!named && !isLabel)
            faults += Describe(*control) + " has no name for screen readers\n";
    }
    return faults;
}

std::string WrongIds(const Form& form) {
    std::string faults;
    std::set<int> seen;
    for (const Control* control : form.Controls()) {
        const int id = GetDlgCtrlID(control->Handle());
        if (id != ControlId(control->Name()) || GetParent(control->Handle()) != form.Handle())
            faults += Describe(*control) + " is not where its name says\n";
        if (!seen.insert(id).second)
            faults += Describe(*control) + " shares its ID\n";
    }
    return faults;
}

std::string WrongAccessKeys(const Form& form) {
    const auto isLatin = [](wchar_t letter) {
        return letter < 0x80 && std::iswalpha(letter);
    };
    std::string faults;
    std::set<wchar_t> keys;
    std::set<const Control*> targets;
    for (const Control* control : form.Controls()) {
        const wchar_t key = control->AccessKey();
        if (!key)
            continue;
        std::wstring text = control->Text();
        std::transform(text.begin(), text.end(), text.begin(), std::towupper);
        if (!keys.insert(key).second || !isLatin(key) || text.find(key) == std::wstring::npos)
            faults += Describe(*control) + " has the access key of another, or not of its text\n";
        targets.insert(control->AccessTarget());
    }
    for (const Control* control : form.Controls()) {
        const std::wstring text = control->Text();
        if (control->Name().kind == ControlKind::Command && !targets.contains(control) &&
            std::any_of(text.begin(), text.end(), isLatin))
            faults += Describe(*control) + " has no access key\n";
    }
    return faults;
}

std::string UnreachableControls(const Form& form) {
    std::set<HWND> reached;
    HWND at = nullptr;
    for (size_t step = 0; step <= form.Controls().size(); ++step) {
        at = GetNextDlgTabItem(form.Handle(), at, FALSE);
        reached.insert(at);
    }
    // Of a row of options the Tab key comes to one, the arrow keys to the others.
    std::set<int> rows;
    for (const Control* control : form.Controls())
        if (control->Name().kind == ControlKind::Option && reached.contains(control->Handle()))
            rows.insert(control->Name().number);
    std::string faults;
    for (const Control* control : form.Controls()) {
        const ControlName name = control->Name();
        const LONG style = GetWindowLongW(control->Handle(), GWL_STYLE);
        const bool statusLine =
            name.kind == ControlKind::Text && (style & ES_READONLY) && (style & WS_TABSTOP) == 0;
        const bool forReading =
            name.kind == ControlKind::Label || name.kind == ControlKind::Image || statusLine;
        const bool usable = !forReading && control->IsEnabled() && control->IsVisible();
        const bool byArrows = name.kind == ControlKind::Option && rows.contains(name.number);
        if (usable && !byArrows && !reached.contains(control->Handle()))
            faults += Describe(*control) + " cannot be reached with the keyboard\n";
    }
    return faults;
}

std::string FaultsOf(Form& form) {
    std::string faults =
        NamelessControls(form) + WrongIds(form) + WrongAccessKeys(form) + UnreachableControls(form);
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        std::string here = CutOffCaptions(form) + MisplacedControls(form);
        ShrinkToMinimum(form);
        here += CutOffCaptions(form) + MisplacedControls(form);
        if (!here.empty())
            faults += "at " + std::to_string(dpi) + " dpi:\n" + here;
    }
    return faults;
}

std::string WrongElements(const Form& form, std::span<const Element> elements) {
    std::string wrong;
    for (const Element& element : elements) {
        const int id = ControlId({element.kind, element.number, element.index});
        const HWND window = GetDlgItem(form.Handle(), id);
        if (!window) {
            wrong += std::to_string(id) + " is missing\n";
            continue;
        }
        const std::wstring text = TextOf(window);
        if (ClassOf(window) != element.windowClass)
            wrong += std::to_string(id) + " is a " + Utf8(ClassOf(window)) + "\n";
        if (element.caption && text != element.caption)
            wrong += std::to_string(id) + " says " + Utf8(text) + "\n";
    }
    if (form.Controls().size() != elements.size())
        wrong += std::to_string(form.Controls().size()) + " controls\n";
    return wrong;
}

} // namespace tamblin
