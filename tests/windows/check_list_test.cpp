// The list whose lines the user ticks.
#include "ui/check_list.h"

#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class CheckForm : public Form {
  public:
    explicit CheckForm(Application& owner) : Form(owner, 111, L"Ticks", FormFrame::Resizable) {
        auto column = Column();
        column->Add(list, 1);
        SetLayout(std::move(column));
    }
    CheckList list{*this, 1, 10, 5};
};

class CheckListTest : public WindowScene {
  protected:
    void SetUp() override {
        form.Show();
        form.list.Show({std::wstring(200, L'n'), L"second"}, {false, false});
        form.list.onTick = [this](size_t row, bool ticked) {
            ticks.emplace_back(row, ticked);
        };
        Pump();
    }
    void ClickAt(int x) {
        SendMessageW(form.list.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 3));
        SendMessageW(form.list.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(x, 3));
    }
    LRESULT Extent() const {
        return SendMessageW(form.list.Handle(), LB_GETHORIZONTALEXTENT, 0, 0);
    }

    CheckForm form{application};
    std::vector<std::pair<size_t, bool>> ticks;
};

TEST_F(CheckListTest, AClickOnTheBoxTicks) {
    ClickAt(6);
    EXPECT_EQ(ticks, (std::vector<std::pair<size_t, bool>>{{0, true}}));
}

TEST_F(CheckListTest, AClickOnTheTextTicksNothingAlsoWhereTheBoxWasBeforeScrolling) {
    ClickAt(60);
    SendMessageW(form.list.Handle(), WM_HSCROLL, SB_RIGHT, 0);
    ClickAt(6);
    EXPECT_TRUE(ticks.empty());
}

TEST_F(CheckListTest, ItsEndCanBeScrolledToAtEveryDensity) {
    const auto before = static_cast<double>(Extent());
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        EXPECT_NEAR(static_cast<double>(Extent()) / before, dpi / 96.0, 0.2);
    }
}

} // namespace
} // namespace tamblin
