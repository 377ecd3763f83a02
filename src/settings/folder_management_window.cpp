#include "settings/folder_management_window.h"

namespace tamblin {

Form8::Form8(Application& owner, SettingsState& settings, HandOver& windows)
    : StepForm(owner, 8, L"Vimoraフォルダ管理 - Tamblin - ", FormFrame::Resizable, windows),
      management(settings) {
    list1.SetAccessibleName(L"登録されているVimoraフォルダ");
    list1.onSelect = [this] {
        Run([this] {
            management.SelectionChanged();
            return NextWindow::Stay;
        });
    };
    command1.onClick = [this] {
        Run([this] { return management.AddPressed(); });
    };
    command2.onClick = [this] {
        Run([this] { return management.ChangePressed(); });
    };
    command3.onClick = [this] {
        Run([this] {
            management.DeletePressed();
            return NextWindow::Stay;
        });
    };
    command4.onClick = [this] {
        Run([this] { return management.LeavePressed(); });
    };
    label1.SetAccessKey(L'V', list1);
    SetFirstFocus(list1);
    SetFirstSize({300, 0});
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form8::MakeLayout() {
    auto edit = Column();
    for (Button* button : {&command1, &command2, &command3}) {
        button->JoinWidth(buttons);
        edit->Add(*button).Gap(4);
    }
    edit->Gap(0, 1);
    auto folders = Row();
    folders->Add(list1, 1).Gap(4).Add(std::move(edit));
    auto permission = Row();
    permission->Gap(6).Add(option1Allow).Gap(8).Add(option1Forbid);
    auto leave = Row();
    command4.JoinWidth(buttons);
    leave->Gap(0, 1).Add(command4);
    auto whole = Column();
    whole->Margin(7, 7).Add(label1).Gap(4).Add(std::move(folders), 1).Gap(8);
    whole->Add(label2).Gap(3).Add(std::move(permission)).Gap(3).Add(label3).Gap(6);
    whole->Add(std::move(leave));
    return whole;
}

void Form8::Load() {
    management.Load();
    command4.SetText(management.LeaveCaption());
    option1Allow.SetTicked(management.kvaAllowed);
    option1Forbid.SetTicked(!management.kvaAllowed);
}

void Form8::Activated() {
    management.Activate();
    ShowModel();
}

void Form8::EscapePressed() {
    Run([this] { return management.Closed(); });
}

void Form8::Run(const std::function<NextWindow()>& event) {
    list1.ReadSelections(management.folders);
    management.kvaAllowed = option1Allow.IsTicked();
    const NextWindow next = event();
    ShowModel();
    Leave(next);
}

void Form8::ShowModel() {
    list1.Show(management.folders);
    command1.SetEnabled(management.addEnabled);
    command2.SetEnabled(management.changeEnabled);
    command3.SetEnabled(management.deleteEnabled);
    command4.SetEnabled(management.leaveEnabled);
}

} // namespace tamblin
