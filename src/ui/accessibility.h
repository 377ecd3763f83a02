// What screen readers are told of windows that do not speak for themselves. The thread has COM
// initialised (apartment). On a system without the service nothing is told.
#pragma once

#include <string>

#include "ui/windows_headers.h"

struct IAccessible;
struct IDispatch;

namespace tamblin {

// The event of Windows 8 and later for a change in a live region; older ones let it pass.
inline constexpr DWORD LiveRegionChanged = 0x8019;

// The name of a window that shows none itself.
void AnnotateAccessibleName(HWND window, const std::wstring& name);

// The key that presses a window or gives it the focus, such as "Alt+R", where its text does not
// say.
void AnnotateAccessKey(HWND window, const std::wstring& key);

// That changes of a window's text are to be read out when the reader has nothing else to say.
void AnnotateLiveRegion(HWND window);

// What the system knows of a window itself, its frame included.
HRESULT AccessibleWindow(HWND window, IDispatch** object);

// The answer to WM_GETOBJECT with such an object.
LRESULT LresultOf(IAccessible* object, WPARAM wParam);

} // namespace tamblin
