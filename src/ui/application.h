// The open windows of the program, the loop that feeds them, and the one place where a failure of a
// command is reported. One instance, on the one user-interface thread.
#pragma once

#include <functional>
#include <memory>
#include <new>
#include <vector>

#include "base/run_time_error.h"
#include "platform/message_boxes.h"
#include "ui/windows_headers.h"

namespace tamblin {

class Form;

class Application {
  public:
    // `endTheProcess` is called after the report of a fatal error, and does not return outside
    // tests.
    Application(MessageBoxes& messageBoxes, std::function<void()> endTheProcess);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Makes a form, which lives until some time after it has been closed: a command may close the
    // window that it came from.
    template <class FormType, class... Arguments>
    FormType& Open(Arguments&&... arguments) {
        auto form = std::make_unique<FormType>(std::forward<Arguments>(arguments)...);
        FormType& opened = *form;
        owned.push_back(std::move(form));
        return opened;
    }

    // The open form of a kind, or null.
    template <class FormType>
    FormType* FindOpen() const {
        for (Form* form : forms)
            if (auto* found = dynamic_cast<FormType*>(form); found && !found->IsClosing())
                return found;
        return nullptr;
    }

    // Handles events until no form is left.
    void Run();
    void RunUntilClosed(const Form& form);

    // The keyboard handling of forms. True when nothing is left to do with the message; every loop
    // that dispatches messages asks this first.
    bool TakesMessage(MSG& message);

    // The form that a message box belongs to; null while none is seen.
    HWND BoxOwner() const;

    // Closes every form, the most recently opened first, without asking.
    void CloseAll();

    // In the order in which they were opened.
    const std::vector<Form*>& OpenForms() const { return forms; }

    // Runs an event. A RunTimeError ends the event and is reported.
    template <class Event>
    void Guard(Event&& event) {
        try {
            event();
        } catch (const RunTimeError& error) {
            Report(error);
        } catch (const std::bad_alloc&) {
            Report(RunTimeError(ErrorNumber::OutOfMemory));
        }
    }

  private:
    friend class Form;

    void Opened(Form& form) { forms.push_back(&form); }
    void Closed(Form& form);

    void Handle(MSG& message);
    Form* FormOf(HWND window) const;
    void ForgetClosedForms();
    void Report(const RunTimeError& error);

    MessageBoxes& messages;
    std::function<void()> endProcess;
    std::vector<Form*> forms;
    std::vector<std::unique_ptr<Form>> owned;
    Form* lastActive = nullptr;
};

} // namespace tamblin
