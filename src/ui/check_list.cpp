#include "ui/check_list.h"

#include "ui/form.h"

namespace tamblin {

CheckList::CheckList(Form& owner, int number, int columns, int rows)
    : Control(owner, {ControlKind::List, number}, WC_LISTBOXW, L"",
              LBS_NOTIFY | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT | WS_VSCROLL |
                  WS_HSCROLL | WS_TABSTOP,
              WS_EX_CLIENTEDGE),
      minimumColumns(columns),
      minimumRows(rows) {
    CheckList::SetFont(form.Measure());
}

CheckList::~CheckList() {
    if (accessible) {
        accessible->Disconnect();
        accessible->Release();
    }
}

IAccessible* CheckList::Accessible() {
    if (!accessible)
        accessible = new AccessibleCheckList(
            Handle(), [this](size_t row) { Toggle(static_cast<LRESULT>(row)); });
    accessible->SetName(AccessibleName());
    return accessible;
}

void CheckList::Show(const std::vector<std::wstring>& lines, const std::vector<bool>& ticks) {
    shown = lines;
    Send(LB_RESETCONTENT);
    for (size_t row = 0; row < lines.size(); ++row) {
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lines[row].c_str()));
        Send(LB_SETITEMDATA, row, ticks[row]);
    }
    Send(LB_SETCURSEL, 0);
    SetHorizontalExtent(form.Measure());
}

void CheckList::SetHorizontalExtent(const TextMeasure& measure) {
    const int widest = measure.Widest(shown) + measure.LineHeight() + measure.Across(8);
    Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest));
}

Size CheckList::NaturalSize(const TextMeasure& measure) const {
    return {measure.Across(4 * minimumColumns + 20),
            minimumRows * (measure.LineHeight() + measure.Down(3)) + measure.Down(6)};
}

void CheckList::SetFont(const TextMeasure& measure) {
    Control::SetFont(measure);
    Send(LB_SETITEMHEIGHT, 0, measure.LineHeight() + measure.Down(3));
    SetHorizontalExtent(measure);
}

int CheckList::BoxSize() const {
    return form.Measure().LineHeight();
}

bool CheckList::IsTicked(size_t row) const {
    return Send(LB_GETITEMDATA, row) == 1;
}

void CheckList::Toggle(LRESULT row) {
    if (row == LB_ERR)
        return;
    const auto line = static_cast<size_t>(row);
    const bool ticked = !IsTicked(line);
    Send(LB_SETITEMDATA, line, ticked);
    InvalidateRect(Handle(), nullptr, FALSE);
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Handle(), OBJID_CLIENT, static_cast<LONG>(line) + 1);
    if (onTick)
        onTick(line, ticked);
}

void CheckList::Notified(UINT code) {
    if (code == LBN_DBLCLK)
        Toggle(Send(LB_GETCURSEL));
}

LRESULT CheckList::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && wParam == VK_SPACE) {
        Toggle(Send(LB_GETCURSEL));
        return 0;
    }
    const bool clicked = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    const auto row = clicked ? RowOfBoxAt(lParam) : std::nullopt;
    if (!row)
        return Control::Received(message, wParam, lParam);
    Focus();
    Send(LB_SETCURSEL, static_cast<WPARAM>(*row));
    Toggle(*row);
    return 0;
}

// The row whose box is at a position in the list's client area.
std::optional<LRESULT> CheckList::RowOfBoxAt(LPARAM position) const {
    SCROLLINFO scrolled{};
    scrolled.cbSize = sizeof scrolled;
    scrolled.fMask = SIF_POS;
    GetScrollInfo(Handle(), SB_HORZ, &scrolled);
    if (GET_X_LPARAM(position) + scrolled.nPos > BoxSize() + form.Measure().Across(3))
        return std::nullopt;
    const LRESULT hit = Send(LB_ITEMFROMPOINT, 0, position);
    return HIWORD(hit) != 0 ? std::nullopt : std::optional<LRESULT>(LOWORD(hit));
}

void CheckList::Draw(const DRAWITEMSTRUCT& drawing) {
    if (drawing.itemID >= shown.size())
        return;
    const bool selected = (drawing.itemState & ODS_SELECTED) != 0;
    FillRect(drawing.hDC, &drawing.rcItem,
             GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    RECT box = drawing.rcItem;
    box.left += form.Measure().Across(2);
    box.top += (box.bottom - box.top - BoxSize()) / 2;
    box.right = box.left + BoxSize();
    box.bottom = box.top + BoxSize();
    const UINT tick = IsTicked(drawing.itemID) ? DFCS_CHECKED : 0;
    DrawFrameControl(drawing.hDC, &box, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_FLAT | tick);

    SetBkMode(drawing.hDC, TRANSPARENT);
    SetTextColor(drawing.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RECT text = drawing.rcItem;
    text.left = box.right + form.Measure().Across(3);
    DrawTextW(drawing.hDC, shown[drawing.itemID].c_str(), -1, &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
    if (drawing.itemState & ODS_FOCUS)
        DrawFocusRect(drawing.hDC, &drawing.rcItem);
}

} // namespace tamblin
