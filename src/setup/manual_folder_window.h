// Lets the user walk to a host folder and register it.
#pragma once

#include "setup/manual_folder.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/step_form.h"
#include "ui/text_box.h"

namespace tamblin {

class Form3 : public StepForm {
  public:
    Form3(Application& owner, Platform& surroundings, SettingsState& settings, HandOver& windows);

  private:
    void Load() override;
    void ReturnPressed() override { Leave(manual.OkPressed(text1.Text())); }
    void EscapePressed() override { Leave(manual.BackPressed()); }
    bool KeyPressed(const KeyPress& press, const Control* focus) override;
    void ShowTree();
    std::unique_ptr<LayoutItem> MakeLayout();

    ManualFolder manual;
    WidthGroup buttons;

    Label label1{*this, 1, L"Vimoraがインストールされているフォルダを指定して下さい。"};
    TextBox text1{*this, 1, TextBox::Access::Editable};
    ListBox list1{*this, 1, ListBox::Selecting::One, 30, 10};
    ListBox list2{*this, 2, ListBox::Selecting::One, 14, 3};
    PathLabel label10{*this, 10};
    Button command1{*this, 1, L"OK"};
    Button command2{*this, 2, L"Back"};
    Label label3{*this, 3, L"１つ前に戻る"};
    Button command3{*this, 3, L"More"};
    Label label4{*this, 4, L"もう１つ指定する"};
    Label label5{*this, 5, L"VMRを複数インストールしている場合、別の場所を指定できます。"};
};

} // namespace tamblin
