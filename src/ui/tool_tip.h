// Shows the whole of a text that does not fit into its control, while the pointer rests on it.
#pragma once

#include <optional>

#include "ui/control.h"

namespace tamblin {

class ToolTip {
  public:
    ToolTip() = default;
    ~ToolTip();
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;

    // Every message of the mouse to a control passes here. The window is made when it is wanted
    // first; `owner` is the form.
    void Relay(HWND owner, const Control& control, const MSG& message, HFONT font);
    // Until the pointer moves again: what is under it may have become something else.
    void Remove();

  private:
    void Offer(HWND owner, HWND control, const CutOffText& text, HFONT font);

    HWND window = nullptr;
    HWND tool = nullptr; // the control over which a text is offered, and the text
    CutOffText offered;
};

} // namespace tamblin
