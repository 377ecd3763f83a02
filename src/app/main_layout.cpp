// Where the main window's controls stand.
#include <algorithm>

#include "app/main_window.h"

namespace tamblin {
namespace {

constexpr int Related = 4; // gaps, in font units
constexpr int Unrelated = 8;

constexpr int SidePerMille = 775; // of the screen's sides at first: 60 % of its area

// A column of buttons, which leaves the room to the lists. Labels stand to the right of their
// buttons or, where even that is too wide, below them.
class CommandColumn {
  public:
    explicit CommandColumn(LabelPlace place) : labelPlace(place) {}

    CommandColumn& Add(Button& button, Label* label = nullptr) {
        if (labelPlace == LabelPlace::Below)
            AddAbove(button, label);
        else
            AddBeside(button, label);
        return *this;
    }
    std::unique_ptr<LayoutItem> EndingWith(Control& button) {
        column->Gap(0, 1).Add(button);
        return std::move(column);
    }

  private:
    void AddBeside(Button& button, Label* label) {
        auto row = Row();
        row->Add(button, 0, Across::Centre);
        if (label)
            row->Gap(3).Add(*label, 0, Across::Centre);
        column->Add(std::move(row), 0, Across::Start).Gap(Related);
    }
    void AddAbove(Button& button, Label* label) {
        column->Add(button);
        if (label)
            column->Add(*label, 0, Across::Centre);
        column->Gap(Related / 2);
    }

    LabelPlace labelPlace;
    std::unique_ptr<BoxLayout> column = Column();
};

} // namespace

void Form1::PrepareCommands() {
    command14.SetLabel(label9);
    command11.SetLabel(label10);
    command12.SetLabel(label12);
    command1.SetLabel(label2);
    command3.SetLabel(label5);
    command4.SetLabel(label6);
    command2.SetLabel(label4);
    const auto join = [](WidthGroup& group, std::initializer_list<Button*> column) {
        for (Button* button : column) {
            button->MakeCompact();
            button->JoinWidth(group);
        }
    };
    join(installedCommands, {&command13, &command14, &command11, &command12, &command5});
    join(browserCommands, {&command1, &command3, &command4, &command2});
}

std::unique_ptr<LayoutItem> Form1::MakeLayout() {
    PrepareCommands();
    auto either = std::make_unique<FirstFittingLayout>();
    either->Add(MakeLayout(LabelPlace::Beside)).Add(MakeLayout(LabelPlace::Below));
    layouts = either.get();
    return either;
}

std::unique_ptr<LayoutItem> Form1::MakeLayout(LabelPlace labels) {
    auto sides = Row();
    sides->Add(MakeInstalledSide(labels), 2).Gap(Unrelated + Related);
    sides->Add(MakeBrowserSide(labels), 3);
    // The status line has a row of its own: its texts are long.
    auto bottom = Row();
    bottom->Add(label7).Gap(0, 1).Add(label8);
    bottom->Add(command10, 0, Across::Centre).Gap(Related).Add(command8, 0, Across::Centre);
    auto whole = Column();
    whole->Margin(7, 7).Add(std::move(sides), 1).Gap(Unrelated).Add(std::move(bottom));
    whole->Gap(Related).Add(text2);
    return whole;
}

std::unique_ptr<LayoutItem> Form1::MakeInstalledSide(LabelPlace labels) {
    auto host = Row();
    host->Add(combo1, 1, Across::Centre).Gap(Related).Add(command6, 0, Across::Centre);
    auto characters = Row();
    characters->Add(list3, 1).Gap(Related).Add(MakeInstalledCommands(labels));
    auto side = Column();
    side->Add(label1).Gap(2).Add(std::move(host)).Gap(Unrelated);
    side->Add(label11).Gap(2).Add(std::move(characters), 1);
    return side;
}

std::unique_ptr<LayoutItem> Form1::MakeInstalledCommands(LabelPlace labels) {
    CommandColumn column(labels);
    column.Add(command13).Add(command14, &label9).Add(command11, &label10);
    column.Add(command12, &label12).Add(command5);
    return column.EndingWith(command7);
}

std::unique_ptr<LayoutItem> Form1::MakeBrowserSide(LabelPlace labels) {
    auto lists = Column();
    lists->Add(list1, 3).Gap(Related).Add(list2, 2);
    auto browser = Row();
    browser->Add(std::move(lists), 1).Gap(Related).Add(MakeBrowserCommands(labels));
    auto side = Column();
    side->Add(label3).Gap(2).Add(text1).Gap(Related).Add(std::move(browser), 1);
    return side;
}

std::unique_ptr<LayoutItem> Form1::MakeBrowserCommands(LabelPlace labels) {
    CommandColumn column(labels);
    column.Add(command1, &label2).Add(command3, &label5).Add(command4, &label6);
    column.Add(command2, &label4);
    return column.EndingWith(command9);
}

Size Form1::FirstSize() const {
    const Size least = MinimumSize();
    const Size room = RoomOnScreen();
    const int wanted = std::min(room.width, layouts->WidestMinimum(Measure()).width);
    return {std::max({least.width, wanted, MulDiv(room.width, SidePerMille, 1000)}),
            std::max(least.height, MulDiv(room.height, SidePerMille, 1000))};
}

} // namespace tamblin
