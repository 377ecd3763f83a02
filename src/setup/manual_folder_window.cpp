#include "setup/manual_folder_window.h"

#include "base/win32/busy_pointer.h"

namespace tamblin {

Form3::Form3(Application& owner, Platform& surroundings, SettingsState& settings, HandOver& windows)
    : StepForm(owner, 3, L"VMRフォルダの手動設定 - Tamblin -", FormFrame::Resizable, windows),
      manual(surroundings, settings) {
    text1.SetAccessibleName(label1.Text());
    list1.SetAccessibleName(L"すべてのフォルダ");
    list2.SetAccessibleName(L"表示中のフォルダにあるVimoraのファイル");
    list1.onSelect = [this] {
        if (const auto row = list1.SelectedRow()) {
            manual.TreeRowClicked(*row);
            text1.SetText(manual.FolderText());
        }
    };
    list1.onOpen = [this](size_t row) {
        const BusyPointer busy;
        manual.TreeRowOpened(row);
        ShowTree();
    };
    command1.onClick = [this] {
        Leave(manual.OkPressed(text1.Text()));
    };
    command2.onClick = [this] {
        Leave(manual.BackPressed());
    };
    command3.onClick = [this] {
        Leave(manual.MorePressed(text1.Text()));
    };
    command2.SetLabel(label3);
    command3.SetLabel(label4);
    label1.SetAccessKey(L'V', text1);
    command1.SetAccessKey(L'O');
    command2.SetAccessKey(L'B');
    command3.SetAccessKey(L'M');
    list1.nameOf = FolderBrowser::NameInRow;
    SetFirstFocus(list1);
    SetFirstSize({280, 230});
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form3::MakeLayout() {
    for (Button* button : {&command1, &command2, &command3})
        button->JoinWidth(buttons);
    auto lists = Row();
    lists->Add(list1, 3).Gap(4).Add(list2, 1);
    auto more = Row();
    more->Add(command3, 0, Across::Centre).Gap(3).Add(label4, 0, Across::Centre);
    auto back = Row();
    back->Add(command2, 0, Across::Centre).Gap(3).Add(label3, 0, Across::Centre);
    auto leave = Row();
    leave->Add(std::move(more)).Gap(8, 1).Add(std::move(back)).Gap(8).Add(command1);
    auto whole = Column();
    whole->Margin(7, 7).Add(label1).Gap(3).Add(text1).Gap(4);
    whole->Add(std::move(lists), 1).Gap(3).Add(label10).Gap(7).Add(label5).Gap(3);
    whole->Add(std::move(leave));
    return whole;
}

void Form3::Load() {
    manual.Load();
    command3.SetEnabled(manual.MoreEnabled());
    ShowTree();
}

void Form3::ShowTree() {
    list1.Show(manual.Browser().Rows(), manual.Browser().SelectedRow());
    list2.Show(manual.Browser().Files());
    text1.SetText(manual.FolderText());
    label10.SetText(manual.StatusText());
}

bool Form3::KeyPressed(const KeyPress& press, const Control* focus) {
    if (press != KeyPress{VK_BACK} || focus != &list1)
        return false;
    const BusyPointer busy;
    manual.TreeUpPressed();
    ShowTree();
    return true;
}

} // namespace tamblin
