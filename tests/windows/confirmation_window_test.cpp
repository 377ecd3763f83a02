// The window that asks before an install.
#include "install/confirmation_window.h"

#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class ConfirmationWindowTest : public WindowScene {
  protected:
    void SetUp() override {
        lists.toInstall.Add(L"New");
        lists.cannotInstall.Add(L"（なし）");
        lists.alreadyInstalled.Add(L"（なし）");
    }
    // Shows the window modally and does `step` in it.
    void ShowAnd(const std::function<void(Form7&)>& step) {
        Form7 form(application, lists, answer, nullptr);
        Meanwhile([&] {
            if (!IsWindowVisible(form.Handle()))
                return false;
            step(form);
            return true;
        });
        form.ShowModal();
    }
    static HWND Note(const Form& form) { return Find(form, ControlKind::Label, 6); }

    InstallConfirmation lists;
    std::int16_t answer = 0;
};

TEST_F(ConfirmationWindowTest, HasEveryElementWithItsCaption) {
    ShowAnd([&](Form7& form) {
        const auto label = [&](int number) {
            return TextOf(Find(form, ControlKind::Label, number));
        };
        EXPECT_EQ(TextOf(form.Handle()), L"インストールするオンブレルの確認 - Tamblin - ");
        EXPECT_EQ(label(1), L"下記の要領でオンブレルをインストールします。");
        EXPECT_EQ(label(2), L"インストールするオンブレル");
        EXPECT_EQ(label(3), L"tambでインストールできないもの");
        EXPECT_EQ(label(4), L"インストール");
        EXPECT_EQ(label(6),
                  L"tambに対応した形式ではありませんでした。\r\n"
                  L"これらをインストールする場合は手動で行ってください。");
        EXPECT_EQ(label(7), L"インストール済みのもの");
        EXPECT_EQ(TextOf(Find(form, ControlKind::Command, 1)), L"Install Now");
        EXPECT_EQ(TextOf(Find(form, ControlKind::Command, 2)), L"Cancel");
        EXPECT_EQ(EntriesOf(Find(form, ControlKind::List, 1)), std::vector<std::wstring>{L"New"});
        form.Close();
    });
}

TEST_F(ConfirmationWindowTest, ExplainsWhatCannotBeInstalledOnlyWhenThereIsSomething) {
    ShowAnd([&](Form7& form) {
        EXPECT_FALSE(IsWindowVisible(Note(form)));
        form.Close();
    });
    lists.cannotInstall.Clear();
    lists.cannotInstall.Add(L"loose.obl");
    ShowAnd([&](Form7& form) {
        EXPECT_TRUE(IsWindowVisible(Note(form)));
        EXPECT_EQ(FaultsOf(form), "");
        form.Close();
    });
}

TEST_F(ConfirmationWindowTest, ItsButtonsAnswerAsReturnAndEscapeDo) {
    ShowAnd([&](Form7& form) { Click(Find(form, ControlKind::Command, 1)); });
    EXPECT_EQ(answer, AnswerInstall);
    ShowAnd([&](Form7& form) { Click(Find(form, ControlKind::Command, 2)); });
    EXPECT_EQ(answer, AnswerCancel);
    ShowAnd([&](Form7& form) {
        PostMessageW(Find(form, ControlKind::List, 1), WM_KEYDOWN, VK_RETURN, 1);
    });
    EXPECT_EQ(answer, AnswerInstall);
    ShowAnd([&](Form7&) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); });
    EXPECT_EQ(answer, AnswerCancel);
}

TEST_F(ConfirmationWindowTest, FocusAndReturnAreCancelsWhenThereIsNothingToInstall) {
    lists.installNowEnabled = false;
    ShowAnd([&](Form7& form) {
        EXPECT_FALSE(IsEnabled(Find(form, ControlKind::Command, 1)));
        EXPECT_EQ(GetFocus(), Find(form, ControlKind::Command, 2));
        PostMessageW(Find(form, ControlKind::List, 1), WM_KEYDOWN, VK_RETURN, 1);
        Meanwhile([window = form.Handle()] {
            EXPECT_FALSE(IsWindow(window)) << "Return has done nothing";
            PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
            return true;
        });
    });
    EXPECT_EQ(answer, AnswerCancel);
}

TEST_F(ConfirmationWindowTest, ShowsFiveRowsOfSixtyColumnsInEachListAtFirst) {
    for (SelectionList* list : {&lists.toInstall, &lists.cannotInstall, &lists.alreadyInstalled})
        for (int entry = 0; entry < 10; ++entry)
            list->Add(std::wstring(300, L'n'));
    ShowAnd([&](Form7& form) {
        for (const int number : {1, 2, 3}) {
            const HWND list = Find(form, ControlKind::List, number);
            RECT room = ClientAreaOf(list);
            EXPECT_GE(room.bottom / SendMessageW(list, LB_GETITEMHEIGHT, 0, 0), 5) << number;
            EXPECT_GE(room.right, form.Measure().Across(4 * 60)) << number;
        }
        form.Close();
    });
}

TEST_F(ConfirmationWindowTest, CancelsWhenItIsClosedWithNothingToInstall) {
    lists.installNowEnabled = false;
    ShowAnd([&](Form7& form) { SendMessageW(form.Handle(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(answer, AnswerCancel);
}

TEST_F(ConfirmationWindowTest, HasNoCloseBoxAndAnswersNothingWhenItIsClosedAllTheSame) {
    ShowAnd([&](Form7& form) {
        EXPECT_EQ(GetWindowLongW(form.Handle(), GWL_STYLE) & WS_SYSMENU, 0);
        SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(answer, 0);
}

} // namespace
} // namespace tamblin
