// A plain form that notes what reaches it.
#pragma once

#include "base/at_exit.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/text_box.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {

class PlainForm : public Form {
  public:
    explicit PlainForm(Application& owner, int itsNumber, HWND ownerWindow = nullptr)
        : Form(owner, itsNumber, L"Plain", FormFrame::Resizable, ownerWindow), number(itsNumber) {
        auto column = Column();
        column->Add(first).Add(second).Add(third).Add(text).Gap(20, 1);
        SetLayout(std::move(column));
        SetFirstFocus(first);
    }

    using Form::StartTimer;
    using Form::StopTimer;

    const int number;
    int activations = 0;
    int closings = 0;
    int ticks = 0;
    bool mayClose = true;
    std::vector<CloseReason> asked;
    std::vector<std::wstring> keys;
    std::vector<Control*> pointedAt;
    std::function<void()> onTick;
    std::function<void()> onClosing;

    Button first{*this, 1, L"First"};
    Button second{*this, 2, L"Second"};
    Button third{*this, 3, L"Third"};
    TextBox text{*this, 1, TextBox::Access::Editable};

  private:
    void Activated() override { ++activations; }
    bool MayClose(CloseReason reason) override {
        asked.push_back(reason);
        return mayClose;
    }
    void Closing() override {
        ++closings;
        if (onClosing)
            onClosing();
    }
    void Tick() override {
        ++ticks;
        if (onTick)
            onTick();
    }
    void PointerOver(Control* control) override { pointedAt.push_back(control); }
    void ReturnPressed() override { keys.push_back(L"return"); }
    void EscapePressed() override { keys.push_back(L"escape"); }
};

class FormTest : public WindowScene {
  protected:
    PlainForm& Open(int number) {
        auto& opened = application.Open<PlainForm>(application, number);
        opened.Show();
        Pump();
        return opened;
    }
    // Shows a modal form over the first one and closes it after `step`.
    void ShowModalAnd(const std::function<void()>& step) {
        PlainForm modal(application, 102, form.Handle());
        modal.onTick = [&] {
            step();
            modal.Close();
        };
        modal.StartTimer(10);
        modal.ShowModal();
        EXPECT_FALSE(modal.IsOpen());
    }
    // Presses a button whose command does this.
    static void Command(PlainForm& clicked, std::function<void()> command) {
        clicked.first.onClick = std::move(command);
        Click(clicked.first.Handle());
    }

    PlainForm& form = Open(101);
};

} // namespace tamblin
