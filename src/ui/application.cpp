#include "ui/application.h"

#include <algorithm>

#include "ui/form.h"

namespace tamblin {

Application::Application(MessageBoxes& messageBoxes, std::function<void()> endTheProcess)
    : messages(messageBoxes), endProcess(std::move(endTheProcess)) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
}

Application::~Application() {
    CloseAll();
}

void Application::Closed(Form& form) {
    std::erase(forms, &form);
    if (lastActive == &form)
        lastActive = nullptr;
}

void Application::Run() {
    MSG message;
    while (!forms.empty() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        Handle(message);
        ForgetClosedForms();
    }
}

void Application::RunUntilClosed(const Form& form) {
    MSG message;
    while (form.IsOpen() && GetMessageW(&message, nullptr, 0, 0) > 0)
        Handle(message);
}

void Application::Handle(MSG& message) {
    if (TakesMessage(message))
        return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool Application::TakesMessage(MSG& message) {
    Form* const form = FormOf(message.hwnd);
    if (!form)
        return false;
    return form->TakesKey(message) || IsDialogMessageW(form->Handle(), &message);
}

HWND Application::BoxOwner() const {
    const HWND active = GetActiveWindow();
    const HWND owner = FormOf(active) ? active : lastActive ? lastActive->Handle() : nullptr;
    return owner && IsWindowVisible(owner) ? owner : nullptr;
}

Form* Application::FormOf(HWND window) const {
    const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
    const auto form = std::find_if(forms.begin(), forms.end(),
                                   [&](const Form* open) { return open->Handle() == root; });
    return root && form != forms.end() ? *form : nullptr;
}

void Application::ForgetClosedForms() {
    std::erase_if(owned, [](const std::unique_ptr<Form>& form) { return !form->IsOpen(); });
}

void Application::CloseAll() {
    while (true) {
        const auto form = std::find_if(forms.rbegin(), forms.rend(),
                                       [](const Form* open) { return !open->IsClosing(); });
        if (form == forms.rend())
            return;
        (*form)->Destroy();
    }
}

void Application::Report(const RunTimeError& error) {
    messages.Inform(error.Report(), MessageIcon::Stop);
    if (error.IsFatal())
        endProcess();
}

} // namespace tamblin
