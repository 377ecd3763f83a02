// Lets the user choose which of the found folders to register, then which is the default.
#pragma once

#include "setup/folder_choice.h"
#include "ui/button.h"
#include "ui/check_list.h"
#include "ui/combo_box.h"
#include "ui/label.h"
#include "ui/step_form.h"

namespace tamblin {

class Form5 : public StepForm {
  public:
    Form5(Application& owner, SettingsState& settings, HandOver& windows);

  private:
    void Load() override;
    void ReturnPressed() override { command1.Press(); }
    void EscapePressed() override { Leave(choice.Closed()); }
    void OkPressed();
    void ShowStage();
    std::unique_ptr<LayoutItem> MakeLayout();

    FolderChoice choice;

    Label label1{*this, 1, L""};
    CheckList list1{*this, 1, 36, 8};
    ComboBox combo1{*this, 1};
    Button command1{*this, 1, L"OK"};
};

} // namespace tamblin
