#include "ui/text_box.h"

#include <algorithm>

#include "ui/form.h"

namespace tamblin {
namespace {

DWORD StyleFor(TextBox::Access access) {
    return (access == TextBox::Access::Editable ? 0 : ES_READONLY) |
           (access == TextBox::Access::Status ? 0 : WS_TABSTOP);
}

} // namespace

TextBox::TextBox(Form& owner, int number, Access access)
    : Control(owner, {ControlKind::Text, number}, WC_EDITW, L"",
              ES_LEFT | ES_AUTOHSCROLL | StyleFor(access), WS_EX_CLIENTEDGE) {}

Size TextBox::NaturalSize(const TextMeasure& measure) const {
    return {measure.Across(60), measure.LineHeight() + measure.Down(4)};
}

void TextBox::SetFont(const TextMeasure& measure) {
    Control::SetFont(measure);
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Selects the text, as the Tab key does.
void TextBox::TakeAccessKey() {
    Control::TakeAccessKey();
    Send(EM_SETSEL, 0, -1);
}

// The system writes a single line at the top of the client area. So the client area is one line
// high, and what is left above and below it belongs to the frame.
LRESULT TextBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCALCSIZE:
            Control::Received(message, wParam, lParam);
            return MakeRoomAround(lParam);
        case WM_NCPAINT: {
            const LRESULT result = Control::Received(message, wParam, lParam);
            PaintRoomAround();
            return result;
        }
        case WM_ENABLE:
            PaintRoomAround();
            break;
        case WM_NCHITTEST:
            return HTCLIENT; // a click beside the text is one into it
        default:
            break;
    }
    return Control::Received(message, wParam, lParam);
}

// The rectangle comes first in both forms of the message.
LRESULT TextBox::MakeRoomAround(LPARAM lParam) {
    RECT& client = *reinterpret_cast<RECT*>(lParam);
    const int line = form.Measure().LineHeight();
    const int spare = std::max(0, static_cast<int>(client.bottom - client.top) - line);
    above = spare / 2;
    below = spare - above;
    client.top += above;
    client.bottom -= below;
    return 0;
}

void TextBox::PaintRoomAround() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    RECT window{};
    GetWindowRect(Handle(), &window);
    MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
    OffsetRect(&client, -window.left, -window.top);
    const HDC target = GetWindowDC(Handle());
    const LONG style = GetWindowLongW(Handle(), GWL_STYLE);
    const UINT asking = style & (ES_READONLY | WS_DISABLED) ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
    const auto brush = reinterpret_cast<HBRUSH>(::SendMessageW(form.Handle(), asking,
                                                               reinterpret_cast<WPARAM>(target),
                                                               reinterpret_cast<LPARAM>(Handle())));
    const RECT top{client.left, client.top - above, client.right, client.top};
    const RECT bottom{client.left, client.bottom, client.right, client.bottom + below};
    FillRect(target, &top, brush);
    FillRect(target, &bottom, brush);
    ReleaseDC(Handle(), target);
}

std::optional<CutOffText> TextBox::CutOffAt(POINT) const {
    CutOffText cut{{}, Text()};
    GetClientRect(Handle(), &cut.area);
    const int needed = form.Measure().Width(cut.text) + form.Measure().Across(2);
    return needed <= cut.area.right ? std::nullopt : std::optional(cut);
}

} // namespace tamblin
