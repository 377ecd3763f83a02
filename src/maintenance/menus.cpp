#include "maintenance/menus.h"

#include "ui/popup_menu.h"

namespace tamblin {

void Form10::ShowCharacterMenu(Form& form, POINT position, const CharacterMenu& items) {
    PopupMenu mnmouse;
    mnmouse.AddItem(mnrun, L"オンブレルの起動");
    mnmouse.AddItem(mnview, L"READMEの表示", items.readmeEnabled);
    mnmouse.AddSeparator();
    mnmouse.AddItem(mncancel, L"キャンセル");
    mnmouse.Show(form, position);
}

void Form10::ShowFolderMenu(Form& form, POINT position) {
    PopupMenu mndel;
    mndel.AddItem(mnmv, L"ごみ箱へ移動");
    mndel.AddSeparator();
    mndel.AddItem(mncan, L"キャンセル");
    mndel.Show(form, position);
}

} // namespace tamblin
