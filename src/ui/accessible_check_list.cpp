#include "ui/accessible_check_list.h"

#include "ui/accessibility.h"

namespace tamblin {
namespace {

constexpr wchar_t TickAction[] = L"チェックを付ける";
constexpr wchar_t UntickAction[] = L"チェックを外す";

// Lines are the children 1, 2, 3 ...
WPARAM RowOf(const VARIANT& child) {
    return static_cast<WPARAM>(child.lVal) - 1;
}

HRESULT Answer(VARIANT* result, LONG number) {
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
}

HRESULT AnswerNothing(VARIANT* result) {
    result->vt = VT_EMPTY;
    return S_FALSE;
}

HRESULT Answer(BSTR* result, const std::wstring& text) {
    *result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
}

} // namespace

AccessibleCheckList::AccessibleCheckList(HWND listBox, std::function<void(size_t row)> toggleRow)
    : list(listBox), toggle(std::move(toggleRow)) {}

void AccessibleCheckList::Disconnect() {
    list = nullptr;
    toggle = nullptr;
}

// IUnknown, IDispatch

STDMETHODIMP AccessibleCheckList::QueryInterface(REFIID wanted, void** object) {
    *object = nullptr;
    if (wanted != IID_IUnknown && wanted != IID_IDispatch && wanted != IID_IAccessible)
        return E_NOINTERFACE;
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) AccessibleCheckList::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references));
}

STDMETHODIMP_(ULONG) AccessibleCheckList::Release() {
    const LONG left = InterlockedDecrement(&references);
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

STDMETHODIMP AccessibleCheckList::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

// What the list is

LRESULT AccessibleCheckList::Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
    return list ? ::SendMessageW(list, message, wParam, lParam) : LB_ERR;
}

LONG AccessibleCheckList::Count() const {
    const LRESULT count = Ask(LB_GETCOUNT);
    return count == LB_ERR ? 0 : static_cast<LONG>(count);
}

bool AccessibleCheckList::IsChild(const VARIANT& child) const {
    return child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= Count();
}

bool AccessibleCheckList::IsValid(const VARIANT& child) const {
    return IsChild(child) || (child.vt == VT_I4 && child.lVal == CHILDID_SELF);
}

STDMETHODIMP AccessibleCheckList::get_accParent(IDispatch** parent) {
    return AccessibleWindow(list, parent);
}

STDMETHODIMP AccessibleCheckList::get_accChildCount(LONG* count) {
    *count = Count();
    return S_OK;
}

STDMETHODIMP AccessibleCheckList::get_accChild(VARIANT child, IDispatch** object) {
    *object = nullptr;
    return IsValid(child) ? S_FALSE : E_INVALIDARG;
}

STDMETHODIMP AccessibleCheckList::get_accName(VARIANT child, BSTR* text) {
    *text = nullptr;
    if (!IsValid(child))
        return E_INVALIDARG;
    if (!IsChild(child))
        return Answer(text, name);
    std::wstring line(static_cast<size_t>(Ask(LB_GETTEXTLEN, RowOf(child))) + 1, L'\0');
    Ask(LB_GETTEXT, RowOf(child), reinterpret_cast<LPARAM>(line.data()));
    line.pop_back();
    return Answer(text, line);
}

STDMETHODIMP AccessibleCheckList::get_accRole(VARIANT child, VARIANT* role) {
    if (!IsValid(child))
        return E_INVALIDARG;
    return Answer(role, IsChild(child) ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_LIST);
}

LONG AccessibleCheckList::StateOf(WPARAM row) const {
    LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    if (Ask(LB_GETITEMDATA, row) == 1)
        state |= STATE_SYSTEM_CHECKED;
    if (Ask(LB_GETCURSEL) == static_cast<LRESULT>(row))
        state |= STATE_SYSTEM_SELECTED | (GetFocus() == list ? STATE_SYSTEM_FOCUSED : 0);
    RECT line{};
    RECT seen{};
    Ask(LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&line));
    GetClientRect(list, &seen);
    if (!IntersectRect(&seen, &seen, &line))
        state |= STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    return state;
}

