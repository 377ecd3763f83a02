// The search as its windows show it: what can end it, and what is left when it has ended.
#include "setup/search_window.h"

#include "setup/wizard_window.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class SearchWindowTest : public WindowScene {
  protected:
    void SetUp() override {
        for (int folder = 0; folder < 20; ++folder)
            fake.files.AddFile(L"C:\\" + std::to_wstring(folder) + L"\\file");
        wizard.Show();
        Pump();
    }
    void AtYield(size_t n, const std::function<void()>& action) {
        fake.events.onYield = [this, n, action] {
            if (fake.events.yields == n)
                action();
        };
    }
    void PressSearch() { Click(Find(wizard, ControlKind::Command, 2)); }
    Form* Progress() const { return FormOfClass(L"Tamblin.Form4"); }

    SettingsState state;
    HandOverFake handOver;
    Form2& wizard = application.Open<Form2>(application, fake.platform, state, handOver);
};

TEST_F(SearchWindowTest, TheEndOfTheSessionEndsItWithoutAWord) {
    AtYield(3, [&] { SendMessageW(wizard.Handle(), WM_ENDSESSION, TRUE, 0); });
    PressSearch();
    EXPECT_TRUE(application.OpenForms().empty());
    EXPECT_EQ(fake.events.yields, 3u);
    EXPECT_TRUE(fake.messages.shown.empty());
}

TEST_F(SearchWindowTest, TheHiddenWizardCannotBeClosedBehindIt) {
    AtYield(3, [&] {
        EXPECT_FALSE(IsWindowVisible(wizard.Handle()));
        SendMessageW(wizard.Handle(), WM_CLOSE, 0, 0);
        EXPECT_NE(Progress(), nullptr);
    });
    PressSearch();
    EXPECT_GT(fake.events.yields, 20u);
    EXPECT_TRUE(IsWindowVisible(wizard.Handle()));
    EXPECT_EQ(Progress(), nullptr);
    EXPECT_TRUE(handOver.shown.empty());
}

TEST_F(SearchWindowTest, ItsCloseBoxCancelsIt) {
    AtYield(3, [&] { SendMessageW(Progress()->Handle(), WM_CLOSE, 0, 0); });
    PressSearch();
    EXPECT_EQ(fake.messages.Texts(),
              std::vector<std::wstring>{L"Vimoraフォルダの検出を中止しました。"});
    EXPECT_TRUE(IsWindowVisible(wizard.Handle()));
    EXPECT_EQ(Progress(), nullptr);
}

// The last folders are counted after the last yield.
TEST_F(SearchWindowTest, ItsCountersAreUpToDateUnderTheBoxOfTheResult) {
    state.HostFolderCount = 1;
    state.HostFolders[1] = L"C:\\Vimora";
    std::wstring files;
    std::wstring folders;
    fake.messages.onShow = [&](const auto&) {
        files = TextOf(Find(*Progress(), ControlKind::Label, 8));
        folders = TextOf(Find(*Progress(), ControlKind::Label, 3));
    };
    PressSearch();
    ASSERT_EQ(fake.messages.shown.size(), 1u);
    EXPECT_EQ(files, L" 20");
    EXPECT_EQ(folders, L" 20");
}

// The failure leaves the windows as they are; the button leads on.
TEST_F(SearchWindowTest, AfterAFailureItsButtonLeadsBackToTheWizard) {
    fake.files.ForgetOperations();
    fake.files.FailOperation(2, ErrorNumber::DeviceIo);
    PressSearch();
    EXPECT_EQ(fake.messages.shown.size(), 1u);
    ASSERT_NE(Progress(), nullptr);
    EXPECT_FALSE(IsWindowVisible(wizard.Handle()));
    Click(Find(*Progress(), ControlKind::Command, 1));
    EXPECT_EQ(Progress(), nullptr);
    EXPECT_TRUE(IsWindowVisible(wizard.Handle()));
}

} // namespace
} // namespace tamblin
