// The window kit: reporting failures, activation, modal forms, closing.
#include "base/win32/busy_pointer.h"
#include "windows/form_scene.h"

namespace tamblin {
namespace {

TEST_F(FormTest, HasTheClassOfItsNumberAndControlsByTheirNames) {
    EXPECT_EQ(ClassOf(form.Handle()), L"Tamblin.Form101");
    EXPECT_EQ(ControlId({ControlKind::Command, 12}), 1240);
    EXPECT_EQ(ControlId({ControlKind::Option, 1, 2}), 6022);
    EXPECT_EQ(ControlId({ControlKind::Image, 1}), 8020);
    EXPECT_EQ(Find(form, ControlKind::Command, 2), form.second.Handle());
}

// Failures of commands

TEST_F(FormTest, ReportsTheFailureOfACommandWithNumberAndText) {
    Command(form, [] { throw RunTimeError(ErrorNumber::FileNotFound); });
    ASSERT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(fake.messages.shown[0].text, L"実行時エラー '53':\n\nファイルが見つかりません。");
    EXPECT_EQ(fake.messages.shown[0].icon, MessageIcon::Stop);
    EXPECT_EQ(timesEnded, 0);
    EXPECT_TRUE(form.IsOpen());
}

TEST_F(FormTest, ReportsExhaustedMemory) {
    Command(form, [] { throw std::bad_alloc(); });
    ASSERT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(fake.messages.shown[0].text.substr(0, 10), L"実行時エラー '7'");
}

TEST_F(FormTest, EndsTheProcessAfterTheReportOfAFatalFailure) {
    fake.messages.onShow = [&](const auto&) {
        EXPECT_EQ(timesEnded, 0);
    };
    Command(form, [] { throw RunTimeError(ErrorNumber::DiskFull).AsFatal(); });
    EXPECT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(timesEnded, 1);
}

TEST_F(FormTest, EnablesWhatAFailedCommandHadDisabledBeforeItReports) {
    auto& other = Open(102);
    fake.messages.onShow = [&](const auto&) {
        EXPECT_TRUE(IsEnabled(form.Handle()));
        EXPECT_TRUE(IsEnabled(other.Handle()));
    };
    Command(form, [&] {
        const auto held = form.HoldMeanwhile();
        const auto otherHeld = other.HoldMeanwhile();
        throw RunTimeError(ErrorNumber::DiskFull);
    });
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(FormTest, ReportsAFailureInATimerTickAndGoesOnTicking) {
    form.onTick = [&] {
        if (form.ticks == 1)
            throw RunTimeError(ErrorNumber::DiskNotReady);
    };
    form.StartTimer(10);
    EXPECT_TRUE(PumpUntil([&] { return form.ticks >= 3; }));
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(FormTest, DoesNotTickWhileATickIsBeingHandled) {
    int depth = 0;
    int deepest = 0;
    form.onTick = [&] {
        ++depth;
        deepest = std::max(deepest, depth);
        Sleep(30);
        Pump();
        --depth;
    };
    form.StartTimer(10);
    EXPECT_TRUE(PumpUntil([&] { return form.ticks >= 2; }));
    EXPECT_EQ(deepest, 1);
}

// Activation

TEST_F(FormTest, IsActivatedWhenItIsShownAndWhenTheFocusComesFromAnotherForm) {
    EXPECT_EQ(form.activations, 1);
    auto& other = Open(102);
    SetActiveWindow(form.Handle());
    Pump();
    EXPECT_EQ(form.activations, 2);
    EXPECT_EQ(other.activations, 1);
    form.Hide();
    Pump();
    form.Show();
    Pump();
    EXPECT_EQ(form.activations, 3);
}

TEST_F(FormTest, IsNotActivatedByAWindowThatIsNoForm) {
    const HWND box = CreateWindowExW(0, L"Static", L"box", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                     form.Handle(), nullptr, nullptr, nullptr);
    SetActiveWindow(box);
    Pump();
    ASSERT_EQ(GetActiveWindow(), box);
    DestroyWindow(box);
    SetActiveWindow(form.Handle());
    Pump();
    EXPECT_EQ(form.activations, 1);
}

TEST_F(FormTest, IsNotActivatedWhileAnOperationHoldsIt) {
    form.Hold();
    auto& other = Open(102);
    other.Close();
    Pump();
    SetActiveWindow(form.Handle());
    Pump();
    form.Release();
    Pump();
    EXPECT_EQ(form.activations, 1);
}

TEST_F(FormTest, GivesTheFocusBackToTheControlThatHadIt) {
    SetFocus(form.third.Handle());
    auto& other = Open(102);
    EXPECT_EQ(GetFocus(), other.first.Handle());
    SetActiveWindow(form.Handle());
    EXPECT_EQ(GetFocus(), form.third.Handle());
}

// Modal forms

TEST_F(FormTest, ModalFormDisablesTheOthersAndPausesTheBusyPointerUntilItIsClosed) {
    const BusyPointer busy;
    bool seen = false;
    ShowModalAnd([&] {
        seen = true;
        EXPECT_FALSE(IsEnabled(form.Handle()));
        EXPECT_FALSE(BusyPointer::IsShown());
    });
    EXPECT_TRUE(seen);
    EXPECT_TRUE(BusyPointer::IsShown());
    EXPECT_TRUE(IsEnabled(form.Handle()));
    EXPECT_EQ(GetActiveWindow(), form.Handle());
}

TEST_F(FormTest, ModalFormLeavesAHeldOwnerHeldButActive) {
    form.Hold();
    ShowModalAnd([] {});
    EXPECT_FALSE(IsEnabled(form.Handle()));
    EXPECT_EQ(GetActiveWindow(), form.Handle());
    EXPECT_EQ(form.activations, 1);
}

// Closing

TEST_F(FormTest, AsksWhoeverClosesItUnlessItIsDisabled) {
    form.Hold();
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsOpen());
    EXPECT_TRUE(form.asked.empty());
    form.Release();
    form.mayClose = false;
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsOpen());
    EXPECT_EQ(form.asked, std::vector{CloseReason::User});
    form.mayClose = true;
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(form.IsOpen());
    auto& other = Open(102);
    other.Close();
    EXPECT_EQ(other.asked, std::vector{CloseReason::Program});
    EXPECT_EQ(other.closings, 1);
}

TEST_F(FormTest, ClosesAllWithTheMostRecentlyOpenedFirst) {
    std::vector<int> order;
    for (PlainForm* opened : {&form, &Open(102), &Open(103)})
        opened->onClosing = [&order, opened] {
            order.push_back(opened->number);
        };
    application.CloseAll();
    EXPECT_EQ(order, (std::vector{103, 102, 101}));
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, AFormThatClosesAllIsClosedOnce) {
    Open(102);
    form.onClosing = [&] {
        application.CloseAll();
    };
    form.Close();
    EXPECT_EQ(form.closings, 1);
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, TheEndOfTheSessionClosesAllWithoutAsking) {
    auto& other = Open(102);
    form.mayClose = other.mayClose = false;
    EXPECT_NE(SendMessageW(form.Handle(), WM_QUERYENDSESSION, 0, 0), 0);
    SendMessageW(form.Handle(), WM_ENDSESSION, FALSE, 0); // it goes on
    EXPECT_TRUE(form.IsOpen());
    SendMessageW(form.Handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(form.asked.empty());
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, TheLoopEndsWithTheLastForm) {
    form.onTick = [&] {
        application.CloseAll();
    };
    form.StartTimer(10);
    application.Run();
    EXPECT_TRUE(application.OpenForms().empty());
}

TEST_F(FormTest, ACommandMayCloseItsOwnForm) {
    bool ranToItsEnd = false;
    Command(form, [&] {
        form.Close();
        ranToItsEnd = true;
    });
    EXPECT_TRUE(ranToItsEnd);
    EXPECT_FALSE(form.IsOpen());
}

} // namespace
} // namespace tamblin
