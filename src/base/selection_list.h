// The contents of a list box: its entries in order and which of them are selected.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tamblin {

class SelectionList {
  public:
    void Clear();
    void Add(std::wstring entry);
    void Assign(std::vector<std::wstring> newEntries);
    void RemoveSelected();

    const std::vector<std::wstring>& Entries() const { return entries; }
    const std::wstring& operator[](size_t index) const { return entries[index]; }
    size_t Size() const { return entries.size(); }
    bool Empty() const { return entries.empty(); }

    // Both throw for an index that is not in the list: no tool sees a bit read behind the last.
    bool IsSelected(size_t index) const { return selected.at(index); }
    void Select(size_t index, bool on = true) { selected.at(index) = on; }
    void DeselectAll();

    // Selects exactly the entries of those names, in whatever letter case; no others.
    void SelectNamed(const std::vector<std::wstring>& names);
    // What a click of the right button does before a menu opens over a row: the selection moves
    // there, if it is one entry. True when it has moved.
    bool MoveSelectionOfOneTo(size_t row);

    std::vector<std::wstring> Selected() const;
    size_t SelectedCount() const;
    std::optional<size_t> FirstSelected() const;
    std::optional<size_t> LastSelected() const;

  private:
    std::vector<std::wstring> entries;
    std::vector<bool> selected;
};

} // namespace tamblin
