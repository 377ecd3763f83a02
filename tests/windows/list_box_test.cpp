// List boxes show what a model holds, and give back what the user has selected.
#include <chrono>

#include "support/processor_time.h"
#include "windows/list_box_scene.h"

namespace tamblin {
namespace {

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

TEST_F(ListBoxTest, ShowingDoesNotCountAsSelecting) {
    SelectionList list = Listed({L"a", L"b"});
    list.Select(1);
    form.several.Show(list);
    Pump();
    EXPECT_EQ(selections, 0);
    SelectRows(form.several.Handle(), {0});
    EXPECT_EQ(selections, 1);
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

} // namespace
} // namespace tamblin
