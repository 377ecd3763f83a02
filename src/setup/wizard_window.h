// The set-up wizard: lets the program search for host folders, or the user name one.
#pragma once

#include "platform/platform.h"
#include "settings/settings_state.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/step_form.h"

namespace tamblin {

class Form4;

class Form2 : public StepForm {
  public:
    Form2(Application& owner, Platform& surroundings, SettingsState& settings, HandOver& windows);

  private:
    void Load() override;
    void EscapePressed() override;
    void Search();
    void SearchEnded(Form4& progress, NextWindow next);
    void GiveUp();
    std::unique_ptr<LayoutItem> MakeLayout();

    Platform& platform;
    SettingsState& state;
    WidthGroup buttons;

    Label label1{*this, 1, L"Tamblin に必要な情報を設定します。"};
    Label label2{*this, 2, L"設定項目"};
    Label label3{*this, 3, L"・Vimoraフォルダの指定"};
    Button command2{*this, 2, L"自動検出"};
    Label label5{*this, 5, L"見つけさせる"};
    Button command1{*this, 1, L"手動設定"};
    Label label4{*this, 4, L"自分で指定する"};
    Button command3{*this, 3, L"終了"};
    Label label6{*this, 6, L"作業をやめる"};
};

} // namespace tamblin
