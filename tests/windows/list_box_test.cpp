// List boxes and combo boxes show what a model holds, and give back what the user has selected.
#include "ui/list_box.h"

#include <chrono>

#include "support/processor_time.h"
#include "ui/combo_box.h"
#include "ui/text_box.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class ListForm : public Form {
  public:
    explicit ListForm(Application& owner) : Form(owner, 110, L"Lists", FormFrame::Resizable) {
        auto column = Column();
        column->Add(several, 1).Add(one, 1).Add(combo).Add(path);
        SetLayout(std::move(column));
    }
    ListBox several{*this, 1, ListBox::Selecting::Several, 10, 5};
    ListBox one{*this, 2, ListBox::Selecting::One, 10, 5};
    ComboBox combo{*this, 1};
    TextBox path{*this, 1, TextBox::Access::ReadOnly};
};

class ListBoxTest : public WindowScene {
  protected:
    void SetUp() override {
        form.Show();
        Pump();
    }
    LRESULT Ask(const Control& control, UINT message, WPARAM wParam = 0) {
        return SendMessageW(control.Handle(), message, wParam, 0);
    }
    RECT RowArea(const Control& list, WPARAM row) {
        RECT area{};
        SendMessageW(list.Handle(), LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
        return area;
    }
    static std::vector<std::wstring> Numbered(size_t count) {
        std::vector<std::wstring> names;
        for (size_t i = 0; i < count; ++i)
            names.push_back(L"character " + std::to_wstring(i));
        return names;
    }
    static SelectionList Listed(std::vector<std::wstring> names) {
        SelectionList list;
        list.Assign(std::move(names));
        return list;
    }
    ListForm form{application};
};

TEST_F(ListBoxTest, ShowsEntriesAndSelections) {
    SelectionList list = Listed({L"a", L"表ソ能", L"c"});
    list.Select(0);
    list.Select(1);
    form.several.Show(list);
    EXPECT_EQ(EntriesOf(form.several.Handle()), list.Entries());
    EXPECT_EQ(SelectedOf(form.several.Handle()), (std::vector<std::wstring>{L"a", L"表ソ能"}));
}

TEST_F(ListBoxTest, ReadsWhatTheUserHasSelectedAndDropsWhatTheModelDrops) {
    SelectionList list = Listed({L"a", L"b", L"c"});
    form.several.Show(list);
    SelectRows(form.several.Handle(), {0, 2});
    form.several.ReadSelections(list);
    EXPECT_EQ(list.Selected(), (std::vector<std::wstring>{L"a", L"c"}));
    list.Select(0, false);
    form.several.Show(list);
    EXPECT_EQ(SelectedOf(form.several.Handle()), std::vector<std::wstring>{L"c"});
}

TEST_F(ListBoxTest, ChangesSelectionsInRunsAndOneByOne) {
    SelectionList list = Listed(Numbered(12));
    for (const auto& rows :
         {std::vector<size_t>{0, 1, 2, 5, 7, 8}, {1, 2, 6, 8, 11}, {0, 11}, {}}) {
        list.DeselectAll();
        std::vector<std::wstring> names;
        for (const size_t row : rows) {
            list.Select(row);
            names.push_back(list[row]);
        }
        form.several.Show(list);
        EXPECT_EQ(SelectedOf(form.several.Handle()), names);
    }
}

TEST_F(ListBoxTest, StaysScrolledToItsTopEntryUnlessItsContentsAreOthers) {
    SelectionList list = Listed(Numbered(200));
    form.several.Show(list);
    SendMessageW(form.several.Handle(), LB_SETTOPINDEX, 120, 0);
    list.Select(3);
    form.several.Show(list);
    EXPECT_EQ(Ask(form.several, LB_GETTOPINDEX), 120);
    auto names = Numbered(200);
    names.erase(names.begin(), names.begin() + 5);
    form.several.Show(Listed(names));
    EXPECT_EQ(Ask(form.several, LB_GETTOPINDEX), 115);
    form.several.Show(Listed({L"x", L"y", L"z"}));
    EXPECT_EQ(Ask(form.several, LB_GETTOPINDEX), 0);
}

TEST_F(ListBoxTest, CanBeScrolledTwoBlanksPastItsWidestEntry) {
    const std::wstring wide(30, L'W');
    for (const std::wstring& widest : {wide, std::wstring(300, L'表')}) {
        form.several.Show(Listed({std::wstring(40, L'i'), widest, L"a"}));
        EXPECT_EQ(Ask(form.several, LB_GETHORIZONTALEXTENT), form.Measure().Width(widest + L"  "));
    }
    form.several.Show(Listed({L"a"}));
    EXPECT_LT(Ask(form.several, LB_GETHORIZONTALEXTENT), 100);
}

TEST_F(ListBoxTest, ShowsTenThousandEntriesAtOnce) {
    SelectionList list = Listed(Numbered(10000));
    const double start = ProcessorMilliseconds();
    form.several.Show(list);
    for (size_t i = 0; i < list.Size(); ++i)
        list.Select(i);
    form.several.Show(list);
    list.DeselectAll();
    form.several.ReadSelections(list);
    EXPECT_EQ(list.SelectedCount(), 10000u);
    EXPECT_LT(ProcessorMilliseconds() - start, 3000);
    EXPECT_GT(ProcessorMilliseconds(), 0);
}

TEST_F(ListBoxTest, SelectsOneRowOfATreeAndShowsIt) {
    form.one.Show(Numbered(200), 150);
    EXPECT_EQ(Ask(form.one, LB_GETCURSEL), 150);
    const LRESULT top = Ask(form.one, LB_GETTOPINDEX);
    EXPECT_LE(top, 150);
    EXPECT_GT(top, 100);
    form.one.Show(Numbered(3), 7); // beyond the end
    EXPECT_EQ(Ask(form.one, LB_GETCURSEL), 0);
    form.one.Show({}, 0);
    EXPECT_EQ(Ask(form.one, LB_GETCOUNT), 0);
}

TEST_F(ListBoxTest, OpensARowByDoubleClickAndByReturn) {
    std::vector<size_t> opened;
    form.one.onOpen = [&](size_t row) {
        opened.push_back(row);
    };
    form.one.Show(Numbered(5), 0);
    DoubleClick(form.one.Handle(), 3);
    SetFocus(form.one.Handle());
    SendMessageW(form.one.Handle(), LB_SETCURSEL, 2, 0);
    PressKey(VK_RETURN);
    EXPECT_EQ(opened, (std::vector<size_t>{3, 2}));
}

TEST_F(ListBoxTest, OpensItsMenuByTheRightButtonAlone) {
    int menus = 0;
    form.several.onMenu = [&](POINT, std::optional<size_t>) {
        ++menus;
    };
    form.several.Show(Listed({L"a", L"b"}));
    const auto release = [&](UINT message, WPARAM stillDown) {
        SendMessageW(form.several.Handle(), message, stillDown, MAKELPARAM(3, 3));
        return std::exchange(menus, 0);
    };
    EXPECT_EQ(release(WM_RBUTTONUP, 0), 1);
    EXPECT_EQ(release(WM_RBUTTONUP, MK_SHIFT), 1);
    for (const WPARAM other : {MK_LBUTTON, MK_MBUTTON, MK_XBUTTON1, MK_XBUTTON2})
        EXPECT_EQ(release(WM_RBUTTONUP, other), 0) << other;
    EXPECT_EQ(release(WM_LBUTTONUP, 0), 0);
    EXPECT_EQ(release(WM_MBUTTONUP, 0), 0);
}

TEST_F(ListBoxTest, TellsTheRowUnderTheRightButton) {
    std::vector<std::optional<size_t>> rows;
    form.several.onMenu = [&](POINT, std::optional<size_t> row) {
        rows.push_back(row);
    };
    form.several.Show(Listed({L"a", L"b"}));
    const RECT second = RowArea(form.several, 1);
    for (const LONG y : {second.top + 2, second.bottom + 2})
        SendMessageW(form.several.Handle(), WM_RBUTTONUP, 0, MAKELPARAM(3, y));
    SendMessageW(form.several.Handle(), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(rows, (std::vector<std::optional<size_t>>{1, std::nullopt, std::nullopt}));
    EXPECT_EQ(GetFocus(), form.several.Handle());
}

TEST_F(ListBoxTest, ADoubleClickBesideTheRowsOpensNone) {
    int opened = 0;
    form.several.onOpen = [&](size_t) {
        ++opened;
    };
    form.several.Show(Listed({L"a", L"b"}));
    const RECT second = RowArea(form.several, 1);
    const auto doubleClick = [&](LONG y) {
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
            SendMessageW(form.several.Handle(), message, 0, MAKELPARAM(3, y));
        return std::exchange(opened, 0);
    };
    EXPECT_EQ(doubleClick(second.top + 2), 1);
    EXPECT_EQ(doubleClick(second.bottom + 2), 0);
}

TEST_F(ListBoxTest, ControlAndASelectsAllWhereSeveralCanBe) {
    int selections = 0;
    form.several.onSelect = form.one.onSelect = [&] {
        ++selections;
    };
    form.several.Show(Listed({L"a", L"b", L"c"}));
    form.one.Show({L"a", L"b"}, 1);
    SetFocus(form.several.Handle());
    PressKey('A');
    selections = 0;
    PressControlAnd('A');
    EXPECT_EQ(SelectedOf(form.several.Handle()).size(), 3u);
    EXPECT_EQ(selections, 1);
    SetFocus(form.one.Handle());
    PressControlAnd('A');
    EXPECT_EQ(Ask(form.one, LB_GETCURSEL), 1);
}

TEST_F(ListBoxTest, TheKeyboardStaysWithItsEntryAndFollowsASelectionThatTheModelMoves) {
    form.several.Show(Listed({L"a", L"b", L"c"}));
    SendMessageW(form.several.Handle(), LB_SETCARETINDEX, 1, 0);
    SelectionList list = Listed({L"a", L"aa", L"b", L"c"});
    form.several.Show(list);
    EXPECT_EQ(Ask(form.several, LB_GETCARETINDEX), 2);
    list.Select(0);
    form.several.Show(list);
    list.MoveSelectionOfOneTo(3);
    form.several.Show(list);
    EXPECT_EQ(Ask(form.several, LB_GETCARETINDEX), 3);
    EXPECT_EQ(Ask(form.several, LB_GETANCHORINDEX), 3);
}

TEST_F(ListBoxTest, TypingGoesToTheEntryOfThatName) {
    int selections = 0;
    form.several.onSelect = form.one.onSelect = [&] {
        ++selections;
    };
    form.several.Show(Listed({L"alpha", L"beta", L"bear"}));
    form.one.nameOf = [](const std::wstring& entry) {
        return entry.substr(4);
    };
    form.one.Show({L"  + alpha", L"  + beta", L"  + bear"}, 0);
    for (const ListBox* list : {&form.several, &form.one}) {
        SetFocus(list->Handle());
        for (const WPARAM letter : {'b', 'e', 'a'})
            SendMessageW(list->Handle(), WM_CHAR, letter, 1);
    }
    EXPECT_EQ(SelectedOf(form.several.Handle()), std::vector<std::wstring>{L"bear"});
    EXPECT_EQ(Ask(form.several, LB_GETCARETINDEX), 2);
    EXPECT_EQ(Ask(form.one, LB_GETCURSEL), 2);
    EXPECT_EQ(selections, 6);
}

// Tips

struct Tips {
    int count = 0;
    std::wstring text;
    RECT area{};
};

// What the form's tool tip offers.
Tips TipsOf(const Form& form) {
    struct Search {
        HWND owner;
        HWND found;
    } search{form.Handle(), nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM along) {
            auto* const wanted = reinterpret_cast<Search*>(along);
            wchar_t name[64]{};
            GetClassNameW(window, name, 64);
            if (std::wstring(name) == TOOLTIPS_CLASSW &&
                GetWindow(window, GW_OWNER) == wanted->owner)
                wanted->found = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    Tips tips;
    if (!search.found)
        return tips;
    tips.count = static_cast<int>(SendMessageW(search.found, TTM_GETTOOLCOUNT, 0, 0));
    wchar_t text[1000]{};
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.lpszText = text;
    if (tips.count > 0 &&
        SendMessageW(search.found, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&info))) {
        tips.text = text;
        tips.area = info.rect;
    }
    return tips;
}

TEST_F(ListBoxTest, OffersTheWholeOfAnEntryThatDoesNotFit) {
    const std::wstring longName(200, L'表');
    form.several.Show(Listed({L"a", longName}));
    const RECT second = RowArea(form.several, 1);
    const auto pointAt = [&](LONG y) {
        SendMessageW(form.several.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(3, y));
        return TipsOf(form);
    };
    EXPECT_EQ(pointAt(second.top - 2).count, 0);
    const Tips tips = pointAt(second.top + 2);
    EXPECT_EQ(tips.count, 1);
    EXPECT_EQ(tips.text, longName);
    EXPECT_EQ(tips.area.top, second.top);
    EXPECT_EQ(tips.area.bottom, second.bottom);
    EXPECT_EQ(pointAt(second.bottom + 2).count, 0);
}

TEST_F(ListBoxTest, ComboAndPathOfferTheWholeOfATextThatDoesNotFit) {
    const std::wstring longName = L"C:\\" + std::wstring(200, L'表');
    const auto pointAt = [&](const Control& control) {
        SendMessageW(control.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
        return TipsOf(form);
    };
    form.combo.Show({L"a", longName}, 0);
    EXPECT_EQ(pointAt(form.combo).count, 0);
    form.combo.Show({L"a", longName}, 1);
    EXPECT_EQ(pointAt(form.combo).text, longName);
    form.path.SetText(L"C:\\");
    EXPECT_EQ(pointAt(form.path).count, 0);
    form.path.SetText(longName);
    EXPECT_EQ(pointAt(form.path).text, longName);
}

TEST_F(ListBoxTest, TheWholeOfAnEntryGoesWhenOthersMayComeUnderThePointer) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 50; ++i)
        names.push_back(std::to_wstring(i) + std::wstring(200, L'表'));
    form.several.Show(Listed(names));
    SetFocus(form.several.Handle());
    const auto pointAt = [&](int x) {
        SendMessageW(form.several.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(x, 3));
        return TipsOf(form);
    };
    ASSERT_EQ(pointAt(3).text, names.front());
    SendMessageW(form.several.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_EQ(TipsOf(form).count, 0);
    EXPECT_EQ(pointAt(4).text, names.at(static_cast<size_t>(Ask(form.several, LB_GETTOPINDEX))));
    PressKey(VK_DOWN);
    EXPECT_EQ(TipsOf(form).count, 0);
}

TEST_F(ListBoxTest, ShowingDoesNotCountAsSelecting) {
    int selections = 0;
    form.several.onSelect = [&] {
        ++selections;
    };
    SelectionList list = Listed({L"a", L"b"});
    list.Select(1);
    form.several.Show(list);
    Pump();
    EXPECT_EQ(selections, 0);
    SelectRows(form.several.Handle(), {0});
    EXPECT_EQ(selections, 1);
}

TEST_F(ListBoxTest, ComboShowsEntriesAndSelectionAndReportsWhatTheUserPicks) {
    std::vector<size_t> picked;
    form.combo.onSelect = [&](size_t entry) {
        picked.push_back(entry);
    };
    form.combo.Show({L"C:\\Vimora", L"D:\\表"}, 1);
    EXPECT_EQ(Ask(form.combo, CB_GETCOUNT), 2);
    EXPECT_EQ(TextOf(form.combo.Handle()), L"D:\\表");
    form.combo.Show({L"C:\\Vimora", L"D:\\表"}, std::nullopt);
    EXPECT_EQ(TextOf(form.combo.Handle()), L"");
    EXPECT_TRUE(picked.empty());
    Choose(form.combo.Handle(), 1);
    EXPECT_EQ(picked, std::vector<size_t>{1});
}

TEST_F(ListBoxTest, OpenComboHasTheRowsOfAList) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(form.combo.Handle(), &parts));
    EXPECT_EQ(SendMessageW(parts.hwndList, LB_GETITEMHEIGHT, 0, 0),
              Ask(form.several, LB_GETITEMHEIGHT));
}

