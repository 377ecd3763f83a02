#include "ui/layout.h"

#include <algorithm>
#include <numeric>

namespace tamblin {

std::unique_ptr<BoxLayout> Row() {
    return std::make_unique<BoxLayout>(BoxLayout::Direction::Row);
}

std::unique_ptr<BoxLayout> Column() {
    return std::make_unique<BoxLayout>(BoxLayout::Direction::Column);
}

BoxLayout& BoxLayout::Add(LayoutItem& item, int weight, Across across) {
    children.push_back({&item, 0, weight, across});
    return *this;
}

BoxLayout& BoxLayout::Add(std::unique_ptr<LayoutItem> item, int weight, Across across) {
    owned.push_back(std::move(item));
    return Add(*owned.back(), weight, across);
}

BoxLayout& BoxLayout::Gap(int units, int weight) {
    children.push_back({nullptr, units, weight, Across::Fill});
    return *this;
}

BoxLayout& BoxLayout::Margin(int acrossUnits, int downUnits) {
    marginAcross = acrossUnits;
    marginDown = downUnits;
    return *this;
}

Size BoxLayout::MinimumOf(const Child& child, const TextMeasure& measure) const {
    if (child.item)
        return child.item->Minimum(measure);
    return direction == Direction::Row ? Size{measure.Across(child.gapUnits), 0}
                                       : Size{0, measure.Down(child.gapUnits)};
}

Size BoxLayout::Minimum(const TextMeasure& measure) const {
    int along = 0;
    int crosswise = 0;
    for (const Child& child : children) {
        const Size size = MinimumOf(child, measure);
        along += Along(size);
        crosswise = std::max(crosswise, Crosswise(size));
    }
    const Size inner =
        direction == Direction::Row ? Size{along, crosswise} : Size{crosswise, along};
    return {inner.width + 2 * measure.Across(marginAcross),
            inner.height + 2 * measure.Down(marginDown)};
}

// What a child needs along a box that is so wide.
int BoxLayout::LengthOf(const Child& child, int width, const TextMeasure& measure) const {
    if (direction == Direction::Row || !child.item)
        return Along(MinimumOf(child, measure));
    if (child.across == Across::Fill)
        return child.item->HeightFor(width, measure);
    return child.item->HeightFor(std::min(width, MinimumOf(child, measure).width), measure);
}

int BoxLayout::HeightFor(int width, const TextMeasure& measure) const {
    const int inner = width - 2 * measure.Across(marginAcross);
    int height = 0;
    if (direction == Direction::Column) {
        for (const Child& child : children)
            height += LengthOf(child, inner, measure);
    } else {
        const auto lengths = ShareOut({inner, 0}, measure);
        for (size_t i = 0; i < children.size(); ++i)
            if (children[i].item)
                height = std::max(height, children[i].item->HeightFor(lengths[i], measure));
    }
    return height + 2 * measure.Down(marginDown);
}

// The lengths of the children along the box, which together are the room's.
std::vector<int> BoxLayout::ShareOut(Size room, const TextMeasure& measure) const {
    std::vector<int> lengths;
    int weights = 0;
    for (const Child& child : children) {
        lengths.push_back(LengthOf(child, room.width, measure));
        weights += child.weight;
    }
    int spare = Along(room) - std::accumulate(lengths.begin(), lengths.end(), 0);
    for (size_t i = 0; i < children.size() && weights > 0; ++i) {
        if (children[i].weight == 0)
            continue;
        const int share = MulDiv(spare, children[i].weight, weights);
        lengths[i] = std::max(0, lengths[i] + share);
        spare -= share;
        weights -= children[i].weight;
    }
    return lengths;
}

Place BoxLayout::PlaceOf(const Child& child, const Place& area, int offset, int length,
                         const TextMeasure& measure) const {
    const bool row = direction == Direction::Row;
    const int room = row ? area.height : area.width;
    const int thickness = child.across == Across::Fill
                              ? room
                              : std::min(room, row ? child.item->HeightFor(length, measure)
                                                   : child.item->Minimum(measure).width);
    const int shift = child.across == Across::Centre ? (room - thickness) / 2 : 0;
    if (row)
        return {area.left + offset, area.top + shift, length, thickness};
    return {area.left + shift, area.top + offset, thickness, length};
}

void BoxLayout::Arrange(const Place& place, const TextMeasure& measure, Placement& placement) {
    const int across = measure.Across(marginAcross);
    const int down = measure.Down(marginDown);
    const Place area{place.left + across, place.top + down, place.width - 2 * across,
                     place.height - 2 * down};
    const auto lengths = ShareOut({area.width, area.height}, measure);
    int offset = 0;
    for (size_t i = 0; i < children.size(); ++i) {
        if (children[i].item)
            children[i].item->Arrange(PlaceOf(children[i], area, offset, lengths[i], measure),
                                      measure, placement);
        offset += lengths[i];
    }
}

} // namespace tamblin
