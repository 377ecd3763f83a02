// Looks at windows of other programs and operates them, by messages only. Handles are numbers.
// Every answer is JSON text. Throws std::runtime_error when a window is gone or does not answer
// within two minutes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tamblin {

// The top-level windows, in z-order.
std::string TopLevelWindows();

// All controls within a window, in z-order.
std::string Controls(HWND window);

// The entries of a list box or combo box and which are selected.
std::string Entries(HWND list);

// Makes `rows` the selection, as a user does: the owner is told, and its handler has run on return.
std::string Select(HWND list, const std::vector<int>& rows);

// Where a row of a list box lies on the screen, scrolled into view.
std::string RowArea(HWND list, int row);

// The next four return before the program has acted on them, so that a message box that it opens
// does not hold up the caller.
std::string DoubleClick(HWND list, int row);
std::string Press(HWND button);
std::string Command(HWND window, int number);
std::string CloseBox(HWND window);

// Whether a picture control has an icon.
std::string HasIcon(HWND picture);

std::string SetText(HWND window, const std::wstring& text);
std::string Activate(HWND window);
std::string Move(HWND window, int left, int top, int width, int height);

// Asks a window whether the session may end; when it agrees, tells it that it does.
std::string EndSession(HWND window);

// The control that has the keyboard focus in the thread of the active window.
std::string Focus();

} // namespace tamblin
