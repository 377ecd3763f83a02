// One of several layouts of the same controls: the first that is not wider than its place, else the
// last, which is the narrowest.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "ui/layout.h"

namespace tamblin {

class FirstFittingLayout : public LayoutItem {
  public:
    FirstFittingLayout& Add(std::unique_ptr<LayoutItem> layout) {
        layouts.push_back(std::move(layout));
        return *this;
    }
    // Of the one that is meant where there is room.
    Size WidestMinimum(const TextMeasure& measure) const {
        return layouts.front()->Minimum(measure);
    }

    Size Minimum(const TextMeasure& measure) const override {
        return layouts.back()->Minimum(measure);
    }
    int HeightFor(int width, const TextMeasure& measure) const override {
        return Fitting(width, measure).HeightFor(width, measure);
    }
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override {
        Fitting(place.width, measure).Arrange(place, measure, placement);
    }

  private:
    LayoutItem& Fitting(int width, const TextMeasure& measure) const {
        const auto fitting = std::find_if(
            layouts.begin(), std::prev(layouts.end()),
            [&](const auto& layout) { return layout->Minimum(measure).width <= width; });
        return **fitting;
    }

    std::vector<std::unique_ptr<LayoutItem>> layouts;
};

} // namespace tamblin
