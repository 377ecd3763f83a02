#include "ui/tool_tip.h"

namespace tamblin {
namespace {

constexpr UINT_PTR TheTool = 1;
constexpr int ShownMilliseconds = 20000;

TTTOOLINFOW Tool(HWND control) {
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.hwnd = control;
    info.uId = TheTool;
    return info;
}

} // namespace

ToolTip::~ToolTip() {
    if (IsWindow(window))
        DestroyWindow(window);
}

void ToolTip::Relay(HWND owner, const Control& control, const MSG& message, HFONT font) {
    if (message.message == WM_MOUSEMOVE) {
        const auto text =
            control.CutOffAt({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
        const bool same = text && tool == control.Handle() && text->text == offered.text &&
                          EqualRect(&text->area, &offered.area);
        if (!same) {
            Remove();
            if (text)
                Offer(owner, control.Handle(), *text, font);
        }
    }
    if (message.message == WM_MOUSEWHEEL || message.message == WM_MOUSEHWHEEL)
        Remove();
    if (tool)
        ::SendMessageW(window, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

void ToolTip::Remove() {
    if (!tool)
        return;
    TTTOOLINFOW info = Tool(tool);
    ::SendMessageW(window, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&info));
    tool = nullptr;
}

void ToolTip::Offer(HWND owner, HWND control, const CutOffText& text, HFONT font) {
    if (!window) {
        window = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                 WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
                                 CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(window, TTM_SETDELAYTIME, TTDT_AUTOPOP, ShownMilliseconds);
    }
    ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    tool = control;
    offered = text;
    TTTOOLINFOW info = Tool(control);
    info.rect = text.area;
    info.lpszText = offered.text.data();
    ::SendMessageW(window, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

} // namespace tamblin
