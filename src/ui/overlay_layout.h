// Several items in one place, of which one at a time is visible.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "ui/layout.h"

namespace tamblin {

class OverlayLayout : public LayoutItem {
  public:
    OverlayLayout& Add(std::unique_ptr<LayoutItem> item) {
        items.push_back(std::move(item));
        return *this;
    }

    Size Minimum(const TextMeasure& measure) const override {
        Size least;
        for (const auto& item : items) {
            const Size size = item->Minimum(measure);
            least.width = std::max(least.width, size.width);
            least.height = std::max(least.height, size.height);
        }
        return least;
    }
    int HeightFor(int width, const TextMeasure& measure) const override {
        int height = 0;
        for (const auto& item : items)
            height = std::max(height, item->HeightFor(width, measure));
        return height;
    }
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override {
        for (const auto& item : items)
            item->Arrange(place, measure, placement);
    }

  private:
    std::vector<std::unique_ptr<LayoutItem>> items;
};

} // namespace tamblin
