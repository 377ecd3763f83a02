#include "maintenance/folder_check_window.h"

#include "base/at_exit.h"
#include "base/win32/busy_pointer.h"

namespace tamblin {

Form11::Form11(Application& owner, FolderCheck& folderCheck, HWND ownerWindow)
    : Form(owner, 11, L"フォルダ構造チェックの結果 - Tamblin -", FormFrame::Resizable, ownerWindow),
      check(folderCheck) {
    list1.SetAccessibleName(label2.Text());
    list2.SetAccessibleName(label3.Text());
    command1.onClick = [this] {
        Run([this] { check.DeleteDefinitionFiles(); });
    };
    command3.onClick = [this] {
        Close();
    };
    list2.onMenu = [this](POINT position, std::optional<size_t> row) {
        Run([&] {
            if (row)
                check.folders.MoveSelectionOfOneTo(*row);
        });
        ShowMenu(check.FolderMenu(), position);
    };
    SetFirstFocus(command3);
    SetFirstSize({0, 240});
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form11::MakeLayout() {
    auto remedy = Row();
    remedy->Add(label5, 1, Across::Centre).Gap(4).Add(command1, 0, Across::Centre);
    auto leave = Row();
    leave->Gap(0, 1).Add(command3);
    auto whole = Column();
    whole->Margin(7, 7).Add(label1).Gap(7);
    whole->Add(label2).Gap(2).Add(list1, 2).Gap(3).Add(std::move(remedy)).Gap(8);
    whole->Add(label3).Gap(2).Add(list2, 3).Gap(3).Add(label6).Gap(1).Add(label7).Gap(8);
    whole->Add(label4).Gap(6).Add(std::move(leave));
    return whole;
}

void Form11::Activated() {
    Run([this] { check.Activate(); });
}

void Form11::MenuChosen(MenuItem item) {
    if (item != MenuItem::mnmv)
        return;
    const auto held = HoldMeanwhile();
    Run([this] { check.MoveFoldersToRecycleBin(); });
}

void Form11::Run(const std::function<void()>& event) {
    list2.ReadSelections(check.folders);
    const BusyPointer busy;
    const AtExit mirror([this] {
        if (IsOpen())
            ShowModel();
    });
    event();
}

void Form11::ShowModel() {
    list1.Show(check.definitionFiles);
    list2.Show(check.folders);
    list1.SetEnabled(check.definitionFilesEnabled);
    label5.SetEnabled(check.definitionFilesEnabled);
    command1.SetEnabled(check.deleteEnabled);
    list2.SetEnabled(check.foldersEnabled);
    label6.SetEnabled(check.foldersEnabled);
    label7.SetEnabled(check.foldersEnabled);
    label4.SetVisible(check.generalNoteVisible);
}

} // namespace tamblin
