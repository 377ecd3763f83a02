#include "ui/popup_menu.h"

#include "base/at_exit.h"
#include "base/win32/busy_pointer.h"
#include "ui/form.h"

namespace tamblin {

void ShowMenu(const Menu& menu, Form& form, POINT screenPosition) {
    if (menu.empty())
        return;
    const HMENU popup = CreatePopupMenu();
    const AtExit destroy([&] { DestroyMenu(popup); });
    for (const MenuRow& row : menu)
        AppendMenuW(popup,
                    row.item == MenuItem::Separator ? MF_SEPARATOR
                    : row.enabled                   ? MF_STRING
                                                    : MF_GRAYED,
                    static_cast<UINT_PTR>(row.item), row.text.c_str());
    const BusyPointer::Pause usable;
    TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_LEFTBUTTON, screenPosition.x,
                   screenPosition.y, 0, form.Handle(), nullptr);
}

} // namespace tamblin
