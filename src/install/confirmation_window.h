// Asks before packages are installed: what will be, what cannot be, what already is.
#pragma once

#include "install/install.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/list_box.h"

namespace tamblin {

class Form7 : public Form {
  public:
    // The buttons write `answer`; a window closed otherwise leaves it as it is. While there is
    // nothing to install, the user can leave by Cancel only.
    Form7(Application& owner, const InstallConfirmation& lists, std::int16_t& answer,
          HWND ownerWindow);

  private:
    void Load() override;
    bool MayClose(CloseReason reason) override;
    void Activated() override;
    void ReturnPressed() override;
    void EscapePressed() override;
    Size FirstSize() const override;
    void Answer(std::int16_t value);
    std::unique_ptr<LayoutItem> MakeLayout();

    static constexpr int LeastRows = 2;

    const InstallConfirmation& confirmation;
    std::int16_t& InstallAnswer;
    WidthGroup buttons;

    Label label1{*this, 1, L"下記の要領でオンブレルをインストールします。"};
    Label label2{*this, 2, L"インストールするオンブレル"};
    ListBox list1{*this, 1, ListBox::Selecting::One, 24, LeastRows};
    Label label3{*this, 3, L"tambでインストールできないもの"};
    ListBox list2{*this, 2, ListBox::Selecting::One, 24, LeastRows};
    Label label6{*this, 6, InstallConfirmation::Note};
    Label label7{*this, 7, L"インストール済みのもの"};
    ListBox list3{*this, 3, ListBox::Selecting::One, 24, LeastRows};
    Label label4{*this, 4, L"インストール"};
    Button command1{*this, 1, L"Install Now"};
    Button command2{*this, 2, L"Cancel"};
};

} // namespace tamblin
