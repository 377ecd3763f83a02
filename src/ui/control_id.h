// Every control is known to the outside (screen readers, scripts, tests) by an ID that is computed
// from its name: Command12 is 1240, the third member of the row Option1 is 6022.
#pragma once

namespace tamblin {

enum class ControlKind {
    Command = 1,
    List = 2,
    Label = 3,
    Text = 4,
    Combo = 5,
    Option = 6,
    Check = 7,
    Image = 8
};

struct ControlName {
    ControlKind kind;
    int number;
    int index = 0; // among the members of a row of equal controls

    bool operator==(const ControlName&) const = default;
};

constexpr int ControlId(ControlName name) {
    return 1000 * static_cast<int>(name.kind) + 20 * name.number + name.index;
}

} // namespace tamblin
