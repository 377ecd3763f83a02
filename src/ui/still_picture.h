// While one of these lives, a list does not paint, neither its rows nor its scroll bars. The list
// itself takes care of the rows only.
#pragma once

#include "ui/control.h"

namespace tamblin {

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

} // namespace tamblin
