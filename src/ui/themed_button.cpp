#include "ui/themed_button.h"

#include <uxtheme.h>
#include <vsstyle.h>

#include "ui/system_library.h"

namespace tamblin {
namespace {

// Not imported: Windows would take a uxtheme.dll that lies beside the program.
struct Themes {
    HMODULE library = SystemLibrary(L"uxtheme.dll");
    decltype(&OpenThemeData) open = FunctionOf<decltype(OpenThemeData)>(library, "OpenThemeData");
    decltype(&CloseThemeData) close =
        FunctionOf<decltype(CloseThemeData)>(library, "CloseThemeData");
    decltype(&DrawThemeBackground) draw =
        FunctionOf<decltype(DrawThemeBackground)>(library, "DrawThemeBackground");
};

} // namespace

bool DrawThemedButton(HWND button, HDC target, const RECT& area, int state) {
    static const Themes themes;
    const HTHEME theme =
        themes.open && themes.close && themes.draw ? themes.open(button, L"Button") : nullptr;
    if (!theme)
        return false;
    themes.draw(theme, target, BP_PUSHBUTTON, state, &area, nullptr);
    themes.close(theme);
    return true;
}

} // namespace tamblin
