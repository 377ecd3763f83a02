#include "install/confirmation_window.h"

#include <algorithm>

namespace tamblin {
namespace {

constexpr int Margin = 7; // font units
constexpr int ColumnsAtFirst = 60;
constexpr int RowsAtFirst = 5;

} // namespace

Form7::Form7(Application& owner, const InstallConfirmation& lists, std::int16_t& answer,
             HWND ownerWindow)
    : Form(owner, 7, L"インストールするオンブレルの確認 - Tamblin - ", FormFrame::ResizableAsk,
           ownerWindow),
      confirmation(lists),
      InstallAnswer(answer) {
    list1.SetAccessibleName(label2.Text());
    list2.SetAccessibleName(label3.Text());
    list3.SetAccessibleName(label7.Text());
    command1.onClick = [this] {
        Answer(AnswerInstall);
    };
    command2.onClick = [this] {
        Answer(AnswerCancel);
    };
    command1.SetLabel(label4);
    command1.SetAccessKey(L'I');
    command2.SetAccessKey(L'C');
    label3.SetAccessKey(L'T', list2);
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form7::MakeLayout() {
    auto answers = Row();
    command1.JoinWidth(buttons);
    command2.JoinWidth(buttons);
    answers->Gap(0, 1).Add(label4, 0, Across::Centre).Gap(4).Add(command1).Gap(4).Add(command2);
    auto whole = Column();
    whole->Margin(Margin, Margin).Add(label1).Gap(7);
    whole->Add(label2).Gap(2).Add(list1, 1).Gap(7);
    whole->Add(label3).Gap(2).Add(list2, 1).Gap(2).Add(label6).Gap(7);
    whole->Add(label7).Gap(2).Add(list3, 1).Gap(7);
    whole->Add(std::move(answers));
    return whole;
}

Size Form7::FirstSize() const {
    const Size least = MinimumSize();
    const Size room = list1.RoomFor(ColumnsAtFirst, RowsAtFirst);
    const int more = room.height - list1.RoomFor(ColumnsAtFirst, LeastRows).height;
    return {std::max(least.width, room.width + Measure().Across(2 * Margin)),
            least.height + 3 * more};
}

void Form7::Load() {
    list1.Show(confirmation.toInstall);
    list2.Show(confirmation.cannotInstall);
    list3.Show(confirmation.alreadyInstalled);
    command1.SetEnabled(confirmation.installNowEnabled);
    SetFirstFocus(confirmation.installNowEnabled ? command1 : command2);
}

// It has no close box. Closed by another program it goes on to install, unless there is nothing.
bool Form7::MayClose(CloseReason reason) {
    if (reason == CloseReason::User && !confirmation.installNowEnabled)
        InstallAnswer = AnswerCancel;
    return true;
}

void Form7::Activated() {
    label6.SetVisible(confirmation.NoteVisible());
}

void Form7::ReturnPressed() {
    Answer(command1.IsEnabled() ? AnswerInstall : AnswerCancel);
}

void Form7::EscapePressed() {
    Answer(AnswerCancel);
}

void Form7::Answer(std::int16_t value) {
    InstallAnswer = value;
    Close();
}

} // namespace tamblin
