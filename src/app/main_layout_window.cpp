// Where the main window's controls stand.
#include <algorithm>

#include "app/main_window.h"

namespace tamblin {
namespace {

constexpr int Related = 4; // gaps, in font units
constexpr int Unrelated = 8;

constexpr int SidePerMille = 775; // of the screen's sides at first: 60 % of its area

// A column of buttons, the labelled ones with their label to the right.
class CommandColumn {
  public:
    explicit CommandColumn(WidthGroup& sameWidth) : group(sameWidth), column(Column()) {}

    // Compact, which leaves the room to the lists.
    CommandColumn& Add(Button& button, Label* label = nullptr) {
        button.MakeCompact();
        button.JoinWidth(group);
        if (label)
            button.SetLabel(*label);
        auto row = Row();
        row->Add(button, 0, Across::Centre);
        if (label)
            row->Gap(3).Add(*label, 0, Across::Centre);
        column->Add(std::move(row), 0, Across::Start).Gap(Related);
        return *this;
    }
    CommandColumn& Spread() {
        column->Gap(0, 1);
        return *this;
    }
    std::unique_ptr<LayoutItem> EndingWith(Control& button) {
        column->Gap(Related, 1).Add(button);
        return std::move(column);
    }

  private:
    WidthGroup& group;
    std::unique_ptr<BoxLayout> column;
};

} // namespace

std::unique_ptr<LayoutItem> Form1::MakeLayout() {
    auto sides = Row();
    sides->Add(MakeInstalledSide(), 2).Gap(Unrelated + Related).Add(MakeBrowserSide(), 3);
    // The status line has a row of its own: its texts are long.
    auto bottom = Row();
    bottom->Add(label7).Gap(0, 1).Add(label8);
    bottom->Add(command10, 0, Across::Centre).Gap(Related).Add(command8, 0, Across::Centre);
    auto whole = Column();
    whole->Margin(7, 7).Add(std::move(sides), 1).Gap(Unrelated).Add(std::move(bottom));
    whole->Gap(Related).Add(text2);
    return whole;
}

std::unique_ptr<LayoutItem> Form1::MakeInstalledSide() {
    auto host = Row();
    host->Add(combo1, 1, Across::Centre).Gap(Related).Add(command6, 0, Across::Centre);
    auto characters = Row();
    characters->Add(list3, 1).Gap(Related).Add(MakeInstalledCommands());
    auto side = Column();
    side->Add(label1).Gap(2).Add(std::move(host)).Gap(Unrelated);
    side->Add(label11).Gap(2).Add(std::move(characters), 1);
    return side;
}

std::unique_ptr<LayoutItem> Form1::MakeInstalledCommands() {
    CommandColumn column(installedCommands);
    column.Add(command13).Add(command14, &label9).Add(command11, &label10);
    column.Add(command12, &label12).Add(command5);
    return column.EndingWith(command7);
}

std::unique_ptr<LayoutItem> Form1::MakeBrowserSide() {
    auto lists = Column();
    lists->Add(list1, 3).Gap(Related).Add(list2, 2);
    auto browser = Row();
    browser->Add(std::move(lists), 1).Gap(Related).Add(MakeBrowserCommands());
    auto side = Column();
    side->Add(label3).Gap(2).Add(text1).Gap(Related).Add(std::move(browser), 1);
    return side;
}

std::unique_ptr<LayoutItem> Form1::MakeBrowserCommands() {
    CommandColumn column(browserCommands);
    column.Add(command1, &label2).Add(command3, &label5).Add(command4, &label6);
    column.Add(command2, &label4);
    return column.EndingWith(command9);
}

Size Form1::FirstSize() const {
    const Size least = MinimumSize();
    const Size room = RoomOnScreen();
    return {std::max(least.width, MulDiv(room.width, SidePerMille, 1000)),
            std::max(least.height, MulDiv(room.height, SidePerMille, 1000))};
}

} // namespace tamblin
