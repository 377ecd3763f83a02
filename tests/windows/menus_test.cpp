// The two menus: their items, and when a form takes what is chosen.
#include "maintenance/menus.h"

#include "windows/window_scene.h"

namespace tamblin {
namespace {

class MenuForm : public Form {
  public:
    explicit MenuForm(Application& owner) : Form(owner, 111, L"Menus", FormFrame::Resizable) {}
    std::vector<int> chosen;

  private:
    void MenuChosen(int item) override { chosen.push_back(item); }
};

struct Item {
    int id = 0; // 0 for a separator
    std::wstring caption;
    bool enabled = true;

    bool operator==(const Item&) const = default;
};

class MenusTest : public WindowScene {
  protected:
    void SetUp() override {
        form.Show();
        Pump();
    }

    // What stands in the menu that `show` opens; it is closed again.
    template <class Show>
    std::vector<Item> ItemsOf(const Show& show) {
        std::vector<Item> items;
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

    static std::vector<Item> Read(HMENU menu) {
        std::vector<Item> items;
        for (int place = 0; place < GetMenuItemCount(menu); ++place) {
            wchar_t caption[100]{};
            GetMenuStringW(menu, static_cast<UINT>(place), caption, 100, MF_BYPOSITION);
            const UINT state = GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION);
            const auto id = static_cast<int>(GetMenuItemID(menu, place));
            items.push_back({(state & MF_SEPARATOR) ? 0 : id, caption,
                             (state & (MF_GRAYED | MF_DISABLED)) == 0});
        }
        return items;
    }

    MenuForm form{application};
};

TEST_F(MenusTest, OfACharacter) {
    for (const bool readme : {false, true}) {
        const auto items = ItemsOf([&] {
            Form10::ShowCharacterMenu(form, {50, 50}, {.readmeEnabled = readme});
        });
        ASSERT_EQ(items.size(), 4u);
        EXPECT_EQ(items[0], (Item{Form10::mnrun, L"オンブレルの起動"}));
        EXPECT_EQ(items[1], (Item{Form10::mnview, L"READMEの表示", readme}));
        EXPECT_EQ(items[2].id, 0);
        EXPECT_EQ(items[3], (Item{Form10::mncancel, L"キャンセル"}));
    }
}

TEST_F(MenusTest, OfAFolder) {
    const auto items = ItemsOf([&] { Form10::ShowFolderMenu(form, {50, 50}); });
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0], (Item{Form10::mnmv, L"ごみ箱へ移動"}));
    EXPECT_EQ(items[1].id, 0);
    EXPECT_EQ(items[2], (Item{Form10::mncan, L"キャンセル"}));
}

TEST_F(MenusTest, ReachNoFormThatIsDisabledOrHeld) {
    const auto choose = [&] {
        SendMessageW(form.Handle(), WM_COMMAND, Form10::mnrun, 0);
        return std::exchange(form.chosen, {});
    };
    EXPECT_EQ(choose(), std::vector<int>{Form10::mnrun});
    EnableWindow(form.Handle(), FALSE);
    EXPECT_EQ(choose(), std::vector<int>{});
    EnableWindow(form.Handle(), TRUE);
    {
        const Form::Held held(form);
        EXPECT_EQ(choose(), std::vector<int>{});
    }
    EXPECT_EQ(choose(), std::vector<int>{Form10::mnrun});
}

} // namespace
} // namespace tamblin