STDMETHODIMP AccessibleCheckList::get_accState(VARIANT child, VARIANT* state) {
    if (!IsValid(child))
        return E_INVALIDARG;
    const LONG ofList = STATE_SYSTEM_FOCUSABLE | (GetFocus() == list ? STATE_SYSTEM_FOCUSED : 0) |
                        (IsWindowVisible(list) ? 0 : STATE_SYSTEM_INVISIBLE);
    return Answer(state, IsChild(child) ? StateOf(RowOf(child)) : ofList);
}

STDMETHODIMP AccessibleCheckList::get_accFocus(VARIANT* child) {
    return list && GetFocus() == list ? Answer(child, static_cast<LONG>(Ask(LB_GETCURSEL)) + 1)
                                      : AnswerNothing(child);
}

STDMETHODIMP AccessibleCheckList::get_accSelection(VARIANT* child) {
    const LRESULT row = Ask(LB_GETCURSEL);
    return row == LB_ERR ? AnswerNothing(child) : Answer(child, static_cast<LONG>(row) + 1);
}

// Where its lines are

STDMETHODIMP AccessibleCheckList::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                              VARIANT child) {
    if (!IsValid(child))
        return E_INVALIDARG;
    RECT area{};
    if (IsChild(child)) {
        Ask(LB_GETITEMRECT, RowOf(child), reinterpret_cast<LPARAM>(&area));
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
    } else {
        GetWindowRect(list, &area);
    }
    *left = area.left;
    *top = area.top;
    *width = area.right - area.left;
    *height = area.bottom - area.top;
    return S_OK;
}

STDMETHODIMP AccessibleCheckList::accHitTest(LONG x, LONG y, VARIANT* child) {
    POINT position{x, y};
    ScreenToClient(list, &position);
    RECT client{};
    GetClientRect(list, &client);
    if (!PtInRect(&client, position))
        return AnswerNothing(child);
    const LRESULT hit = Ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(position.x, position.y));
    return Answer(child, HIWORD(hit) != 0 ? CHILDID_SELF : LOWORD(hit) + 1);
}

STDMETHODIMP AccessibleCheckList::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (!IsValid(start))
        return E_INVALIDARG;
    LONG to = 0;
    if (!IsChild(start))
        to = direction == NAVDIR_FIRSTCHILD ? 1 : direction == NAVDIR_LASTCHILD ? Count() : 0;
    else if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN)
        to = start.lVal + 1;
    else if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP)
        to = start.lVal - 1;
    return to >= 1 && to <= Count() ? Answer(end, to) : AnswerNothing(end);
}

// What can be done to them

STDMETHODIMP AccessibleCheckList::accSelect(LONG flags, VARIANT child) {
    if (!IsChild(child))
        return E_INVALIDARG;
    if (flags & SELFLAG_TAKEFOCUS)
        SetFocus(list);
    if (flags & (SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION))
        Ask(LB_SETCURSEL, RowOf(child));
    return S_OK;
}

STDMETHODIMP AccessibleCheckList::get_accDefaultAction(VARIANT child, BSTR* action) {
    *action = nullptr;
    if (!IsChild(child))
        return DISP_E_MEMBERNOTFOUND;
    return Answer(action, Ask(LB_GETITEMDATA, RowOf(child)) == 1 ? UntickAction : TickAction);
}

STDMETHODIMP AccessibleCheckList::accDoDefaultAction(VARIANT child) {
    if (!IsChild(child) || !toggle)
        return DISP_E_MEMBERNOTFOUND;
    if (!IsWindowEnabled(list) || !IsWindowEnabled(GetAncestor(list, GA_ROOT)))
        return S_FALSE;
    toggle(RowOf(child));
    return S_OK;
}

} // namespace tamblin
