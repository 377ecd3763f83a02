// A menu that pops up over a form. What the user chooses reaches the form as MenuChosen.
#pragma once

#include <string>

#include "ui/windows_headers.h"

namespace tamblin {

class Form;

class PopupMenu {
  public:
    PopupMenu() : menu(CreatePopupMenu()) {}
    ~PopupMenu() { DestroyMenu(menu); }
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;

    void AddItem(int id, const std::wstring& caption, bool enabled = true);
    void AddSeparator();

    // Returns when the menu has gone.
    void Show(Form& form, POINT screenPosition);

  private:
    HMENU menu;
};

} // namespace tamblin
