// A small window with a bar that shows how far an extraction has come.
#pragma once

#include <windows.h>

namespace tamblin {

class LzhProgressWindow {
  public:
    // Shown at once, without taking the focus, in the middle of its owner.
    explicit LzhProgressWindow(HWND owner);
    ~LzhProgressWindow();
    LzhProgressWindow(const LzhProgressWindow&) = delete;
    LzhProgressWindow& operator=(const LzhProgressWindow&) = delete;

    static constexpr int fullBar = 1000;
    void Show(int part); // of fullBar

  private:
    void AddControls(int unit);
    void SetClientSize(int width, int height);
    void PlaceOver(HWND owner);

    HWND window = nullptr;
    HWND bar = nullptr;
    HFONT font = nullptr;
};

} // namespace tamblin
