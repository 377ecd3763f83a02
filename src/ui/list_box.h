// A list of lines, of which the user selects one, or several the way Explorer does it.
#pragma once

#include <optional>

#include "base/selection_list.h"
#include "base/type_ahead.h"
#include "ui/control.h"

namespace tamblin {

class ListBox : public Control {
  public:
    enum class Selecting { One, Several };
    // `columns` and `rows` are the characters and lines that must be seen at the least.
    ListBox(Form& owner, int number, Selecting mode, int columns, int rows);

    std::function<void()> onSelect;
    std::function<void(size_t row)> onOpen; // double-click or Return
    // The right button alone, over a row or beside all of them, or the keyboard's menu key; the
    // position is the screen's.
    std::function<void(POINT position, std::optional<size_t> row)> onMenu;

    // What the user types goes by this part of an entry; by all of it where nothing is set.
    std::function<std::wstring(const std::wstring& entry)> nameOf;

    // Shows entries and selections. Where the same entries stand, the list stays scrolled as it is.
    void Show(const SelectionList& list);
    void Show(const std::vector<std::wstring>& rows, size_t selectedRow);

    // Takes the selections that the user has made over into the list shown last.
    void ReadSelections(SelectionList& list) const;
    // The row that is selected, where the user selects one.
    std::optional<size_t> SelectedRow() const;

    // The room in which so many characters and lines are seen, also beside both scroll bars.
    Size RoomFor(int columns, int rows) const;
    Size NaturalSize(const TextMeasure&) const override {
        return RoomFor(minimumColumns, minimumRows);
    }
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    bool TakeKey(const KeyPress& press) override;
    std::optional<CutOffText> CutOffAt(POINT position) const override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OpenMenu(WPARAM otherButtons, LPARAM position);
    POINT MenuKeyPosition() const;
    std::optional<size_t> RowAt(LPARAM position) const;
    void Typed(wchar_t letter);
    void SelectOnly(size_t row);
    size_t CurrentRow() const;
    void ShowEntries(const std::vector<std::wstring>& newEntries);
    std::wstring EntryAt(UINT indexMessage) const;
    std::optional<size_t> RowOf(const std::wstring& entry) const;
    void MoveCaretTo(size_t row);
    void SetHorizontalExtent(const TextMeasure& measure);
    void ShowSelections(const SelectionList& list);
    size_t SelectRun(size_t first, const std::vector<bool>& shown, const std::vector<bool>& wanted);
    std::vector<bool> Selections() const;
    void Open();

    bool several;
    int minimumColumns;
    int minimumRows;
    std::vector<std::wstring> entries;
    TypeAhead typeAhead;
};

} // namespace tamblin
