// Places controls by nested rows and columns. Sizes are pixels; the caller gives lengths in the
// font's units (see TextMeasure), so that a layout fits every font and density.
//
// A box hands its children their minimum sizes and shares what is left among those with a weight,
// in proportion. When there is less than the minimum, those with a weight shrink first. An item
// that is made narrower may need more height: texts wrap.
#pragma once

#include <memory>
#include <vector>

#include "ui/text_measure.h"

namespace tamblin {

struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// Collects where controls go, so that all of them move at once.
class Placement {
  public:
    virtual ~Placement() = default;
    virtual void Put(HWND control, const Place& place) = 0;
};

class LayoutItem {
  public:
    virtual ~LayoutItem() = default;
    virtual Size Minimum(const TextMeasure& measure) const = 0;
    // The least height at a given width, which may be less than the minimum's.
    virtual int HeightFor(int, const TextMeasure& measure) const { return Minimum(measure).height; }
    virtual void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) = 0;
};

// Where an item stands across the direction of its box.
enum class Across { Fill, Start, Centre };

class BoxLayout : public LayoutItem {
  public:
    enum class Direction { Row, Column };
    explicit BoxLayout(Direction boxDirection) : direction(boxDirection) {}

    // Items that are not owned by the layout, as a rule controls.
    BoxLayout& Add(LayoutItem& item, int weight = 0, Across across = Across::Fill);
    BoxLayout& Add(std::unique_ptr<LayoutItem> item, int weight = 0, Across across = Across::Fill);
    // Room between items: font units, and a share of what is left.
    BoxLayout& Gap(int units, int weight = 0);
    // Room around all items, in font units.
    BoxLayout& Margin(int acrossUnits, int downUnits);

    Size Minimum(const TextMeasure& measure) const override;
    int HeightFor(int width, const TextMeasure& measure) const override;
    void Arrange(const Place& place, const TextMeasure& measure, Placement& placement) override;

  private:
    struct Child {
        LayoutItem* item; // null for a gap
        int gapUnits;
        int weight;
        Across across;
    };

    int Along(Size size) const { return direction == Direction::Row ? size.width : size.height; }
    int Crosswise(Size size) const {
        return direction == Direction::Row ? size.height : size.width;
    }
    Size MinimumOf(const Child& child, const TextMeasure& measure) const;
    int LengthOf(const Child& child, int width, const TextMeasure& measure) const;
    std::vector<int> ShareOut(Size room, const TextMeasure& measure) const;
    Place PlaceOf(const Child& child, const Place& area, int offset, int length,
                  const TextMeasure& measure) const;

    Direction direction;
    int marginAcross = 0;
    int marginDown = 0;
    std::vector<Child> children;
    std::vector<std::unique_ptr<LayoutItem>> owned;
};

std::unique_ptr<BoxLayout> Row();
std::unique_ptr<BoxLayout> Column();

} // namespace tamblin
