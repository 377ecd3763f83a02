#include "base/selection_list.h"

#include <algorithm>

#include "base/name_index.h"

namespace tamblin {

void SelectionList::Clear() {
    entries.clear();
    selected.clear();
}

void SelectionList::Add(std::wstring entry) {
    entries.push_back(std::move(entry));
    selected.push_back(false);
}

void SelectionList::Assign(std::vector<std::wstring> newEntries) {
    entries = std::move(newEntries);
    selected.assign(entries.size(), false);
}

void SelectionList::RemoveSelected() {
    size_t kept = 0;
    for (size_t index = 0; index < entries.size(); ++index)
        if (!selected[index] && kept++ != index)
            entries[kept - 1] = std::move(entries[index]);
    entries.resize(kept);
    selected.assign(kept, false);
}

void SelectionList::DeselectAll() {
    selected.assign(entries.size(), false);
}

void SelectionList::SelectNamed(const std::vector<std::wstring>& names) {
    const NameIndex wanted(names);
    for (size_t index = 0; index < entries.size(); ++index)
        selected[index] = wanted.Find(entries[index]) != nullptr;
}

bool SelectionList::MoveSelectionOfOneTo(size_t row) {
    if (row >= entries.size() || selected[row] || SelectedCount() != 1)
        return false;
    DeselectAll();
    Select(row);
    return true;
}

std::vector<std::wstring> SelectionList::Selected() const {
    std::vector<std::wstring> names;
    for (size_t index = 0; index < entries.size(); ++index)
        if (selected[index])
            names.push_back(entries[index]);
    return names;
}

size_t SelectionList::SelectedCount() const {
    return static_cast<size_t>(std::count(selected.begin(), selected.end(), true));
}

std::optional<size_t> SelectionList::FirstSelected() const {
    for (size_t index = 0; index < selected.size(); ++index)
        if (selected[index])
            return index;
    return std::nullopt;
}

std::optional<size_t> SelectionList::LastSelected() const {
    for (size_t index = selected.size(); index > 0; --index)
        if (selected[index - 1])
            return index - 1;
    return std::nullopt;
}

} // namespace tamblin
