// What holds for every window of the program, for those that have no test of their own elsewhere.
#include "maintenance/folder_check_window.h"
#include "settings/folder_management_window.h"
#include "setup/choice_window.h"
#include "setup/manual_folder_window.h"
#include "setup/quick_help_window.h"
#include "setup/search_window.h"
#include "setup/wizard_window.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class EveryFormTest : public WindowScene {
  protected:
    void SetUp() override {
        fake.files.AddFile(L"C:\\Vimora\\ombrel.exe");
        fake.files.AddFile(L"C:\\Vimora\\ombrel.rc");
        fake.files.AddFile(L"C:\\Vimora\\Lonely.obl");
        fake.files.AddFolder(L"C:\\Vimora\\Orphan");
        state.HostFolders[1] = L"C:\\Vimora";
        state.HostFolders[2] = L"D:\\a folder with a rather long name\\Vimora";
        state.HostFolders[3] = L"D:\\Found";
        state.HostFolderCount = 2;
        state.WorkingFolderCount = 3;
        state.DefaultFolder = L"C:\\Vimora";
        state.BrowseStartFolder = L"C:\\Vimora\\";
    }

    template <class FormType, class... Arguments>
    std::string FaultsAfterShowing(Arguments&&... arguments) {
        auto& form = application.Open<FormType>(application, std::forward<Arguments>(arguments)...);
        form.Show();
        Pump();
        return FaultsOf(form);
    }

    SettingsState state;
    HandOverFake handOver;
};

TEST_F(EveryFormTest, SetUpWizard) {
    EXPECT_EQ(FaultsAfterShowing<Form2>(fake.platform, state, handOver), "");
}

TEST_F(EveryFormTest, ManualFolder) {
    EXPECT_EQ(FaultsAfterShowing<Form3>(fake.platform, state, handOver), "");
}

TEST_F(EveryFormTest, SearchProgress) {
    EXPECT_EQ(FaultsAfterShowing<Form4>(fake.platform, state), "");
}

TEST_F(EveryFormTest, FolderChoice) {
    EXPECT_EQ(FaultsAfterShowing<Form5>(state, handOver), "");
}

TEST_F(EveryFormTest, FolderChoiceOfTheDefault) {
    state.ChoiceStage = 2;
    EXPECT_EQ(FaultsAfterShowing<Form5>(state, handOver), "");
}

TEST_F(EveryFormTest, FolderManagement) {
    EXPECT_EQ(FaultsAfterShowing<Form8>(state, handOver), "");
}

TEST_F(EveryFormTest, QuickHelp) {
    EXPECT_EQ(FaultsAfterShowing<Form9>(fake.platform, nullptr), "");
}

TEST_F(EveryFormTest, FolderCheckResult) {
    MainModel model(fake.platform, state);
    model.combo.entries = {L"C:\\Vimora"};
    model.combo.selected = 0;
    FolderCheck check(fake.platform);
    check.RunCheck(model);
    EXPECT_EQ(FaultsAfterShowing<Form11>(check, nullptr), "");
}

} // namespace
} // namespace tamblin