// What a control does with each message must cost next to nothing: asked of the control and of the
// system's own window of that class, whichever of several rounds was disturbed least.
TEST_F(ListBoxTest, AMessageCostsHardlyMoreThanTheSystemsOwn) {
    const HWND own = CreateWindowExW(0, WC_LISTBOXW, L"", WS_CHILD, 0, 0, 50, 50, form.Handle(),
                                     nullptr, nullptr, nullptr);
    const auto fastest = [](HWND list) {
        using Clock = std::chrono::steady_clock;
        auto least = Clock::duration::max();
        for (int round = 0; round < 20; ++round) {
            const auto start = Clock::now();
            for (int i = 0; i < 500; ++i)
                SendMessageW(list, LB_GETCOUNT, 0, 0);
            least = std::min(least, Clock::now() - start);
        }
        return std::chrono::duration<double>(least).count();
    };
    EXPECT_LT(fastest(form.several.Handle()), 5 * fastest(own));
}

TEST_F(ListBoxTest, ReturnAndEscapeCloseAnOpenComboFirst) {
    form.combo.Show({L"a", L"b"}, 0);
    SetFocus(form.combo.Handle());
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        SendMessageW(form.combo.Handle(), CB_SHOWDROPDOWN, TRUE, 0);
        ASSERT_NE(Ask(form.combo, CB_GETDROPPEDSTATE), 0);
        PressKey(key);
        EXPECT_EQ(Ask(form.combo, CB_GETDROPPEDSTATE), 0);
    }
}

} // namespace
} // namespace tamblin
