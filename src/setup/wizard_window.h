// The set-up wizard's place: says what to do while the wizard itself is not there.
#pragma once

#include "ui/button.h"
#include "ui/form.h"
#include "ui/hand_over.h"
#include "ui/label.h"
#include "ui/text_box.h"

namespace tamblin {

class Form2 : public Form {
  public:
    Form2(Application& owner, HandOver& windows, const std::wstring& programFolder);

  private:
    void EscapePressed() override { handOver.Show(NextWindow::EndProgram); }
    std::unique_ptr<LayoutItem> MakeLayout();

    HandOver& handOver;
    Label label1{*this, 1, L""};
    Button command3{*this, 3, L"作業をやめる"};
};

} // namespace tamblin
