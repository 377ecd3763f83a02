// The menu of the installed list. A new item is a row of the table in character_menu.cpp and a name
// in base/menu.h.
#pragma once

#include "base/menu.h"
#include "install/main_model.h"
#include "platform/platform.h"

namespace tamblin {

// Empty unless exactly one character is selected.
Menu CharacterMenu(const MainModel& model, Platform& platform);

// Does what the item does, whether or not the menu has been shown.
void ChooseFromCharacterMenu(MenuItem item, const MainModel& model, Platform& platform);

} // namespace tamblin
