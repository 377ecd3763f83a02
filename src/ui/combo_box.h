// A drop-down list from which the user picks one entry.
#pragma once

#include <optional>

#include "ui/control.h"

namespace tamblin {

class ComboBox : public Control {
  public:
    ComboBox(Form& owner, int number);

    std::function<void(size_t entry)> onSelect;

    // Shows the entries; does nothing when they are shown already.
    void Show(const std::vector<std::wstring>& newEntries, std::optional<size_t> selected);

    Size NaturalSize(const TextMeasure& measure) const override;
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override;
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    bool TakeKey(const KeyPress& press) override;
    std::optional<CutOffText> CutOffAt(POINT position) const override;

  private:
    COMBOBOXINFO Parts() const;
    std::optional<size_t> Selected() const;
    bool IsDropped() const;

    std::vector<std::wstring> entries;
};

} // namespace tamblin
