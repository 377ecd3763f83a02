#include "ui/combo_box.h"

#include "ui/form.h"

namespace tamblin {

constexpr int VisibleEntries = 12;

ComboBox::ComboBox(Form& owner, int number)
    : Control(owner, {ControlKind::Combo, number}, WC_COMBOBOXW, L"",
              CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP) {
    ComboBox::SetFont(form.Measure());
}

void ComboBox::Show(const std::vector<std::wstring>& newEntries, std::optional<size_t> selected) {
    if (newEntries != entries) {
        Send(CB_RESETCONTENT);
        for (const std::wstring& entry : newEntries)
            Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
        entries = newEntries;
        const int widest = form.Measure().Widest(entries) + form.Measure().Across(16);
        Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest), 0);
    }
    if (selected != Selected())
        Send(CB_SETCURSEL, selected ? static_cast<WPARAM>(*selected) : static_cast<WPARAM>(-1), 0);
}

std::optional<size_t> ComboBox::Selected() const {
    const LRESULT entry = Send(CB_GETCURSEL);
    return entry == CB_ERR ? std::nullopt : std::optional(static_cast<size_t>(entry));
}

Size ComboBox::NaturalSize(const TextMeasure& measure) const {
    RECT closed{};
    GetWindowRect(Handle(), &closed);
    return {measure.Across(60), closed.bottom - closed.top};
}

// The height given to a combo box is that of its open list; closed it takes the font's.
void ComboBox::Arrange(const Place& place, const TextMeasure& measure, Placement& placement) {
    Place open = place;
    open.height += VisibleEntries * measure.LineHeight() + measure.Down(2);
    placement.Put(Handle(), open);
}

void ComboBox::SetFont(const TextMeasure& measure) {
    Control::SetFont(measure);
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), measure.LineHeight() + measure.Down(2));
    // Asked of the combo box, Wine leaves the open list's rows as they are.
    ::SendMessageW(Parts().hwndList, LB_SETITEMHEIGHT, 0, measure.LineHeight() + measure.Down(1));
}

COMBOBOXINFO ComboBox::Parts() const {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(Handle(), &parts);
    return parts;
}

void ComboBox::Notified(UINT code) {
    const auto entry = Selected();
    if (code == CBN_SELCHANGE && entry && onSelect)
        onSelect(*entry);
}

bool ComboBox::IsDropped() const {
    return Send(CB_GETDROPPEDSTATE) != 0;
}

std::optional<CutOffText> ComboBox::CutOffAt(POINT) const {
    const CutOffText cut{Parts().rcItem, Text()};
    const int needed = form.Measure().Width(cut.text) + form.Measure().Across(2);
    const bool fits = needed <= cut.area.right - cut.area.left;
    return fits || IsDropped() ? std::nullopt : std::optional(cut);
}

bool ComboBox::TakeKey(const KeyPress& press) {
    if ((press.key != VK_RETURN && press.key != VK_ESCAPE) || !IsDropped())
        return false;
    Send(CB_SHOWDROPDOWN, FALSE, 0);
    return true;
}

} // namespace tamblin
