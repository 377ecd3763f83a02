#include "ui/popup_menu.h"

#include "ui/busy_pointer.h"
#include "ui/form.h"

namespace tamblin {

void PopupMenu::AddItem(int id, const std::wstring& caption, bool enabled) {
    AppendMenuW(menu, static_cast<UINT>(MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED)),
                static_cast<UINT_PTR>(id), caption.c_str());
}

void PopupMenu::AddSeparator() {
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

void PopupMenu::Show(Form& form, POINT screenPosition) {
    const BusyPointer::Pause usable;
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_LEFTBUTTON, screenPosition.x,
                   screenPosition.y, 0, form.Handle(), nullptr);
}

} // namespace tamblin
