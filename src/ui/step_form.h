// A form from which the user goes on to another one. Its close box does what Escape does.
#pragma once

#include "base/next_window.h"
#include "ui/form.h"

namespace tamblin {

class StepForm : public Form {
  protected:
    StepForm(Application& owner, int number, const std::wstring& title, FormFrame frame,
             HandOver& windows)
        : Form(owner, number, title, frame), handOver(windows) {}

    bool MayClose(CloseReason reason) override {
        if (reason == CloseReason::User)
            EscapePressed();
        return reason == CloseReason::Program;
    }
    // Shows what follows and closes the form, which Stay leaves as it is.
    void Leave(NextWindow next) {
        if (next == NextWindow::Stay)
            return;
        handOver.Show(next);
        Close();
    }

  private:
    HandOver& handOver;
};

} // namespace tamblin
