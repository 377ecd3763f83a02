#include "ui/list_box.h"

#include <algorithm>

#include "ui/dpi.h"
#include "ui/form.h"
#include "ui/still_picture.h"

namespace tamblin {
namespace {

DWORD StyleFor(ListBox::Selecting mode) {
    const DWORD style =
        LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
    return mode == ListBox::Selecting::Several ? style | LBS_EXTENDEDSEL : style;
}

int RowHeight(const TextMeasure& measure) {
    return measure.LineHeight() + measure.Down(1);
}

} // namespace

ListBox::ListBox(Form& owner, int number, Selecting mode, int columns, int rows)
    : Control(owner, {ControlKind::List, number}, WC_LISTBOXW, L"", StyleFor(mode),
              WS_EX_CLIENTEDGE),
      several(mode == Selecting::Several),
      minimumColumns(columns),
      minimumRows(rows) {
    ListBox::SetFont(form.Measure());
}

void ListBox::Show(const SelectionList& list) {
    if (list.Entries() == entries) {
        ShowSelections(list);
        return;
    }
    const StillPicture still(*this);
    ShowEntries(list.Entries());
    ShowSelections(list);
}

void ListBox::Show(const std::vector<std::wstring>& rows, size_t selectedRow) {
    const auto selected = static_cast<WPARAM>(selectedRow < rows.size() ? selectedRow : 0);
    if (rows == entries) {
        if (static_cast<WPARAM>(Send(LB_GETCURSEL)) != selected)
            Send(LB_SETCURSEL, selected);
        return;
    }
    const StillPicture still(*this);
    ShowEntries(rows);
    Send(LB_SETCURSEL, selected);
}

void ListBox::ShowEntries(const std::vector<std::wstring>& newEntries) {
    const std::wstring top = EntryAt(LB_GETTOPINDEX);
    const std::wstring caret = EntryAt(LB_GETCARETINDEX);
    size_t bytes = 0;
    for (const std::wstring& entry : newEntries)
        bytes += (entry.size() + 1) * sizeof(wchar_t);
    Send(LB_RESETCONTENT);
    Send(LB_INITSTORAGE, newEntries.size(), static_cast<LPARAM>(bytes));
    for (const std::wstring& entry : newEntries)
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    entries = newEntries;
    SetHorizontalExtent(form.Measure());
    if (const auto row = RowOf(caret); row && several)
        MoveCaretTo(*row);
    Send(LB_SETTOPINDEX, RowOf(top).value_or(0));
}

// The entry at the index that the list answers.
std::wstring ListBox::EntryAt(UINT indexMessage) const {
    const auto row = static_cast<size_t>(Send(indexMessage));
    return row < entries.size() ? entries[row] : std::wstring();
}

std::optional<size_t> ListBox::RowOf(const std::wstring& entry) const {
    const auto found = std::find(entries.begin(), entries.end(), entry);
    return found == entries.end() ? std::nullopt
                                  : std::optional(static_cast<size_t>(found - entries.begin()));
}

// From there the keyboard goes on, also with the shift key.
void ListBox::MoveCaretTo(size_t row) {
    Send(LB_SETCARETINDEX, row);
    Send(LB_SETANCHORINDEX, row);
}

// Every entry can be scrolled into view, with two blanks behind it. The entry with the most
// characters would not do: one with fewer of them may be wider.
void ListBox::SetHorizontalExtent(const TextMeasure& measure) {
    const int widest = measure.Widest(entries) + measure.Width(L"  ");
    Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest));
}

void ListBox::ShowSelections(const SelectionList& list) {
    if (!several) {
        const auto selected = list.FirstSelected();
        Send(LB_SETCURSEL, selected ? *selected : static_cast<WPARAM>(-1));
        return;
    }
    std::vector<bool> wanted(entries.size());
    for (size_t row = 0; row < wanted.size(); ++row)
        wanted[row] = list.IsSelected(row);
    const auto shown = Selections();
    if (shown == wanted)
        return;
    // Selecting a row scrolls to it.
    const StillPicture still(*this);
    const auto top = static_cast<WPARAM>(Send(LB_GETTOPINDEX));
    for (size_t row = 0; row < wanted.size(); ++row)
        if (shown[row] != wanted[row])
            row = SelectRun(row, shown, wanted);
    if (const auto only = list.FirstSelected(); list.SelectedCount() == 1 && !shown[*only])
        MoveCaretTo(*only);
    Send(LB_SETTOPINDEX, top);
}

// Selects or deselects the rows from `first` on that change alike. Returns the last of them.
size_t ListBox::SelectRun(size_t first, const std::vector<bool>& shown,
                          const std::vector<bool>& wanted) {
    size_t last = first;
    while (last + 1 < wanted.size() && wanted[last + 1] == wanted[first] &&
           shown[last + 1] != wanted[first])
        ++last;
    if (first == last)
        Send(LB_SETSEL, wanted[first], static_cast<LPARAM>(first));
    else if (wanted[first])
        Send(LB_SELITEMRANGEEX, first, static_cast<LPARAM>(last));
    else
        Send(LB_SELITEMRANGEEX, last, static_cast<LPARAM>(first));
    return last;
}

std::optional<size_t> ListBox::SelectedRow() const {
    const LRESULT row = Send(LB_GETCURSEL);
    return row == LB_ERR ? std::nullopt : std::optional(static_cast<size_t>(row));
}

