// Combo boxes, and the tips that offer the whole of a text that does not fit.
#include "windows/list_box_scene.h"

namespace tamblin {
namespace {

using ComboBoxTest = ListBoxTest;

TEST_F(ComboBoxTest, ComboShowsEntriesAndSelectionAndReportsWhatTheUserPicks) {
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

TEST_F(ComboBoxTest, OpenComboHasTheRowsOfAList) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(form.combo.Handle(), &parts));
    EXPECT_EQ(SendMessageW(parts.hwndList, LB_GETITEMHEIGHT, 0, 0),
              Ask(form.several, LB_GETITEMHEIGHT));
}

TEST_F(ComboBoxTest, ReturnAndEscapeCloseAnOpenComboFirst) {
    form.combo.Show({L"a", L"b"}, 0);
    SetFocus(form.combo.Handle());
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        SendMessageW(form.combo.Handle(), CB_SHOWDROPDOWN, TRUE, 0);
        ASSERT_NE(Ask(form.combo, CB_GETDROPPEDSTATE), 0);
        PressKey(key);
        EXPECT_EQ(Ask(form.combo, CB_GETDROPPEDSTATE), 0);
    }
}

struct Tips {
    LRESULT count = 0;
    std::wstring text;
    RECT area{};
};

class TipsTest : public ListBoxTest {
  protected:
    // What the form's tool tip offers.
    Tips Offered() const {
        HWND tip = nullptr;
        do
            tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
        while (tip && GetWindow(tip, GW_OWNER) != form.Handle());
        Tips tips;
        tips.count = SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0);
        wchar_t text[1000]{};
        TTTOOLINFOW info{};
        info.cbSize = sizeof info;
        info.lpszText = text;
        if (SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&info))) {
            tips.text = text;
            tips.area = info.rect;
        }
        return tips;
    }
    Tips PointAt(const Control& control, LONG x, LONG y) {
        SendMessageW(control.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        return Offered();
    }
};

TEST_F(TipsTest, OfferTheWholeOfAnEntryThatDoesNotFit) {
    const std::wstring longName(200, L'表');
    form.several.Show(Listed({L"a", longName}));
    const RECT second = RowArea(form.several, 1);
    EXPECT_EQ(PointAt(form.several, 3, second.top - 2).count, 0);
    const Tips tips = PointAt(form.several, 3, second.top + 2);
    EXPECT_EQ(tips.count, 1);
    EXPECT_EQ(tips.text, longName);
    EXPECT_EQ(tips.area.top, second.top);
    EXPECT_EQ(tips.area.bottom, second.bottom);
    EXPECT_EQ(PointAt(form.several, 3, second.bottom + 2).count, 0);
}

TEST_F(TipsTest, OfferTheWholeTextOfAComboAndOfAPath) {
    const std::wstring longName = L"C:\\" + std::wstring(200, L'表');
    form.combo.Show({L"a", longName}, 0);
    EXPECT_EQ(PointAt(form.combo, 3, 3).count, 0);
    form.combo.Show({L"a", longName}, 1);
    EXPECT_EQ(PointAt(form.combo, 3, 3).text, longName);
    form.path.SetText(L"C:\\");
    EXPECT_EQ(PointAt(form.path, 3, 3).count, 0);
    form.path.SetText(longName);
    EXPECT_EQ(PointAt(form.path, 3, 3).text, longName);
}

TEST_F(TipsTest, GoWhenOthersMayComeUnderThePointer) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 50; ++i)
        names.push_back(std::to_wstring(i) + std::wstring(200, L'表'));
    form.several.Show(Listed(names));
    SetFocus(form.several.Handle());
    ASSERT_EQ(PointAt(form.several, 3, 3).text, names.front());
    SendMessageW(form.several.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_EQ(Offered().count, 0);
    EXPECT_EQ(PointAt(form.several, 4, 3).text,
              names.at(static_cast<size_t>(Ask(form.several, LB_GETTOPINDEX))));
    PressKey(VK_DOWN);
    EXPECT_EQ(Offered().count, 0);
}

} // namespace
} // namespace tamblin
