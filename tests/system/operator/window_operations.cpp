#include "window_operations.h"

#include <algorithm>
#include <stdexcept>

#include "json.h"
#include "message_operations.h"

namespace tamblin {

namespace {

constexpr std::size_t textLimit = 32768;

std::string Number(HWND window) {
    return JsonNumber(reinterpret_cast<std::intptr_t>(window));
}

std::wstring ClassName(HWND window) {
    wchar_t name[256];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 256))};
}

std::wstring Text(HWND window) {
    std::wstring text(textLimit, L'\0');
    text.resize(static_cast<std::size_t>(
        Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

// The text of a window that may be busy; a list of all windows must not wait for one.
std::wstring Title(HWND window) {
    std::wstring text(textLimit, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), textLimit)));
    return text;
}

std::string JsonArea(const RECT& area) {
    return JsonArray({JsonNumber(area.left), JsonNumber(area.top), JsonNumber(area.right),
                      JsonNumber(area.bottom)});
}

std::string Described(HWND window, const std::wstring& text) {
    RECT area{};
    GetWindowRect(window, &area);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return JsonObject({{"window", Number(window)},
                       {"top", Number(GetAncestor(window, GA_ROOT))},
                       {"id", JsonNumber(GetDlgCtrlID(window))},
                       {"class", JsonText(ClassName(window))},
                       {"text", JsonText(text)},
                       {"visible", JsonBool(IsWindowVisible(window) != 0)},
                       {"enabled", JsonBool(IsWindowEnabled(window) != 0)},
                       {"style", JsonNumber(GetWindowLongPtrW(window, GWL_STYLE))},
                       {"area", JsonArea(area)},
                       {"owner", Number(GetWindow(window, GW_OWNER))},
                       {"active", JsonBool(GetForegroundWindow() == window)},
                       {"process", JsonNumber(process)}});
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

// The messages that read and select differ between the two kinds of list in nothing but number.
struct ListMessages {
    UINT count, textLength, text, current, select, selectionChanged, doubleClicked;
};

constexpr ListMessages listBoxMessages{LB_GETCOUNT,  LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL,
                                       LB_SETCURSEL, LBN_SELCHANGE, LBN_DBLCLK};
constexpr ListMessages comboBoxMessages{CB_GETCOUNT,  CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL,
                                        CB_SETCURSEL, CBN_SELCHANGE,   CBN_DBLCLK};

bool IsComboBox(HWND list) {
    return lstrcmpiW(ClassName(list).c_str(), L"ComboBox") == 0;
}

const ListMessages& MessagesOf(HWND list) {
    return IsComboBox(list) ? comboBoxMessages : listBoxMessages;
}

bool TakesSeveral(HWND list) {
    const LONG_PTR style = GetWindowLongPtrW(list, GWL_STYLE);
    return !IsComboBox(list) && (style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

std::wstring EntryText(HWND list, int row) {
    const ListMessages& messages = MessagesOf(list);
    const WPARAM index = static_cast<WPARAM>(row);
    const LRESULT length = Ask(list, messages.textLength, index);
    if (length < 0)
        throw std::runtime_error("the list has no such row");
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT got = Ask(list, messages.text, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(got, 0)));
    return text;
}

bool IsSelected(HWND list, int row) {
    return TakesSeveral(list) ? Ask(list, LB_GETSEL, static_cast<WPARAM>(row)) > 0
                              : Ask(list, MessagesOf(list).current) == row;
}

WPARAM Notification(HWND list, UINT code) {
    return MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(list)), static_cast<WORD>(code));
}

void SetSelection(HWND list, const std::vector<int>& rows) {
    if (TakesSeveral(list)) {
        Ask(list, LB_SETSEL, FALSE, -1);
        for (const int row : rows) {
            if (Ask(list, LB_SETSEL, TRUE, row) == LB_ERR)
                throw std::runtime_error("the list has no such row");
        }
        return;
    }
    const int row = rows.empty() ? -1 : rows.front();
    if (Ask(list, MessagesOf(list).select, static_cast<WPARAM>(row)) != row)
        throw std::runtime_error("the list has no such row");
}

} // namespace

std::string TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    std::vector<std::string> described;
    for (const HWND window : windows)
        described.push_back(Described(window, Title(window)));
    return JsonArray(described);
}

std::string Controls(HWND window) {
    std::vector<HWND> windows;
    EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&windows));
    std::vector<std::string> described;
    for (const HWND control : windows)
        described.push_back(Described(control, Text(control)));
    return JsonArray(described);
}

std::string Entries(HWND list) {
    const LRESULT count = Ask(list, MessagesOf(list).count);
    std::vector<std::string> texts;
    std::vector<std::string> selected;
    for (int row = 0; row < count; ++row) {
        texts.push_back(JsonText(EntryText(list, row)));
        if (IsSelected(list, row))
            selected.push_back(JsonNumber(row));
    }
    return JsonObject({{"entries", JsonArray(texts)}, {"selected", JsonArray(selected)}});
}

std::string Select(HWND list, const std::vector<int>& rows) {
    SetSelection(list, rows);
    Ask(GetParent(list), WM_COMMAND, Notification(list, MessagesOf(list).selectionChanged),
        reinterpret_cast<LPARAM>(list));
    return "true";
}

std::string RowArea(HWND list, int row) {
    RECT area{};
    const auto ask = [&] {
        return Ask(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    };
    RECT visible{};
    GetClientRect(list, &visible);
    if (ask() != LB_ERR && (area.top < 0 || area.bottom > visible.bottom))
        Ask(list, LB_SETTOPINDEX, static_cast<WPARAM>(row));
    if (ask() == LB_ERR)
        throw std::runtime_error("the list has no such row");
    area.right = std::min(area.right, visible.right);
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return JsonArea(area);
}

std::string DoubleClick(HWND list, int row) {
    SetSelection(list, {row});
    Post(GetParent(list), WM_COMMAND, Notification(list, MessagesOf(list).doubleClicked),
         reinterpret_cast<LPARAM>(list));
    return "true";
}

std::string Press(HWND button) {
    if (IsWindowEnabled(button) == 0 || IsWindowEnabled(GetAncestor(button, GA_ROOT)) == 0)
        throw std::runtime_error("the button is disabled");
    Post(button, BM_CLICK);
    return "true";
}

std::string Command(HWND window, int number) {
    Post(window, WM_COMMAND, static_cast<WPARAM>(number));
    return "true";
}

std::string CloseBox(HWND window) {
    Post(window, WM_SYSCOMMAND, SC_CLOSE);
    return "true";
}

std::string HasIcon(HWND picture) {
    return JsonBool(Ask(picture, STM_GETICON) != 0);
}

std::string SetText(HWND window, const std::wstring& text) {
    Ask(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    return "true";
}

std::string Activate(HWND window) {
    return JsonBool(SetForegroundWindow(window) != 0);
}

std::string Move(HWND window, int left, int top, int width, int height) {
    return JsonBool(SetWindowPos(window, nullptr, left, top, width, height,
                                 SWP_NOZORDER | SWP_NOACTIVATE) != 0);
}

std::string EndSession(HWND window) {
    const bool agreed = Ask(window, WM_QUERYENDSESSION) != 0;
    Post(window, WM_ENDSESSION, agreed ? TRUE : FALSE);
    return JsonBool(agreed);
}

std::string Focus() {
    const HWND active = GetForegroundWindow();
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(active, nullptr);
    if (active == nullptr || GetGUIThreadInfo(thread, &info) == 0 || info.hwndFocus == nullptr)
        return "null";
    return Described(info.hwndFocus, Text(info.hwndFocus));
}

} // namespace tamblin
