// Reviewing the registered host folders and the Kavalet permission.
#pragma once

#include "settings/folder_management.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/step_form.h"
#include "ui/tick_button.h"

namespace tamblin {

class Form8 : public StepForm {
  public:
    Form8(Application& owner, SettingsState& settings, HandOver& windows);

  private:
    void Load() override;
    void Activated() override;
    void EscapePressed() override;
    // Runs an event between reading what the user has chosen and mirroring the model.
    void Run(const std::function<NextWindow()>& event);
    void ShowModel();
    std::unique_ptr<LayoutItem> MakeLayout();

    FolderManagement management;
    WidthGroup buttons;

    Label label1{*this, 1, L"VMRがインストールされているフォルダを、10ヶ所まで管理できます。"};
    ListBox list1{*this, 1, ListBox::Selecting::One, 40, 10};
    Button command1{*this, 1, L"追加..."};
    Button command2{*this, 2, L"変更..."};
    Button command3{*this, 3, L"削除"};
    Label label2{*this, 2, L"Kavalet用定義ファイル（kva.def）への情報書き込みを許可しますか？"};
    OptionButton option1Allow{*this, 1, 0, L"許可する"};
    OptionButton option1Forbid{*this, 1, 1, L"禁止する（デフォルト）"};
    Label label3{*this, 3, L"※ 許可した場合、ベンダーの設定が反映されるようになります。"};
    Button command4{*this, 4, L"戻る"};
};

} // namespace tamblin
