// Plain messages to windows of other programs, and how long an answer takes. Handles are numbers;
// every answer is JSON text. Throws std::runtime_error when a window is gone or does not answer
// within two minutes.
#pragma once

#include <windows.h>

#include <string>

namespace tamblin {

LRESULT Ask(HWND window, UINT message, WPARAM wide = 0, LPARAM along = 0);

// The message's result. Only for messages whose arguments are numbers.
std::string Send(HWND window, UINT message, WPARAM wide, LPARAM along);

std::string Post(HWND window, UINT message, WPARAM wide = 0, LPARAM along = 0);

// Returns when the window's thread has handled every message that was posted to it so far, or waits
// in a message box or menu that one of them has opened. Answers false when the window has gone.
std::string WaitUntilHandled(HWND window);

// Presses a button and waits until its program shows a message box: the milliseconds between.
std::string PressUntilMessageBox(HWND button);

} // namespace tamblin
