// Menus that pop up over a form. What the user chooses reaches the form as MenuChosen.
#pragma once

#include "base/menu.h"
#include "ui/windows_headers.h"

namespace tamblin {

class Form;

// Returns when the menu has gone; at once when it is empty.
void ShowMenu(const Menu& menu, Form& form, POINT screenPosition);

} // namespace tamblin
