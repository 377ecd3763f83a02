// Plain messages to windows of other programs, and how long an answer takes. Handles are numbers;
// every answer is JSON text. Throws std::runtime_error when a window is gone or does not answer
// within twenty seconds.
#pragma once

#include <windows.h>

#include <string>

namespace tamblin {

// The message's result. Only for messages whose arguments are numbers.
std::string Send(HWND window, UINT message, WPARAM wide, LPARAM along);

std::string Post(HWND window, UINT message, WPARAM wide, LPARAM along);

// Presses a button and waits until its program shows a message box: the milliseconds between.
std::string PressUntilMessageBox(HWND button);

} // namespace tamblin
