// Menus: their rows, and when a form takes what is chosen.
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class MenuForm : public Form {
  public:
    explicit MenuForm(Application& owner) : Form(owner, 111, L"Menus", FormFrame::Resizable) {}
    std::vector<MenuItem> chosen;
    using Form::ShowMenu;

  private:
    void MenuChosen(MenuItem item) override { chosen.push_back(item); }
};

class MenusTest : public WindowScene {
  protected:
    void SetUp() override {
        form.Show();
        Pump();
    }

    // What stands in the menu that `show` opens; it is closed again.
    template <class Show>
    Menu ItemsOf(const Show& show) {
        Menu items;
        Meanwhile([&] {
            constexpr UINT getMenuHandle = 0x01E1; // MN_GETHMENU, which not every header has
            const HWND window = FindWindowW(L"#32768", nullptr);
            if (!window || !IsWindowVisible(window))
                return false;
            items = Read(reinterpret_cast<HMENU>(SendMessageW(window, getMenuHandle, 0, 0)));
            EndMenu();
            return true;
        });
        show();
        return items;
    }

    static Menu Read(HMENU menu) {
        Menu items;
        for (int place = 0; place < GetMenuItemCount(menu); ++place) {
            wchar_t caption[100]{};
            GetMenuStringW(menu, static_cast<UINT>(place), caption, 100, MF_BYPOSITION);
            const UINT state = GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION);
            if (state & MF_SEPARATOR)
                items.push_back({});
            else
                items.push_back({static_cast<MenuItem>(GetMenuItemID(menu, place)), caption,
                                 (state & (MF_GRAYED | MF_DISABLED)) == 0});
        }
        return items;
    }

    MenuForm form{application};
};

TEST_F(MenusTest, HoldTheirRowsInOrder) {
    const Menu menu{{MenuItem::mnrun, L"一"}, {MenuItem::mnview, L"二", false}, {}};
    EXPECT_EQ(ItemsOf([&] { form.ShowMenu(menu, {50, 50}); }), menu);
}

TEST_F(MenusTest, OpenNotWhenTheyAreEmpty) {
    form.ShowMenu({}, {50, 50});
}

TEST_F(MenusTest, ReachNoFormThatIsDisabledOrHeld) {
    const auto choose = [&] {
        SendMessageW(form.Handle(), WM_COMMAND, static_cast<WPARAM>(MenuItem::mnrun), 0);
        return std::exchange(form.chosen, {});
    };
    EXPECT_EQ(choose(), std::vector{MenuItem::mnrun});
    EnableWindow(form.Handle(), FALSE);
    EXPECT_EQ(choose(), std::vector<MenuItem>{});
    EnableWindow(form.Handle(), TRUE);
    {
        const auto held = form.HoldMeanwhile();
        EXPECT_EQ(choose(), std::vector<MenuItem>{});
    }
    EXPECT_EQ(choose(), std::vector{MenuItem::mnrun});
}

} // namespace
} // namespace tamblin
