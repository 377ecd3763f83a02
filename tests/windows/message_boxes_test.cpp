// The system's message boxes: what they show, and what each button answers.
#include "platform/win32/win32_message_boxes.h"

#include <gtest/gtest.h>

#include <set>

namespace tamblin {
namespace {

struct BoxSeen {
    std::wstring title;
    std::wstring text;
    std::set<int> buttons;
    bool hasIcon = false;
};

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// Looks at the next message box of this thread and presses one of its buttons.
class BoxPresser {
  public:
    explicit BoxPresser(int buttonToPress) : button(buttonToPress) {
        current = this;
        timer = SetTimer(nullptr, 0, 20, OnTimer);
    }
    ~BoxPresser() { Stop(); }
    BoxPresser(const BoxPresser&) = delete;
    BoxPresser& operator=(const BoxPresser&) = delete;

    BoxSeen seen;

  private:
    void Stop() {
        if (timer)
            KillTimer(nullptr, timer);
        timer = 0;
    }

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM) -> BOOL {
                wchar_t name[16];
                GetClassNameW(window, name, 16);
                return std::wstring(name) == L"#32770" ? current->Press(window) : TRUE;
            },
            0);
    }

    BOOL Press(HWND box) {
        Stop();
        seen.title = TextOf(box);
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            LookAt(child);
        SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return FALSE;
    }

    void LookAt(HWND child) {
        wchar_t name[16];
        GetClassNameW(child, name, 16);
        const bool isVisible = (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) != 0;
        if (_wcsicmp(name, L"Button") == 0 && isVisible)
            seen.buttons.insert(GetDlgCtrlID(child));
        else if ((GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            seen.hasIcon = SendMessageW(child, STM_GETICON, 0, 0) != 0;
        else if (!TextOf(child).empty())
            seen.text = TextOf(child);
    }

    static BoxPresser* current;
    int button;
    UINT_PTR timer;
};

BoxPresser* BoxPresser::current = nullptr;

TEST(Win32MessageBoxes, InformsWithTitleTextAndOneButton) {
    Win32MessageBoxes messages([] { return nullptr; });
    BoxPresser presser(IDOK);
    messages.Inform(L"終わりました。");
    EXPECT_EQ(presser.seen.title, L"Tamblin");
    EXPECT_EQ(presser.seen.text, L"終わりました。");
    EXPECT_EQ(presser.seen.buttons.size(), 1U);
    EXPECT_FALSE(presser.seen.hasIcon);
}

TEST(Win32MessageBoxes, ShowsAnIconWhenAskedTo) {
    Win32MessageBoxes messages([] { return nullptr; });
    for (const MessageIcon icon : {MessageIcon::Information, MessageIcon::Stop}) {
        BoxPresser presser(IDOK);
        messages.Inform(L"!", icon);
        EXPECT_TRUE(presser.seen.hasIcon);
    }
}

TEST(Win32MessageBoxes, QuestionsAnswerByTheButton) {
    Win32MessageBoxes messages([] { return nullptr; });
    struct Case {
        bool (Win32MessageBoxes::*ask)(const std::wstring&);
        int yes;
        int no;
    };
    for (const Case& question : {Case{&Win32MessageBoxes::AskOkCancel, IDOK, IDCANCEL},
                                 Case{&Win32MessageBoxes::AskYesNo, IDYES, IDNO},
                                 Case{&Win32MessageBoxes::AskRetryCancel, IDRETRY, IDCANCEL}}) {
        BoxPresser agrees(question.yes);
        EXPECT_TRUE((messages.*question.ask)(L"?"));
        EXPECT_EQ(agrees.seen.buttons, (std::set<int>{question.yes, question.no}));
        BoxPresser refuses(question.no);
        EXPECT_FALSE((messages.*question.ask)(L"?"));
    }
}

TEST(Win32MessageBoxes, BoxBelongsToTheOwnerOfTheMoment) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                       nullptr, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    int asked = 0;
    Win32MessageBoxes messages([&] {
        ++asked;
        return owner;
    });
    BoxPresser presser(IDOK);
    messages.Inform(L"!");
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

} // namespace
} // namespace tamblin
