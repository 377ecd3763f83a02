// A small window that names the archive being unpacked, with a bar that shows how far it has come.
#pragma once

#include <windows.h>

#include <string>

namespace tamblin {

class LzhProgressWindow {
  public:
    // Shown at once, without taking the focus, in the middle of its owner.
    LzhProgressWindow(HWND owner, const std::wstring& archiveName);
    ~LzhProgressWindow();
    LzhProgressWindow(const LzhProgressWindow&) = delete;
    LzhProgressWindow& operator=(const LzhProgressWindow&) = delete;

    static constexpr int fullBar = 1000;
    void Show(int part); // of fullBar

  private:
    void AddControls(int unit, const std::wstring& archiveName);
    void AddLine(const std::wstring& line, int top, int unit);
    void SetClientSize(int width, int height);
    void PlaceOver(HWND owner);

    HWND window = nullptr;
    HWND bar = nullptr;
    HFONT font = nullptr;
};

} // namespace tamblin
