// The system's message boxes: what they show, and what each button answers.
#include "platform/win32/win32_message_boxes.h"

#include <set>

#include "windows/window_scene.h"

namespace tamblin {
namespace {

struct BoxSeen {
    std::wstring title;
    std::wstring text;
    std::set<int> buttons;
    bool hasIcon = false;
};

class MessageBoxesTest : public WindowScene {
  protected:
    // What is seen of the message box that `show` opens, before one of its buttons is pressed.
    BoxSeen Pressing(int button, const std::function<void()>& show) {
        BoxSeen seen;
        Meanwhile([&] {
            const HWND box = FindWindowW(L"#32770", nullptr);
            if (!box || !IsWindowVisible(box))
                return false;
            seen = SeenOf(box);
            SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
            return true;
        });
        show();
        return seen;
    }

    Win32MessageBoxes messages{[] {
        return nullptr;
    }};

  private:
    static BoxSeen SeenOf(HWND box) {
        BoxSeen seen;
        seen.title = TextOf(box);
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const LONG style = GetWindowLongW(child, GWL_STYLE);
            if (_wcsicmp(ClassOf(child).c_str(), L"Button") == 0 && (style & WS_VISIBLE) != 0)
                seen.buttons.insert(GetDlgCtrlID(child));
            else if ((style & SS_TYPEMASK) == SS_ICON)
                seen.hasIcon = SendMessageW(child, STM_GETICON, 0, 0) != 0;
            else if (!TextOf(child).empty())
                seen.text = TextOf(child);
        }
        return seen;
    }
};

TEST_F(MessageBoxesTest, InformsWithTitleTextAndOneButton) {
    const BoxSeen seen = Pressing(IDOK, [&] { messages.Inform(L"終わりました。"); });
    EXPECT_EQ(seen.title, L"Tamblin");
    EXPECT_EQ(seen.text, L"終わりました。");
    EXPECT_EQ(seen.buttons.size(), 1U);
    EXPECT_FALSE(seen.hasIcon);
}

TEST_F(MessageBoxesTest, ShowsAnIconWhenAskedTo) {
    for (const MessageIcon icon : {MessageIcon::Information, MessageIcon::Stop})
        EXPECT_TRUE(Pressing(IDOK, [&] { messages.Inform(L"!", icon); }).hasIcon);
}

TEST_F(MessageBoxesTest, QuestionsAnswerByTheButton) {
    struct Case {
        bool (Win32MessageBoxes::*ask)(const std::wstring&);
        int yes;
        int no;
    };
    for (const Case& question : {Case{&Win32MessageBoxes::AskOkCancel, IDOK, IDCANCEL},
                                 Case{&Win32MessageBoxes::AskYesNo, IDYES, IDNO},
                                 Case{&Win32MessageBoxes::AskRetryCancel, IDRETRY, IDCANCEL}})
        for (const int button : {question.yes, question.no}) {
            bool answer = button == question.no;
            const BoxSeen seen = Pressing(button, [&] { answer = (messages.*question.ask)(L"?"); });
            EXPECT_EQ(answer, button == question.yes);
            EXPECT_EQ(seen.buttons, (std::set<int>{question.yes, question.no}));
        }
}

TEST_F(MessageBoxesTest, BoxBelongsToTheOwnerOfTheMoment) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                       nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    int asked = 0;
    Win32MessageBoxes owned([&] {
        ++asked;
        return owner;
    });
    Pressing(IDOK, [&] { owned.Inform(L"!"); });
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

} // namespace
} // namespace tamblin
