#include "setup/wizard_window.h"

#include "setup/search_window.h"

namespace tamblin {

Form2::Form2(Application& owner, Platform& surroundings, SettingsState& settings, HandOver& windows)
    : StepForm(owner, 2, L"環境設定ウィザード  - Tamblin -", FormFrame::Fixed, windows),
      platform(surroundings),
      state(settings) {
    command1.onClick = [this] {
        Leave(NextWindow::ManualFolder);
    };
    command2.onClick = [this] {
        Search();
    };
    command3.onClick = [this] {
        GiveUp();
    };
    SetFirstFocus(command2);
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form2::MakeLayout() {
    auto choices = Column();
    const auto add = [&](Button& button, Label& label) {
        button.JoinWidth(buttons);
        auto row = Row();
        row->Add(button, 0, Across::Centre).Gap(6).Add(label, 1, Across::Centre);
        choices->Add(std::move(row)).Gap(5);
    };
    add(command2, label5);
    add(command1, label4);
    add(command3, label6);
    auto whole = Column();
    whole->Margin(14, 12).Add(label1).Gap(10).Add(label2).Gap(3).Add(label3).Gap(12);
    whole->Add(std::move(choices));
    return whole;
}

void Form2::Load() {
    if (state.WizardFromManagement)
        command3.SetText(L"戻る");
}

// The windows stay as they are when a failure has ended the search; the way on is then the progress
// window's.
void Form2::Search() {
    auto& progress = App().Open<Form4>(App(), platform, state);
    progress.onLeave = [this, &progress] {
        SearchEnded(progress, NextWindow::SetUpWizard);
    };
    progress.Show();
    Hide();
    const NextWindow next = progress.Search();
    if (IsOpen() && next != NextWindow::Stay)
        SearchEnded(progress, next);
}

void Form2::SearchEnded(Form4& progress, NextWindow next) {
    if (next == NextWindow::SetUpWizard)
        Show();
    else
        Leave(next);
    progress.Close();
}

void Form2::EscapePressed() {
    if (IsWindowVisible(Handle())) // else the search is under way, and has a window of its own
        GiveUp();
}

void Form2::GiveUp() {
    Leave(state.WizardFromManagement ? NextWindow::FolderManagement : NextWindow::EndProgram);
}

} // namespace tamblin
