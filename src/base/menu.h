// What the program's menus hold. The items' numbers are known to scripts and tests.
#pragma once

#include <string>
#include <vector>

namespace tamblin {

enum class MenuItem {
    Separator = 0,
    mnrun = 9001, // mnmouse, of the installed list: up to 9010
    mnview = 9002,
    mncancel = 9003,
    mnmv = 9011, // mndel, of the check window's folder list
    mncan = 9012,
};

struct MenuRow {
    MenuItem item = MenuItem::Separator;
    std::wstring text = {};
    bool enabled = true;

    bool operator==(const MenuRow&) const = default;
};

// Empty: nothing opens.
using Menu = std::vector<MenuRow>;

} // namespace tamblin
