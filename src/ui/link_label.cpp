#include "ui/link_label.h"

#include "ui/form.h"

namespace tamblin {

LinkLabel::LinkLabel(Form& owner, int number, int index, const std::wstring& caption,
                     Look usualLook)
    : Control(owner, {ControlKind::Label, number, index}, WC_BUTTONW, caption,
              BS_OWNERDRAW | WS_TABSTOP),
      look(usualLook) {
    LinkLabel::SetFont(form.Measure());
}

void LinkLabel::SetHighlighted(bool on) {
    if (on == highlighted)
        return;
    highlighted = on;
    InvalidateRect(Handle(), nullptr, FALSE);
}

void LinkLabel::SetChosen(bool on) {
    if (on == chosen)
        return;
    chosen = on;
    InvalidateRect(Handle(), nullptr, FALSE);
}

// Room for the bold form, so that nothing moves when the text lights up.
Size LinkLabel::NaturalSize(const TextMeasure& measure) const {
    const int width = TextMeasure(boldFont.get()).Width(Text());
    return {width + measure.Across(4), measure.LineHeight() + measure.Down(2)};
}

void LinkLabel::SetFont(const TextMeasure& measure) {
    Control::SetFont(measure);
    LOGFONTW logical{};
    GetObjectW(measure.Font(), sizeof logical, &logical);
    logical.lfUnderline = look == Look::Underlined;
    usualFont.reset(CreateFontIndirectW(&logical));
    logical.lfWeight = FW_BOLD;
    boldFont.reset(CreateFontIndirectW(&logical));
}

void LinkLabel::Notified(UINT code) {
    if (code == BN_CLICKED && onClick)
        onClick();
}

bool LinkLabel::TakeKey(const KeyPress& press) {
    if (press.key != VK_RETURN)
        return false;
    Send(BM_CLICK);
    return true;
}

void LinkLabel::Draw(const DRAWITEMSTRUCT& drawing) {
    const bool focused = (drawing.itemState & ODS_FOCUS) != 0;
    const bool lit = highlighted || focused;
    if (chosen)
        FillRect(drawing.hDC, &drawing.rcItem, GetSysColorBrush(COLOR_HIGHLIGHT));
    else
        form.PaintBehind(drawing.hDC, Handle(), drawing.rcItem);
    const HGDIOBJ former = SelectObject(drawing.hDC, (lit ? boldFont : usualFont).get());
    SetBkMode(drawing.hDC, TRANSPARENT);
    SetTextColor(drawing.hDC, GetSysColor(chosen ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    RECT area = drawing.rcItem;
    InflateRect(&area, -1, 0);
    DrawTextW(drawing.hDC, Text().c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(drawing.hDC, former);
    if (focused && (drawing.itemState & ODS_NOFOCUSRECT) == 0)
        DrawFocusRect(drawing.hDC, &drawing.rcItem);
}

} // namespace tamblin
