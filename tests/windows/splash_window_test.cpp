// The splash window: its elements, its steps, a second copy.
#include "app/splash_window.h"

#include "base/version.h"
#include "support/hosts.h"
#include "windows/canvas.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class SplashWindowTest : public WindowScene {
  protected:
    Form6& Open() { return application.Open<Form6>(application, startUp, handOver); }
    static bool ProgressShown(const Form& form) {
        return IsWindowVisible(Find(form, ControlKind::Label, 4)) != 0;
    }
    static void Tick(const Form& form) { SendMessageW(form.Handle(), WM_TIMER, 1, 0); }
    // Shows it until its end, which it is expected to come to.
    void RunToItsEnd() {
        Form6& form = Open();
        form.Show();
        for (int tick = 1; tick <= 12; ++tick)
            Tick(form);
        EXPECT_FALSE(form.IsOpen());
    }

    SettingsState state;
    SettingsFile file{fake.platform, state};
    EarlierCopyFake earlier;
    StartUp startUp{fake.platform, state, file, earlier};
    HandOverFake handOver;
};

TEST_F(SplashWindowTest, HasEveryElementWithItsTextAndReadsWell) {
    Form6& form = Open();
    form.Show();
    const auto label = [&](int number) {
        return TextOf(Find(form, ControlKind::Label, number));
    };
    EXPECT_EQ(label(2), L"Version " TAMBLIN_VERSION);
    EXPECT_EQ(label(3), L"support to install && uninstall ombrels");
    EXPECT_EQ(label(4), L"system files are checking...");
    EXPECT_NE(label(6), L"");
    EXPECT_NE(Find(form, ControlKind::Image, 1), nullptr);
    EXPECT_NE(Find(form, ControlKind::Image, 2), nullptr);
    EXPECT_EQ(FaultsOf(form), "");
}

TEST_F(SplashWindowTest, ItsPicturesGrowWithItsFont) {
    Form6& form = Open();
    form.Show();
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        const Picture emblem(L"EMBLEM", form.Measure().Down(64));
        const Picture letters(L"LETTERS", form.Measure().Down(36));
        const RECT left = ClientAreaOf(Find(form, ControlKind::Image, 1));
        const RECT right = ClientAreaOf(Find(form, ControlKind::Image, 2));
        EXPECT_EQ(left.bottom, emblem.Height()) << dpi;
        EXPECT_EQ(right.right, letters.Width()) << dpi;
    }
}

// Framed, from light to dark, with ripples in the lower right corner.
TEST_F(SplashWindowTest, StandsOnItsBackground) {
    Canvas canvas(400, 200, RGB(255, 255, 255));
    canvas.Fill(MakeSplashBackground({400, 200}, 2).get());
    const auto green = [&](int x, int y) {
        return static_cast<int>(GetGValue(canvas.At(x, y)));
    };
    EXPECT_EQ(canvas.At(0, 0), RGB(0x0B, 0x3A, 0x55));
    EXPECT_EQ(canvas.At(399, 199), RGB(0x0B, 0x3A, 0x55));
    EXPECT_EQ(canvas.At(100, 8), canvas.At(300, 191));
    EXPECT_GT(green(100, 8), green(100, 12) + 40);
    EXPECT_NEAR(green(12, 12), 0x6F, 4);
    EXPECT_LT(green(140, 100), green(12, 12) - 10);
    EXPECT_GT(green(380, 180), green(140, 100));
    EXPECT_NEAR(green(100, 120), green(120, 80), 2); // across the line between the corners
}

TEST_F(SplashWindowTest, ShowsTheProgressLineBetweenItsThirdAndEleventhTick) {
    Form6& form = Open();
    form.Show();
    for (int tick = 1; tick <= 11; ++tick) {
        Tick(form);
        EXPECT_EQ(ProgressShown(form), tick >= 3 && tick < 11) << tick;
    }
}

TEST_F(SplashWindowTest, OpensTheWizardWithoutSettingsElseTheMainWindowAndCloses) {
    RunToItsEnd();
    AddHost(fake.files, L"C:\\Vimora");
    fake.files.AddFile(L"C:\\Tamblin\\tamb.ini",
                       "VERSION=Ver." TAMBLIN_VERSION "\r\nVMRFOLDER=C:\\Vimora\r\n");
    StartUp again(fake.platform, state, file, earlier);
    Form6& form = application.Open<Form6>(application, again, handOver);
    form.Show();
    for (int tick = 1; tick <= 12; ++tick)
        Tick(form);
    EXPECT_EQ(handOver.shown, (std::vector{NextWindow::SetUpWizard, NextWindow::MainWindow}));
    EXPECT_FALSE(form.IsOpen());
}

// Twelve ticks, five a second; a slow machine may be late, never early.
TEST_F(SplashWindowTest, TicksByItselfUntilTheNextWindow) {
    Form6& form = Open();
    const ULONGLONG shown = GetTickCount64();
    form.Show();
    while (form.IsOpen() && GetTickCount64() - shown < 20'000) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        Pump();
    }
    const ULONGLONG elapsed = GetTickCount64() - shown;
    EXPECT_GE(elapsed, 2'200u);
    EXPECT_LT(elapsed, 8'000u);
    EXPECT_EQ(handOver.shown, std::vector{NextWindow::SetUpWizard});
}

TEST_F(SplashWindowTest, WithoutTheProgramFolderTheProgramEnds) {
    fake.files.SetReady(L"C:", false);
    Open().Show();
    EXPECT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(timesEnded, 1);
}

TEST_F(SplashWindowTest, GoesThoughTheNextWindowCannotBeMade) {
    handOver.failure = ErrorNumber::OutOfMemory;
    RunToItsEnd();
    EXPECT_EQ(fake.messages.shown.size(), 1u);
}

TEST_F(SplashWindowTest, ASecondCopyIsRefusedBeforeAnythingIsSeen) {
    earlier.running = true;
    Form6& form = Open();
    fake.messages.onShow = [&](const auto&) {
        EXPECT_FALSE(IsWindowVisible(form.Handle()));
    };
    form.Show();
    EXPECT_EQ(fake.messages.Texts(), std::vector<std::wstring>{L"すでに起動されています。"});
    EXPECT_EQ(handOver.shown, std::vector{NextWindow::EndProgram});
}

} // namespace
} // namespace tamblin
