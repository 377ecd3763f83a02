#include "ui/list_box.h"

#include <algorithm>

#include "ui/dpi.h"
#include "ui/form.h"

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

// While one of these lives, the list does not paint, neither its rows nor its scroll bars. The list
// itself takes care of the rows only.
class StillPicture {
  public:
    explicit StillPicture(const Control& stilledList)
        : window(stilledList.Handle()), wasVisible(stilledList.IsVisible()) {
        ::SendMessageW(window, WM_SETREDRAW, FALSE, 0);
        if (wasVisible)
            DefWindowProcW(window, WM_SETREDRAW, FALSE, 0);
    }
    ~StillPicture() {
        if (wasVisible)
            DefWindowProcW(window, WM_SETREDRAW, TRUE, 0);
        ::SendMessageW(window, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE);
    }
    StillPicture(const StillPicture&) = delete;
    StillPicture& operator=(const StillPicture&) = delete;

  private:
    HWND window;
    bool wasVisible;
};

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
    const auto top = static_cast<size_t>(Send(LB_GETTOPINDEX));
    const std::wstring topEntry = top < entries.size() ? entries[top] : std::wstring();
    size_t bytes = 0;
    for (const std::wstring& entry : newEntries)
        bytes += (entry.size() + 1) * sizeof(wchar_t);
    Send(LB_RESETCONTENT);
    Send(LB_INITSTORAGE, newEntries.size(), static_cast<LPARAM>(bytes));
    for (const std::wstring& entry : newEntries)
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    entries = newEntries;
    SetHorizontalExtent(form.Measure());
    ScrollBackTo(topEntry);
}

void ListBox::ScrollBackTo(const std::wstring& topEntry) {
    const auto found = std::find(entries.begin(), entries.end(), topEntry);
    if (found != entries.end())
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(found - entries.begin()));
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
    const auto row = static_cast<size_t>(several ? Send(LB_GETCARETINDEX) : Send(LB_GETCURSEL));
    if (onOpen && row < entries.size())
        onOpen(row);
}

bool ListBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr WPARAM otherButtons = MK_LBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;
    if (!onMenu)
        return false;
    if (message == WM_RBUTTONUP) {
        POINT position{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        ClientToScreen(Handle(), &position);
        if ((wParam & otherButtons) == 0)
            onMenu(position);
        return true;
    }
    const bool byKeyboard = message == WM_CONTEXTMENU && lParam == -1;
    if (byKeyboard)
        onMenu(MenuKeyPosition());
    return byKeyboard;
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

bool ListBox::TakeReturn() {
    if (!onOpen)
        return false;
    Open();
    return true;
}

} // namespace tamblin
