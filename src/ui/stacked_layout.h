// Layouts that stand in one place.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "ui/layout.h"

namespace tamblin {

class StackedLayout : public LayoutItem {
  public:
    StackedLayout& Add(std::unique_ptr<LayoutItem> item) {
        items.push_back(std::move(item));
        return *this;
    }

  protected:
    std::vector<std::unique_ptr<LayoutItem>> items;
};

// Of different controls, of which one layout's at a time are visible.
class OverlayLayout : public StackedLayout {
  public:
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
};

// Of the same controls: the first that is not wider than its place is used, else the last, which is
// the narrowest.
class FirstFittingLayout : public StackedLayout {
  public:
    // Of the one that is meant where there is room.
    Size WidestMinimum(const TextMeasure& measure) const { return items.front()->Minimum(measure); }

    Size Minimum(const TextMeasure& measure) const override {
        return items.back()->Minimum(measure);
    }
    int HeightFor(int width, const TextMeasure& measure) const override {
        return Fitting(width, measure).HeightFor(width, measure);
    }
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override {
        Fitting(place.width, measure).Arrange(place, measure, placement);
    }

  private:
    LayoutItem& Fitting(int width, const TextMeasure& measure) const {
        const auto fitting =
            std::find_if(items.begin(), std::prev(items.end()),
                         [&](const auto& item) { return item->Minimum(measure).width <= width; });
        return **fitting;
    }
};

} // namespace tamblin
