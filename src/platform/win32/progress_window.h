// A small window that tells what is being done with which object, an archive or a folder, and in a
// bar how far it has come.
#pragma once

#include <windows.h>

#include <string>

namespace tamblin {

class ProgressWindow {
  public:
    // Shown at once, without taking the focus, in the middle of its owner.
    ProgressWindow(HWND owner, const std::wstring& work, const std::wstring& object);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    static constexpr ULONGLONG patience = 500;   // milliseconds that work takes before one is shown
    static constexpr DWORD betweenPictures = 50; // milliseconds between two positions of the bar
    static constexpr int fullBar = 1000;
    void Show(int part); // of fullBar

  private:
    void AddControls(int unit, const std::wstring& work, const std::wstring& object);
    void AddLine(const std::wstring& line, int top, int unit);
    void SetClientSize(int width, int height);
    void PlaceOver(HWND owner);

    HWND window = nullptr;
    HWND bar = nullptr;
    HFONT font = nullptr;
};

} // namespace tamblin
