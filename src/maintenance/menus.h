// The menus of the installed list and of the check window's folder list.
#pragma once

#include "maintenance/launch.h"
#include "ui/form.h"

namespace tamblin {

struct Form10 {
    static constexpr int mnrun = 9001;
    static constexpr int mnview = 9002;
    static constexpr int mncancel = 9003;
    static constexpr int mnmv = 9011;
    static constexpr int mncan = 9012;

    // Each returns when the menu has gone; the item chosen reaches `form` as MenuChosen.
    static void ShowCharacterMenu(Form& form, POINT position,
                                  const CharacterMenu& items); // mnmouse
    static void ShowFolderMenu(Form& form, POINT position);    // mndel
};

} // namespace tamblin