std::vector<bool> ListBox::Selections() const {
    std::vector<bool> selected(entries.size());
    if (!several) {
        if (const auto row = SelectedRow(); row && *row < selected.size())
            selected[*row] = true;
        return selected;
    }
    std::vector<int> rows(entries.size());
    const LRESULT count = Send(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    for (LRESULT i = 0; i < count; ++i)
        selected[static_cast<size_t>(rows[static_cast<size_t>(i)])] = true;
    return selected;
}

void ListBox::ReadSelections(SelectionList& list) const {
    const auto selected = Selections();
    for (size_t row = 0; row < std::min(selected.size(), list.Size()); ++row)
        list.Select(row, selected[row]);
}

Size ListBox::RoomFor(int columns, int rows) const {
    const TextMeasure& measure = form.Measure();
    const int border = 2 * SystemMetric(SM_CYEDGE, form.Dpi());
    return {measure.Across(4 * columns + 2) + SystemMetric(SM_CXVSCROLL, form.Dpi()) + border,
            rows * RowHeight(measure) + SystemMetric(SM_CYHSCROLL, form.Dpi()) + border};
}

void ListBox::SetFont(const TextMeasure& measure) {
    Control::SetFont(measure);
    Send(LB_SETITEMHEIGHT, 0, RowHeight(measure));
    SetHorizontalExtent(measure);
}

void ListBox::Notified(UINT code) {
    if (code == LBN_SELCHANGE && onSelect)
        onSelect();
    else if (code == LBN_DBLCLK)
        Open();
}

void ListBox::Open() {
    if (const size_t row = CurrentRow(); onOpen && row < entries.size())
        onOpen(row);
}

// Beyond all rows when there is none.
size_t ListBox::CurrentRow() const {
    return static_cast<size_t>(several ? Send(LB_GETCARETINDEX) : Send(LB_GETCURSEL));
}

void ListBox::Typed(wchar_t letter) {
    const size_t row = CurrentRow();
    const auto found = typeAhead.Find(
        letter, GetTickCount64(), row < entries.size() ? row : 0, entries.size(),
        [this](size_t index) { return nameOf ? nameOf(entries[index]) : entries[index]; });
    if (found)
        SelectOnly(*found);
}

void ListBox::SelectOnly(size_t row) {
    if (several) {
        Send(LB_SETSEL, FALSE, -1);
        Send(LB_SETSEL, TRUE, static_cast<LPARAM>(row));
        MoveCaretTo(row);
    } else {
        Send(LB_SETCURSEL, row);
    }
    if (onSelect)
        onSelect();
}

LRESULT ListBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDBLCLK && !RowAt(lParam))
        return 0; // else it would open the row that has the keyboard
    if (message == WM_CHAR) {
        Typed(static_cast<wchar_t>(wParam));
        return 0;
    }
    if (onMenu && message == WM_RBUTTONUP) {
        OpenMenu(wParam, lParam);
        return 0;
    }
    if (onMenu && message == WM_CONTEXTMENU && lParam == -1) { // by the keyboard
        onMenu(MenuKeyPosition(), std::nullopt);
        return 0;
    }
    return Control::Received(message, wParam, lParam);
}

// The right button has been let go of.
void ListBox::OpenMenu(WPARAM otherButtons, LPARAM position) {
    constexpr WPARAM others = MK_LBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;
    if ((otherButtons & others) != 0)
        return;
    POINT onScreen{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ClientToScreen(Handle(), &onScreen);
    Focus();
    onMenu(onScreen, RowAt(position));
}

// At the line that has the keyboard.
POINT ListBox::MenuKeyPosition() const {
    RECT line{};
    Send(LB_GETITEMRECT, static_cast<WPARAM>(Send(LB_GETCARETINDEX)),
         reinterpret_cast<LPARAM>(&line));
    POINT position{line.left + (line.bottom - line.top), line.bottom};
    ClientToScreen(Handle(), &position);
    return position;
}

// The row under a position in the list's client area.
std::optional<size_t> ListBox::RowAt(LPARAM position) const {
    const LRESULT hit = Send(LB_ITEMFROMPOINT, 0, position);
    const bool beside = HIWORD(hit) != 0 || LOWORD(hit) >= entries.size();
    return beside ? std::nullopt : std::optional<size_t>(LOWORD(hit));
}

std::optional<CutOffText> ListBox::CutOffAt(POINT position) const {
    const auto row = RowAt(MAKELPARAM(position.x, position.y));
    RECT list{};
    GetClientRect(Handle(), &list);
    if (!row || form.Measure().Width(entries[*row]) + form.Measure().Across(2) <= list.right)
        return std::nullopt;
    CutOffText cut{{}, entries[*row]};
    Send(LB_GETITEMRECT, *row, reinterpret_cast<LPARAM>(&cut.area));
    IntersectRect(&cut.area, &cut.area, &list);
    return cut;
}

bool ListBox::TakeKey(const KeyPress& press) {
    if (onOpen && press.key == VK_RETURN) {
        Open();
        return true;
    }
    if (!several || press != KeyPress{'A', KeyPress::Control})
        return false;
    Send(LB_SETSEL, TRUE, -1);
    if (onSelect)
        onSelect();
    return true;
}

} // namespace tamblin
