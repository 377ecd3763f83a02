// An install through the main window, from the selection to the character in the list.
#include "windows/main_window_scene.h"

namespace tamblin {
namespace {

class InstallWindowTest : public MainWindowTest {
  protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        fake.unlha.onUnpack = [this](const std::wstring&) {
            fake.files.AddFile(L"C:\\TAMTMP\\New\\new.txt");
            fake.files.AddFile(L"C:\\TAMTMP\\New.obl");
            return std::int16_t{0};
        };
        fake.messages.answer = true;
    }
    // Does `step` in the confirmation window when it opens.
    void WhenAsked(const std::function<void(Form&)>& step) {
        Meanwhile([this, step] {
            Form* const confirmation = FormOfClass(L"Tamblin.Form7");
            if (confirmation)
                step(*confirmation);
            return confirmation != nullptr;
        });
    }
    void InstallAnd(const std::function<void(Form&)>& step) {
        SelectRows(List(2), {RowOf(List(2), L"new.lzh")});
        WhenAsked(step);
        Click(Button(Command::Install));
    }
};

TEST_F(InstallWindowTest, EndsWithTheCharacterInTheList) {
    Open();
    InstallAnd([&](Form& confirmation) {
        EXPECT_FALSE(IsEnabled(form->Handle()));
        EXPECT_EQ(EntriesOf(Find(confirmation, ControlKind::List, 1)).size(), 1u);
        Click(Find(confirmation, ControlKind::Command, 1));
    });
    EXPECT_EQ(fake.messages.Texts(), std::vector<std::wstring>{L"インストールが完了しました。"});
    EXPECT_EQ(RowOf(List(3), L"New"), 2);
    EXPECT_TRUE(SelectedOf(List(2)).empty());
    EXPECT_TRUE(IsEnabled(form->Handle()));
    EXPECT_TRUE(IsEnabled(Button(Command::Install)));
    EXPECT_FALSE(IsEnabled(Button(Command::DeselectFiles)));
    EXPECT_EQ(GetActiveWindow(), form->Handle());
}

TEST_F(InstallWindowTest, ReturnAndADoubleClickOnAnArchiveInstallIt) {
    Open();
    int confirmations = 0;
    const auto open = [&](const std::wstring& name, const std::function<void()>& gesture) {
        SelectRows(List(2), {RowOf(List(2), name)});
        SendMessageW(List(2), LB_SETCARETINDEX, static_cast<WPARAM>(RowOf(List(2), name)), 0);
        WhenAsked([&](Form& confirmation) {
            ++confirmations;
            Click(Find(confirmation, ControlKind::Command, 2));
        });
        gesture();
        return std::exchange(confirmations, 0);
    };
    const auto pressReturn = [&] {
        SetFocus(List(2));
        PressKey(VK_RETURN);
    };
    const auto doubleClick = [&] {
        SendMessageW(form->Handle(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(List(2)), LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(List(2)));
    };
    EXPECT_EQ(open(L"new.lzh", pressReturn), 1);
    EXPECT_EQ(GetFocus(), List(2));
    EXPECT_EQ(open(L"new.lzh", doubleClick), 1);
    EXPECT_EQ(open(L"abc.obl", pressReturn), 0);
    EXPECT_EQ(open(L"ombrel.exe", doubleClick), 0);
}

TEST_F(InstallWindowTest, IsSeenDisabledBeforeThePackageIsUnpacked) {
    Open();
    Pump();
    SetFocus(Button(Command::Install));
    bool unpacked = false;
    fake.unlha.onUnpack = [&](const std::wstring&) {
        unpacked = true;
        EXPECT_FALSE(IsEnabled(form->Handle()));
        EXPECT_FALSE(IsEnabled(Button(Command::Install)));
        EXPECT_FALSE(IsEnabled(Find(*form, ControlKind::Label, 2)));
        EXPECT_NE(GetFocus(), Button(Command::Install));
        EXPECT_FALSE(GetUpdateRect(Button(Command::Install), nullptr, FALSE)); // painted so
        fake.files.AddFile(L"C:\\TAMTMP\\New.obl");
        fake.files.AddFolder(L"C:\\TAMTMP\\New");
        return std::int16_t{0};
    };
    SelectRows(List(2), {RowOf(List(2), L"new.lzh")});
    SetFocus(Button(Command::Install));
    WhenAsked([](Form& confirmation) { Click(Find(confirmation, ControlKind::Command, 1)); });
    Click(Button(Command::Install));
    EXPECT_TRUE(unpacked);
    EXPECT_EQ(GetFocus(), Button(Command::Install)); // where the user was
}

TEST_F(InstallWindowTest, TheEndOfTheSessionInstallsNothing) {
    Open();
    InstallAnd([&](Form&) {
        SendMessageW(form->Handle(), WM_QUERYENDSESSION, 0, 0);
        SendMessageW(form->Handle(), WM_ENDSESSION, TRUE, 0);
    });
    EXPECT_TRUE(application.OpenForms().empty());
    EXPECT_TRUE(fake.messages.shown.empty());
    EXPECT_FALSE(fake.files.Exists(L"C:\\Vimora\\New.obl"));
    EXPECT_FALSE(fake.files.Exists(L"C:\\TAMTMP"));
}

} // namespace
} // namespace tamblin
