#include "setup/choice_window.h"

#include "ui/stacked_layout.h"

namespace tamblin {

Form5::Form5(Application& owner, SettingsState& settings, HandOver& windows)
    : StepForm(owner, 5, L"VMRフォルダの選択 - Tamblin -", FormFrame::Resizable, windows),
      choice(settings) {
    list1.SetAccessibleName(L"検出されたフォルダ");
    combo1.SetAccessibleName(L"デフォルトに設定するフォルダ");
    list1.onTick = [this](size_t row, bool ticked) {
        choice.TickChanged(row, ticked);
        command1.SetEnabled(choice.okEnabled);
    };
    combo1.onSelect = [this](size_t entry) {
        choice.DefaultChosen(entry);
        command1.SetEnabled(choice.okEnabled);
    };
    command1.onClick = [this] {
        OkPressed();
    };
    command1.SetAccessKey(L'O');
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form5::MakeLayout() {
    auto leave = Row();
    leave->Gap(0, 1).Add(command1);
    auto firstStage = Column();
    firstStage->Add(list1, 1);
    auto secondStage = Column();
    secondStage->Add(combo1).Gap(0, 1);
    auto stages = std::make_unique<OverlayLayout>();
    stages->Add(std::move(firstStage)).Add(std::move(secondStage));
    auto whole = Column();
    whole->Margin(8, 8).Add(label1).Gap(5).Add(std::move(stages), 1).Gap(7);
    whole->Add(std::move(leave));
    return whole;
}

void Form5::Load() {
    // The longer of the two questions decides the window's width.
    label1.SetText(L"検出されたフォルダのうち、登録するフォルダにチェックをつけてください。");
    choice.Load();
    ShowStage();
}

void Form5::ShowStage() {
    label1.SetText(choice.Question());
    list1.SetVisible(choice.InFirstStage());
    combo1.SetVisible(!choice.InFirstStage());
    if (choice.InFirstStage())
        list1.Show(choice.folders, choice.ticks);
    else
        combo1.Show(choice.folders, choice.chosen);
    command1.SetEnabled(choice.okEnabled);
    SetFirstFocus(choice.InFirstStage() ? static_cast<Control&>(list1) : combo1);
}

void Form5::OkPressed() {
    const NextWindow next = choice.OkPressed();
    if (next == NextWindow::Stay)
        ShowStage();
    else
        Leave(next);
}

} // namespace tamblin
