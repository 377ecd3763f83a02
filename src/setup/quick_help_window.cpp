#include "setup/quick_help_window.h"

#include <algorithm>

#include "ui/dpi.h"
#include "ui/stacked_layout.h"

namespace tamblin {
namespace {

constexpr unsigned RemoraMilliseconds = 1000;

void SetVisible(const std::vector<std::unique_ptr<LinkLabel>>& links, bool on) {
    for (const auto& link : links)
        link->SetVisible(on);
}

} // namespace

Form9::Form9(Application& owner, Platform& surroundings, HWND mainWindow)
    : Form(owner, 9, L"Quick Help", FormFrame::Fixed),
      platform(surroundings),
      followed(mainWindow),
      label3(MakeCategories()),
      label4(MakeTopics(4, PurposeTopics, label6)),
      label5(MakeTopics(5, ButtonTopics, label7)) {
    label9Link.onClick = [this] {
        platform.shell.Open(SupportPageAddress, platform.programFolder.substr(0, 2));
    };
    check1.onClick = [this] {
        RemoraClicked();
    };
    command1.onClick = [this] {
        Close();
    };
    label6.AnnounceChanges();
    label7.AnnounceChanges();
    SetFirstFocus(command1);
    SetLayout(MakeLayout());
}

Form9::Links Form9::MakeCategories() {
    Links links;
    int index = 0;
    for (const wchar_t* caption :
         {L"●機能制限", L"●ボタン説明", L"●目的別ヘルプ", L"●Tamblinについて"}) {
        const auto category = static_cast<HelpCategory>(index);
        links.push_back(std::make_unique<LinkLabel>(*this, 3, index++, caption));
        links.back()->onClick = [this, category] {
            ShowCategory(category);
        };
    }
    return links;
}

Form9::Links Form9::MakeTopics(int number, std::span<const HelpTopic> topics, TextPane& pane) {
    Links links;
    int index = 0;
    for (const HelpTopic& topic : topics) {
        links.push_back(std::make_unique<LinkLabel>(*this, number, index++, topic.caption));
        const LinkLabel* const link = links.back().get();
        links.back()->onClick = [this, number, link, &pane, &topic] {
            pane.SetText(topic.text);
            MarkChosen(number == 4 ? label4 : label5, link);
        };
    }
    return links;
}

std::unique_ptr<LayoutItem> Form9::MakeLayout() {
    auto categories = Row();
    for (const auto& link : label3)
        categories->Add(*link).Gap(6);
    auto pages = std::make_unique<OverlayLayout>();
    pages->Add(MakeTopicsPage(label4, label6)).Add(MakeTopicsPage(label5, label7));
    pages->Add(MakeAboutPage());
    auto bottom = Row();
    bottom->Add(check1, 0, Across::Centre).Gap(8, 1).Add(command1, 0, Across::Centre);
    auto whole = Column();
    whole->Margin(8, 8).Add(label1).Gap(6).Add(std::move(categories)).Gap(8);
    whole->Add(std::move(pages), 1).Gap(8).Add(std::move(bottom));
    return whole;
}

std::unique_ptr<LayoutItem> Form9::MakeTopicsPage(Links& topics, TextPane& pane) {
    auto list = Column();
    for (const auto& link : topics)
        list->Add(*link, 0, Across::Start).Gap(1);
    auto page = Column();
    page->Add(std::move(list)).Gap(6, 0).Add(pane, 1);
    return page;
}

// Limitations and About stand in one page, of which either half is seen.
std::unique_ptr<LayoutItem> Form9::MakeAboutPage() {
    auto limitations = Column();
    limitations->Add(label8First).Gap(4).Add(label8Second).Gap(0, 1);
    auto about = Column();
    about->Add(label9Program).Gap(6).Add(label9Origin).Gap(2);
    about->Add(label9Link, 0, Across::Start).Gap(0, 1);
    auto page = std::make_unique<OverlayLayout>();
    page->Add(std::move(limitations)).Add(std::move(about));
    return page;
}

void Form9::Load() {
    ShowCategory(HelpCategory::Purposes);
    StartTimer(RemoraMilliseconds);
}

void Form9::ShowCategory(HelpCategory category) {
    MarkChosen(label3, label3[static_cast<size_t>(category)].get());
    SetVisible(label4, category == HelpCategory::Purposes);
    label6.SetVisible(category == HelpCategory::Purposes);
    SetVisible(label5, category == HelpCategory::Buttons);
    label7.SetVisible(category == HelpCategory::Buttons);
    label8First.SetVisible(category == HelpCategory::Limitations);
    label8Second.SetVisible(category == HelpCategory::Limitations);
    label9Program.SetVisible(category == HelpCategory::About);
    label9Origin.SetVisible(category == HelpCategory::About);
    label9Link.SetVisible(category == HelpCategory::About);
}

void Form9::MarkChosen(const Links& links, const LinkLabel* chosen) {
    for (const auto& link : links)
        link->SetChosen(link.get() == chosen);
}

void Form9::PointerOver(Control* control) {
    for (const Links* links : {&label3, &label4, &label5})
        for (const auto& link : *links)
            link->SetHighlighted(link.get() == control);
    label9Link.SetHighlighted(&label9Link == control);
}

// The window comes up in its place.
void Form9::Arranged() {
    if (!IsWindowVisible(Handle()))
        Dock();
}

// The box is ticked to switch the mode off.
void Form9::RemoraClicked() {
    if (check1.IsTicked())
        StopTimer();
    else
        StartTimer(RemoraMilliseconds);
    command1.Focus();
}

void Form9::Dock() {
    if (!IsWindowVisible(followed) || IsIconic(followed) || IsIconic(Handle()) || IsBeingMoved())
        return;
    RECT main{};
    GetWindowRect(followed, &main);
    RECT own{};
    GetWindowRect(Handle(), &own);
    // Where there is no room beside the main window, as far inside as it must be to be seen whole.
    const RECT work = WorkAreaOf(followed);
    const LONG left = std::min(main.right, work.right - (own.right - own.left));
    const LONG top = std::min(main.top, work.bottom - (own.bottom - own.top));
    SetWindowPos(Handle(), nullptr, std::max(left, work.left), std::max(top, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace tamblin
