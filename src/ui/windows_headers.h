// <windows.h>, without the macros that would rename our own routines.
#pragma once

#include <windows.h>
#include <windowsx.h>
// The order matters: the common controls need <windows.h> first.
#include <commctrl.h>
#include <shellapi.h>

#undef GetMessage
#undef MessageBox
#undef CreateWindow
#undef CopyFile
#undef DeleteFile
#undef SendMessage
#undef RegisterClass
#undef Yield
#undef GetFirstChild
#undef GetNextSibling
