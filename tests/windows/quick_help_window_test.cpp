// The quick help window: its links, and how it keeps to the main window's side.
#include "setup/quick_help_window.h"

#include "ui/link_label.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

using Names = std::vector<std::wstring>;

class QuickHelpTest : public WindowScene {
  protected:
    ~QuickHelpTest() override { DestroyWindow(main); }
    void MoveMain(LONG left, LONG top, LONG width, LONG height) const {
        SetWindowPos(main, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void Open() {
        help = &application.Open<Form9>(application, fake.platform, main);
        help->Show();
        Pump();
    }
    // The docking timer rings.
    void Tick() const { SendMessageW(help->Handle(), WM_TIMER, 1, 0); }
    RECT Area() const { return AreaOf(help->Handle()); }
    void ExpectAt(LONG left, LONG top) const {
        EXPECT_EQ(Area().left, left);
        EXPECT_EQ(Area().top, top);
    }
    HWND Link(int number, int index) const {
        return Find(*help, ControlKind::Label, number, index);
    }
    // The links for which this holds.
    std::vector<const LinkLabel*> Links(bool (LinkLabel::*holds)() const) const {
        std::vector<const LinkLabel*> links;
        for (const Control* control : help->Controls()) {
            const auto* link = dynamic_cast<const LinkLabel*>(control);
            if (link && (link->*holds)())
                links.push_back(link);
        }
        return links;
    }
    Names Highlighted() const {
        Names captions;
        for (const LinkLabel* link : Links(&LinkLabel::IsHighlighted))
            captions.push_back(TextOf(link->Handle()));
        return captions;
    }
    std::vector<int> Chosen(int number) const {
        std::vector<int> indexes;
        for (const LinkLabel* link : Links(&LinkLabel::IsChosen))
            if (link->Name().number == number)
                indexes.push_back(link->Name().index);
        return indexes;
    }

    const RECT work = WorkArea();
    // Stands for the main window.
    HWND main = CreateWindowExW(0, L"Static", L"main", WS_POPUP | WS_VISIBLE, 100, 80, 300, 200,
                                nullptr, nullptr, nullptr, nullptr);
    Form9* help = nullptr;
};

TEST_F(QuickHelpTest, FollowsTheMainWindowsSideAtATick) {
    Open();
    ExpectAt(400, 80);
    MoveMain(40, 30, 300, 200);
    ExpectAt(400, 80);
    Tick();
    ExpectAt(340, 30);
}

TEST_F(QuickHelpTest, StaysWhileTheMainWindowIsHiddenOrMinimised) {
    Open();
    for (const int command : {SW_HIDE, SW_MINIMIZE}) {
        MoveMain(100, 80, 300, 200);
        ShowWindow(main, SW_SHOWNORMAL);
        Tick();
        ExpectAt(400, 80);
        ShowWindow(main, command);
        if (command == SW_HIDE)
            MoveMain(0, 0, 300, 300);
        Tick();
        ExpectAt(400, 80);
    }
}

TEST_F(QuickHelpTest, StaysOnTheScreenBesideAMaximisedMainWindow) {
    MoveMain(work.left - 4, work.top - 4, work.right - work.left + 8, work.bottom - work.top + 8);
    Open();
    EXPECT_EQ(Area().right, work.right);
    EXPECT_EQ(Area().top, work.top);
}

TEST_F(QuickHelpTest, MovesInsideJustSoFar) {
    Open();
    const LONG width = Area().right - Area().left;
    const LONG height = Area().bottom - Area().top;
    MoveMain(work.right - width - 290, 50, 300, 200);
    Tick();
    EXPECT_EQ(Area().right, work.right);
    EXPECT_EQ(Area().top, 50);
    MoveMain(20, work.bottom - height + 10, 300, 200);
    Tick();
    EXPECT_EQ(Area().left, 320);
    EXPECT_EQ(Area().bottom, work.bottom);
}

TEST_F(QuickHelpTest, WaitsWithDockingUntilTheUserLetsGoOfIt) {
    Open();
    SendMessageW(help->Handle(), WM_ENTERSIZEMOVE, 0, 0);
    SetWindowPos(help->Handle(), nullptr, 10, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Tick();
    EXPECT_EQ(Area().left, 10);
    SendMessageW(help->Handle(), WM_EXITSIZEMOVE, 0, 0);
    Tick();
    EXPECT_EQ(Area().left, 400);
}

TEST_F(QuickHelpTest, MarksTheChosenCategoryAndTopic) {
    Open();
    EXPECT_EQ(Chosen(3), std::vector{2});
    EXPECT_TRUE(Chosen(4).empty() && Chosen(5).empty());
    Click(Link(4, 1));
    Click(Link(4, 3));
    EXPECT_EQ(Chosen(4), std::vector{3});
    Click(Link(3, 1));
    Click(Link(5, 2));
    EXPECT_EQ(Chosen(3), std::vector{1});
    EXPECT_EQ(Chosen(4), std::vector{3});
    EXPECT_EQ(Chosen(5), std::vector{2});
}

TEST_F(QuickHelpTest, OpensTheSupportPageOnTheProgramsDrive) {
    Open();
    Click(Link(3, 3));
    for (const int index : {0, 1})
        Click(Link(9, index));
    EXPECT_TRUE(fake.shell.opened.empty());
    Click(Link(9, 2));
    const DesktopShellFake::Opened page{SupportPageAddress, L"C:"};
    EXPECT_EQ(fake.shell.opened, std::vector{page});
}

// Categories, purposes and buttons behave alike.
TEST_F(QuickHelpTest, HighlightsTheLinkUnderThePointerAlone) {
    Open();
    EXPECT_EQ(Highlighted(), Names{});
    MovePointerOver(*help, Link(3, 1));
    EXPECT_EQ(Highlighted(), Names{L"●ボタン説明"});
    MovePointerOver(*help, Link(4, 6));
    EXPECT_EQ(Highlighted(), Names{L"●READMEを表示する"});
    Click(Link(3, 1));
    MovePointerOver(*help, Link(5, 10));
    EXPECT_EQ(Highlighted(), Names{L"●終了ボタン"});
    MovePointerTo(*help, {1, 1});
    EXPECT_EQ(Highlighted(), Names{});
}

} // namespace
} // namespace tamblin
