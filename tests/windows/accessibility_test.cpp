// What screen readers learn: ticks, and texts that change by themselves. Asked and heard as they do
// it.
#include "ui/accessibility.h"
#include "ui/check_list.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class SpeakingForm : public Form {
  public:
    explicit SpeakingForm(Application& owner)
        : Form(owner, 112, L"Speaking", FormFrame::Resizable) {
        auto column = Column();
        column->Add(list, 1).Add(silent).Add(announced);
        SetLayout(std::move(column));
        list.SetAccessibleName(L"folders");
        announced.AnnounceChanges();
    }
    CheckList list{*this, 1, 20, 4};
    TextPane silent{*this, 1, 20, 1};
    TextPane announced{*this, 2, 20, 1};
};

struct Event {
    DWORD event;
    HWND window;
    LONG child;
    bool operator==(const Event&) const = default;
};

class AccessibilityTest : public WindowScene {
  protected:
    void SetUp() override {
        form.list.Show({L"C:\\Vimora", L"D:\\表"}, {true, false});
        form.list.onTick = [this](size_t row, bool ticked) {
            ticks.emplace_back(row, ticked);
        };
        form.Show();
        Pump();
        heard.clear();
        hook = SetWinEventHook(EVENT_OBJECT_STATECHANGE, LiveRegionChanged, nullptr, Hear,
                               GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
        AccessibleObjectFromWindow(form.list.Handle(), static_cast<DWORD>(OBJID_CLIENT),
                                   IID_IAccessible, reinterpret_cast<void**>(&object));
        ASSERT_NE(object, nullptr);
    }
    void TearDown() override {
        UnhookWinEvent(hook);
        if (object)
            object->Release();
    }
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG child, DWORD,
                              DWORD) {
        heard.push_back({event, window, child});
    }
    static bool Heard(const Event& event) {
        return std::find(heard.begin(), heard.end(), event) != heard.end();
    }
    static VARIANT Child(LONG number) {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = number;
        return child;
    }
    LONG StateOf(LONG child) {
        VARIANT state{};
        EXPECT_EQ(object->get_accState(Child(child), &state), S_OK);
        return state.lVal;
    }
    LONG RoleOf(LONG child) {
        VARIANT role{};
        EXPECT_EQ(object->get_accRole(Child(child), &role), S_OK);
        return role.lVal;
    }
    std::wstring NameOf(LONG child) {
        BSTR text = nullptr;
        object->get_accName(Child(child), &text);
        const std::wstring name = text ? text : L"";
        SysFreeString(text);
        return name;
    }

    static inline std::vector<Event> heard;
    SpeakingForm form{application};
    std::vector<std::pair<size_t, bool>> ticks;
    HWINEVENTHOOK hook = nullptr;
    IAccessible* object = nullptr;
};

TEST_F(AccessibilityTest, EveryLineIsACheckBoxWithItsName) {
    LONG count = 0;
    EXPECT_EQ(object->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(RoleOf(CHILDID_SELF), ROLE_SYSTEM_LIST);
    EXPECT_EQ(NameOf(CHILDID_SELF), L"folders");
    EXPECT_EQ(RoleOf(2), ROLE_SYSTEM_CHECKBUTTON);
    EXPECT_EQ(NameOf(2), L"D:\\表");
    VARIANT state{};
    EXPECT_EQ(object->get_accState(Child(3), &state), E_INVALIDARG);
}

TEST_F(AccessibilityTest, TellsWhichLinesAreTicked) {
    EXPECT_TRUE(StateOf(1) & STATE_SYSTEM_CHECKED);
    EXPECT_FALSE(StateOf(2) & STATE_SYSTEM_CHECKED);
    SetFocus(form.list.Handle());
    SendMessageW(form.list.Handle(), LB_SETCURSEL, 1, 0);
    SendMessageW(form.list.Handle(), WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_TRUE(StateOf(2) & STATE_SYSTEM_CHECKED);
    EXPECT_TRUE(StateOf(2) & STATE_SYSTEM_FOCUSED);
    EXPECT_FALSE(StateOf(1) & STATE_SYSTEM_FOCUSED);
    EXPECT_TRUE(PumpUntil([&] {
        return Heard({EVENT_OBJECT_STATECHANGE, form.list.Handle(), 2});
    }));
}

TEST_F(AccessibilityTest, TicksForTheUserOfAScreenReader) {
    EXPECT_EQ(object->accDoDefaultAction(Child(1)), S_OK);
    EXPECT_EQ(ticks, (std::vector<std::pair<size_t, bool>>{{0, false}}));
    EXPECT_FALSE(StateOf(1) & STATE_SYSTEM_CHECKED);
    EnableWindow(form.Handle(), FALSE);
    object->accDoDefaultAction(Child(1));
    EXPECT_EQ(ticks.size(), 1u);
    EnableWindow(form.Handle(), TRUE);
}

TEST_F(AccessibilityTest, FindsTheLineUnderAPoint) {
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    ASSERT_EQ(object->accLocation(&left, &top, &width, &height, Child(2)), S_OK);
    VARIANT found{};
    EXPECT_EQ(object->accHitTest(left + 2, top + height / 2, &found), S_OK);
    EXPECT_EQ(found.lVal, 2);
}

TEST_F(AccessibilityTest, AnObjectThatOutlivesItsListAnswersNothing) {
    form.Close();
    LONG count = 7;
    object->get_accChildCount(&count);
    EXPECT_EQ(count, 0);
    EXPECT_NE(object->accDoDefaultAction(Child(1)), S_OK);
}

TEST_F(AccessibilityTest, AnnouncesChangesOfSuchTextsOnly) {
    form.silent.SetText(L"a");
    form.announced.SetText(L"b");
    const Event wanted{LiveRegionChanged, form.announced.Handle(), CHILDID_SELF};
    EXPECT_TRUE(PumpUntil([&] { return Heard(wanted); }));
    EXPECT_FALSE(Heard({LiveRegionChanged, form.silent.Handle(), CHILDID_SELF}));
    heard.clear();
    form.announced.SetText(L"b"); // no change
    form.announced.SetText(L"c");
    EXPECT_TRUE(PumpUntil([&] { return Heard(wanted); }));
    EXPECT_EQ(std::count(heard.begin(), heard.end(), wanted), 1);
}

} // namespace
} // namespace tamblin
