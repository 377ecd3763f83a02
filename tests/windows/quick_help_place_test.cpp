// Where the help window stands, and what it marks.
#include "setup/quick_help_window.h"

#include "windows/window_scene.h"

namespace tamblin {
namespace {

class QuickHelpPlaceTest : public WindowScene {
  protected:
    QuickHelpPlaceTest() {
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        main = CreateWindowExW(0, L"Static", L"main", WS_POPUP | WS_VISIBLE, 100, 80, 300, 200,
                               nullptr, nullptr, nullptr, nullptr);
    }
    ~QuickHelpPlaceTest() override { DestroyWindow(main); }

    void MoveMain(LONG left, LONG top, LONG width, LONG height) {
        SetWindowPos(main, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    Form9& Open() {
        form = &application.Open<Form9>(application, fake.platform, main);
        form->Show();
        Pump();
        return *form;
    }
    // The docking timer rings.
    void Tick() { SendMessageW(form->Handle(), WM_TIMER, 1, 0); }
    RECT Area() const {
        RECT area = AreaOf(form->Handle());
        return area;
    }

    RECT work{};
    HWND main = nullptr;
    Form9* form = nullptr;
};

TEST_F(QuickHelpPlaceTest, StandsBesideTheMainWindow) {
    Open();
    EXPECT_EQ(Area().left, 400);
    EXPECT_EQ(Area().top, 80);
    MoveMain(40, 30, 300, 200);
    Tick();
    EXPECT_EQ(Area().left, 340);
    EXPECT_EQ(Area().top, 30);
}

TEST_F(QuickHelpPlaceTest, StaysOnTheScreenBesideAMaximisedMainWindow) {
    MoveMain(work.left - 4, work.top - 4, work.right - work.left + 8, work.bottom - work.top + 8);
    Open();
    EXPECT_EQ(Area().right, work.right);
    EXPECT_EQ(Area().top, work.top);
}

TEST_F(QuickHelpPlaceTest, MovesInsideJustSoFar) {
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

TEST_F(QuickHelpPlaceTest, WaitsWithDockingUntilTheUserLetsGoOfIt) {
    Open();
    SendMessageW(form->Handle(), WM_ENTERSIZEMOVE, 0, 0);
    SetWindowPos(form->Handle(), nullptr, 10, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Tick();
    EXPECT_EQ(Area().left, 10);
    SendMessageW(form->Handle(), WM_EXITSIZEMOVE, 0, 0);
    Tick();
    EXPECT_EQ(Area().left, 400);
}

TEST_F(QuickHelpPlaceTest, MarksTheChosenCategoryAndTopic) {
    Open();
    const auto chosen = [&](int number) {
        std::vector<int> indexes;
        for (const Control* control : form->Controls()) {
            const auto* link = dynamic_cast<const LinkLabel*>(control);
            if (link && link->IsChosen() && link->Name().number == number)
                indexes.push_back(link->Name().index);
        }
        return indexes;
    };
    EXPECT_EQ(chosen(3), std::vector{2});
    EXPECT_TRUE(chosen(4).empty() && chosen(5).empty());
    Click(Find(*form, ControlKind::Label, 4, 1));
    Click(Find(*form, ControlKind::Label, 4, 3));
    EXPECT_EQ(chosen(4), std::vector{3});
    Click(Find(*form, ControlKind::Label, 3, 1));
    Click(Find(*form, ControlKind::Label, 5, 2));
    EXPECT_EQ(chosen(3), std::vector{1});
    EXPECT_EQ(chosen(4), std::vector{3});
    EXPECT_EQ(chosen(5), std::vector{2});
}

} // namespace
} // namespace tamblin
