// A list whose lines the user ticks, by a click on the box or with the space bar. From outside, a
// line's tick is its item data: 1 or 0.
#pragma once

#include "ui/accessible_check_list.h"
#include "ui/control.h"

namespace tamblin {

class CheckList : public Control {
  public:
    CheckList(Form& owner, int number, int columns, int rows);
    ~CheckList() override;

    std::function<void(size_t row, bool ticked)> onTick;

    void Show(const std::vector<std::wstring>& lines, const std::vector<bool>& ticks);

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;

    IAccessible* Accessible() override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    bool IsTicked(size_t row) const;
    std::optional<LRESULT> RowOfBoxAt(LPARAM position) const;
    void Toggle(LRESULT row);
    int BoxSize() const;
    void SetHorizontalExtent(const TextMeasure& measure);

    AccessibleCheckList* accessible = nullptr;
    int minimumColumns;
    int minimumRows;
    std::vector<std::wstring> shown;
};

} // namespace tamblin
