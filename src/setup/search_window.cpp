#include "setup/search_window.h"

#include "base/at_exit.h"
#include "base/win32/busy_pointer.h"

namespace tamblin {
namespace {

// Often enough to look alive, seldom enough to cost the search nothing.
constexpr ULONGLONG PaintMilliseconds = 50;

std::unique_ptr<LayoutItem> Line(Label& caption, WidthGroup& captions, Label& value) {
    caption.JoinWidth(captions);
    auto line = Row();
    line->Add(caption).Gap(8).Add(value, 1);
    return line;
}

} // namespace

Form4::Form4(Application& owner, Platform& surroundings, SettingsState& settings)
    : Form(owner, 4, L"VMRフォルダを検索中... - Tamblin -", FormFrame::Fixed),
      platform(surroundings),
      search(surroundings, *this, settings) {
    // A box of the settling stands over counters that say how far the search has come.
    search.onSettling = [this] {
        ShowProgress();
    };
    command1.onClick = [this] {
        Leave();
    };
    SetFirstFocus(command1);
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form4::MakeLayout() {
    auto progress = Column();
    progress->Margin(6, 0);
    progress->Add(Line(label10, captions, label11)).Gap(3);
    progress->Add(Line(label7, captions, label8)).Gap(3);
    progress->Add(Line(label2, captions, label3)).Gap(3);
    progress->Add(Line(label4, captions, label5));
    auto stop = Row();
    stop->Add(command1, 0, Across::Centre).Gap(4).Add(label6, 1, Across::Centre);
    auto whole = Column();
    whole->Margin(10, 10).Add(label1).Gap(8).Add(label9).Gap(4).Add(std::move(progress));
    whole->Gap(10).Add(std::move(stop));
    return whole;
}

NextWindow Form4::Search() {
    searching = true;
    const AtExit over([this] { searching = false; });
    const BusyPointer busy;
    RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const NextWindow next = search.SearchAllDrives();
    ShowProgress();
    return next;
}

void Form4::Yield() {
    const ULONGLONG now = GetTickCount64();
    if (now - lastPainted >= PaintMilliseconds) {
        lastPainted = now;
        ShowProgress();
    }
    platform.events.Yield();
}

void Form4::ShowProgress() {
    if (!IsOpen())
        return;
    const SearchProgress& progress = search.Progress();
    label11.SetText(progress.drive);
    label8.SetText(SearchProgress::CounterText(progress.files));
    label3.SetText(SearchProgress::CounterText(progress.folders));
    label5.SetText(progress.FoundText());
}

// The close box is the cancel button: the search ends first, then the window.
bool Form4::MayClose(CloseReason reason) {
    if (reason == CloseReason::Program)
        return true;
    Leave();
    return false;
}

// Also when the session ends or another program closes all windows.
void Form4::Closing() {
    search.Abandon();
}

void Form4::Leave() {
    if (searching)
        search.Cancel();
    else if (onLeave)
        onLeave();
}

} // namespace tamblin
