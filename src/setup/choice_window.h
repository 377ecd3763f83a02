// Lets the user choose which of the found folders to register, then which is the default.
#pragma once

#include "setup/folder_choice.h"
#include "ui/button.h"
#include "ui/check_list.h"
#include "ui/combo_box.h"
#include "ui/form.h"
#include "ui/hand_over.h"
#include "ui/label.h"

namespace tamblin {

class Form5 : public Form {
  public:
    Form5(Application& owner, SettingsState& settings, HandOver& windows);

  private:
    void Load() override;
    bool MayClose(CloseReason reason) override;
    void ReturnPressed() override;
    void EscapePressed() override { Leave(choice.Closed()); }
    void OkPressed();
    void Leave(NextWindow next);
    void ShowStage();
    std::unique_ptr<LayoutItem> MakeLayout();

    HandOver& handOver;
    FolderChoice choice;

    Label label1{*this, 1, L""};
    CheckList list1{*this, 1, 36, 8};
    ComboBox combo1{*this, 1};
    Button command1{*this, 1, L"OK"};
};

} // namespace tamblin
