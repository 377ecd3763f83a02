// A form with lists, a combo box and a line of text.
#pragma once

#include "ui/combo_box.h"
#include "ui/list_box.h"
#include "ui/text_box.h"
#include "windows/window_scene.h"

namespace tamblin {

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
        form.several.onSelect = form.one.onSelect = [this] {
            ++selections;
        };
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
    int selections = 0; // that the lists have reported
};

} // namespace tamblin
