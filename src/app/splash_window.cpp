#include "app/splash_window.h"

#include "base/at_exit.h"

namespace tamblin {

constexpr COLORREF LabelColour = RGB(0xFF, 0xF4, 0xE0);

Form6::Form6(Application& owner, StartUp& steps, HandOver& windows)
    : Form(owner, 6, L"Tamblin", FormFrame::Borderless), startUp(steps), handOver(windows) {
    label4.SetVisible(false);
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form6::MakeLayout() {
    auto texts = Column();
    texts->Gap(10, 1);
    texts->Add(image2, 0, Across::Start).Gap(4).Add(label2, 0, Across::Start).Gap(12);
    texts->Add(label3, 0, Across::Start).Gap(5).Add(label4, 0, Across::Start).Gap(12, 1);
    texts->Add(label6, 0, Across::Start);
    auto whole = Row();
    whole->Margin(20, 16).Add(image1, 0, Across::Centre).Gap(20).Add(std::move(texts), 1);
    return whole;
}

void Form6::Load() {
    if (startUp.Load())
        StartTimer(StartUpTickMilliseconds);
    else
        handOver.Show(NextWindow::EndProgram);
}

void Form6::Tick() {
    const NextWindow next = startUp.Tick();
    label4.SetVisible(startUp.ProgressLineVisible());
    if (next == NextWindow::Stay)
        return;
    StopTimer();
    // The splash goes whatever becomes of the window that follows.
    const AtExit close([this] { Close(); });
    handOver.Show(next);
}

// The background is as large as the window and its pattern begins at the window's corner.
void Form6::Arranged() {
    RECT client{};
    GetClientRect(Handle(), &client);
    if (client.right == 0)
        return;
    backgroundBrush = MakeSplashBackground({client.right, client.bottom}, Measure().Down(1));
}

bool Form6::PaintBackground(HDC target) {
    if (!backgroundBrush)
        return false;
    RECT client{};
    GetClientRect(Handle(), &client);
    FillRect(target, &client, backgroundBrush.get());
    return true;
}

HBRUSH Form6::LabelBackground(HDC target, HWND label) {
    POINT corner{};
    MapWindowPoints(label, Handle(), &corner, 1);
    SetBrushOrgEx(target, -corner.x, -corner.y, nullptr);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, LabelColour);
    return backgroundBrush.get();
}

} // namespace tamblin
