// The quick help window: its links, and how it keeps to the main window's side.
#include "setup/quick_help_window.h"

#include <algorithm>

#include "ui/link_label.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class QuickHelpWindowTest : public WindowScene {
  protected:
    void SetUp() override {
        MoveMain(100, 60, 500, 400);
        ShowWindow(main, SW_SHOW);
        help = &application.Open<Form9>(application, fake.platform, main);
        help->Show();
        Pump();
    }
    void TearDown() override { DestroyWindow(main); }

    void MoveMain(int left, int top, int width, int height) const {
        SetWindowPos(main, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void Tick() const { SendMessageW(help->Handle(), WM_TIMER, 1, 0); }
    static POINT CornerOf(HWND window) {
        RECT area = AreaOf(window);
        return {area.left, area.top};
    }
    void ExpectAt(POINT place) const {
        const POINT corner = CornerOf(help->Handle());
        EXPECT_EQ(corner.x, place.x);
        EXPECT_EQ(corner.y, place.y);
    }
    std::vector<std::wstring> Highlighted() const {
        std::vector<std::wstring> captions;
        for (const Control* control : help->Controls()) {
            const auto* link = dynamic_cast<const LinkLabel*>(control);
            if (link && link->IsHighlighted())
                captions.push_back(TextOf(link->Handle()));
        }
        return captions;
    }

    // Stands for the main window.
    HWND main = CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr,
                                nullptr, nullptr, nullptr);
    Form9* help = nullptr;
};

TEST_F(QuickHelpWindowTest, OpensTheSupportPageOnTheProgramsDrive) {
    Click(Find(*help, ControlKind::Label, 3, 3));
    for (const int index : {0, 1})
        Click(Find(*help, ControlKind::Label, 9, index));
    EXPECT_TRUE(fake.shell.opened.empty());
    Click(Find(*help, ControlKind::Label, 9, static_cast<int>(SupportLinkIndex)));
    const DesktopShellFake::Opened page{SupportPageAddress, L"C:"};
    EXPECT_EQ(fake.shell.opened, std::vector{page});
}

// Categories, purposes and buttons behave alike.
TEST_F(QuickHelpWindowTest, HighlightsTheLinkUnderThePointerAlone) {
    using Names = std::vector<std::wstring>;
    EXPECT_EQ(Highlighted(), Names{});
    MovePointerOver(*help, Find(*help, ControlKind::Label, 3, 1));
    EXPECT_EQ(Highlighted(), Names{L"●ボタン説明"});
    MovePointerOver(*help, Find(*help, ControlKind::Label, 4, 6));
    EXPECT_EQ(Highlighted(), Names{L"●READMEを表示する"});
    Click(Find(*help, ControlKind::Label, 3, 1));
    MovePointerOver(*help, Find(*help, ControlKind::Label, 5, 10));
    EXPECT_EQ(Highlighted(), Names{L"●終了ボタン"});
    MovePointerTo(*help, {1, 1});
    EXPECT_EQ(Highlighted(), Names{});
}

TEST_F(QuickHelpWindowTest, FollowsTheMainWindowAtATick) {
    ExpectAt({600, 60});
    MoveMain(40, 100, 300, 300);
    ExpectAt({600, 60});
    Tick();
    ExpectAt({340, 100});
}

TEST_F(QuickHelpWindowTest, StaysWhileTheMainWindowIsHiddenOrMinimised) {
    for (const int command : {SW_HIDE, SW_MINIMIZE}) {
        MoveMain(100, 60, 500, 400);
        ShowWindow(main, SW_SHOWNORMAL);
        Tick();
        ExpectAt({600, 60});
        ShowWindow(main, command);
        if (command == SW_HIDE)
            MoveMain(0, 0, 300, 300);
        Tick();
        ExpectAt({600, 60});
    }
}

} // namespace
} // namespace tamblin
