#include "app/artwork.h"

#include <cmath>

namespace tamblin::artwork {
namespace {

constexpr Colour Sea{0x15, 0x6F, 0x7E};
constexpr Colour DeepSea{0x0B, 0x3A, 0x55};
constexpr Colour Orange{0xF2, 0x8C, 0x3A};
constexpr Colour DarkOrange{0xD9, 0x6A, 0x1E};
constexpr Colour Cream{0xFF, 0xF4, 0xE0};
constexpr Colour Slate{0x3A, 0x4A, 0x58};
constexpr Colour Parcel{0xE3, 0xB1, 0x6B};
constexpr Colour ParcelShade{0xC4, 0x8C, 0x45};
constexpr Colour Green{0x2E, 0x9B, 0x5F};

Colour WithOpacity(Colour colour, float opacity) {
    colour.opacity = opacity;
    return colour;
}

// The parasol's panels hang from its top and end in shallow bows.
constexpr Point ParasolTop{32, 10};
constexpr float ParasolRim = 33;
constexpr float PanelWidth = 11;

Outline Panel(int panel) {
    const float left = 10 + PanelWidth * static_cast<float>(panel);
    const float right = left + PanelWidth;
    const auto leaning = [](float x, float share) {
        return 32 + (x - 32) * share;
    };
    Outline outline;
    outline.MoveTo(ParasolTop)
        .CurveTo({leaning(left, 0.62f), 10}, {left, 19}, {left, ParasolRim})
        .CurveTo({left + 3, ParasolRim - 5}, {right - 3, ParasolRim - 5}, {right, ParasolRim})
        .CurveTo({right, 19}, {leaning(right, 0.62f), 10}, ParasolTop);
    return outline;
}

Outline Line(Point from, Point to) {
    Outline line;
    line.MoveTo(from).LineTo(to);
    return line;
}

Outline Triangle(Point a, Point b, Point c) {
    Outline triangle;
    triangle.MoveTo(a).LineTo(b).LineTo(c);
    return triangle;
}

// An arrow to the right whose point is at `tip`, in one outline.
Outline ArrowRight(Point tip, float length, float thickness, float head) {
    Outline arrow;
    arrow.MoveTo({tip.x - length, tip.y - thickness / 2})
        .LineTo({tip.x - head, tip.y - thickness / 2})
        .LineTo({tip.x - head, tip.y - head})
        .LineTo(tip)
        .LineTo({tip.x - head, tip.y + head})
        .LineTo({tip.x - head, tip.y + thickness / 2})
        .LineTo({tip.x - length, tip.y + thickness / 2});
    return arrow;
}

Outline Gear(Point centre, float inner, float outer, int teeth) {
    Outline gear;
    const float step = 2 * 3.14159265f / static_cast<float>(teeth);
    const auto at = [&](float angle, float radius) {
        return Point{centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
    };
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const float angle = step * static_cast<float>(tooth);
        tooth == 0 ? gear.MoveTo(at(angle - step * 0.30f, inner))
                   : gear.LineTo(at(angle - step * 0.30f, inner));
        gear.LineTo(at(angle - step * 0.19f, outer))
            .LineTo(at(angle + step * 0.19f, outer))
            .LineTo(at(angle + step * 0.30f, inner));
    }
    return gear;
}

// A circle wound the other way: a hole in what it is added to.
Outline Hole(Point centre, float radius) {
    return Outline::Arc(centre, radius, 360, 0);
}

} // namespace

void DrawParasol(Picture& picture) {
    Outline shaft = Line({32, 7}, {32, 51});
    shaft.CurveTo({32, 58}, {22, 58}, {22, 51});
    picture.Fill(shaft.Stroked(3), Cream);
    for (int panel = 0; panel < 4; ++panel) {
        const bool light = panel % 2 == 1;
        picture.Fill(Panel(panel), {32, 10}, light ? Cream : Orange, {32, 36},
                     light ? Colour{0xF3, 0xDF, 0xBC} : DarkOrange);
    }
}

void DrawEmblem(Picture& picture) {
    picture.Fill(Outline::RoundedRectangle({2, 2}, 60, 60, 13), {10, 2}, {0x23, 0x90, 0x9A},
                 {54, 62}, DeepSea);
    DrawParasol(picture);
}

void DrawLetters(Picture& picture) {
    constexpr float weight = 3.8f;
    constexpr float base = 30, middle = 13, top = 5, bowlRadius = 8.5f, archRadius = 5.5f;
    Outline strokes;
    const auto stem = [&](float x, float from) {
        strokes.Add(Line({x, from}, {x, base}));
    };
    const auto bowl = [&](float centre) {
        strokes.Add(Outline::Circle({centre, base - bowlRadius}, bowlRadius));
    };
    const auto arch = [&](float left) { // with the stem on its right
        const float right = left + 2 * archRadius;
        strokes.Add(Outline::Arc({left + archRadius, middle + archRadius}, archRadius, 180, 360));
        stem(right, middle + archRadius);
    };
    strokes.Add(Line({2, top}, {22, top})); // T
    stem(12, top);
    bowl(30); // a
    stem(38.5f, middle);
    stem(47, middle); // m
    arch(47);
    arch(58);
    stem(78, top - 1); // b
    bowl(86.5f);
    stem(103, top - 1); // l
    stem(111, middle);  // i
    stem(119, middle);  // n
    arch(119);
    picture.Fill(strokes.Stroked(weight), Cream);
    picture.Fill(Outline::Circle({111, 5}, 2.8f), Orange);
}

void DrawSplashBackground(Picture& picture, float width, float height) {
    const Outline all = Outline::Rectangle({0, 0}, width, height);
    picture.Fill(all, {0, 0}, Sea, {width, height}, DeepSea);
    // Ripples from the lower right corner.
    for (int ring = 1; ring <= 5; ++ring) {
        const float radius = height * 0.24f * static_cast<float>(ring);
        picture.Fill(Outline::Circle({width * 1.02f, height * 1.05f}, radius),
                     WithOpacity(Cream, 0.045f));
    }
    // Frame lines: a thin one at the edge, one inside, and a short one under the title.
    const float inset = 4;
    Outline frame = Outline::Rectangle({inset, inset}, width - 2 * inset, height - 2 * inset);
    frame.LineTo({inset, inset});
    picture.Fill(frame.Stroked(0.7f), WithOpacity(Cream, 0.55f));
    Outline edge = Outline::Rectangle({0, 0}, width, height);
    edge.LineTo({0, 0});
    picture.Fill(edge.Stroked(1.6f), WithOpacity(DeepSea, 0.9f));
}

void DrawInstall(Picture& picture) {
    // An arrow into an open parcel.
    picture.Fill(Outline::RoundedRectangle({3, 12}, 18, 10, 1.2f), Parcel);
    picture.Fill(Outline::Rectangle({3, 18}, 18, 2.2f), ParcelShade);
    picture.Fill(Triangle({3, 12}, {0.8f, 8.5f}, {8, 12}), ParcelShade);
    picture.Fill(Triangle({21, 12}, {23.2f, 8.5f}, {16, 12}), ParcelShade);
    Outline arrow;
    arrow.MoveTo({10, 1.5f}).LineTo({14, 1.5f}).LineTo({14, 8}).LineTo({17.5f, 8});
    arrow.LineTo({12, 15}).LineTo({6.5f, 8}).LineTo({10, 8});
    picture.Fill(arrow, Green);
}

void DrawStaging(Picture& picture) {
    // A folder with a turning arrow.
    picture.Fill(Outline::RoundedRectangle({2, 4}, 9, 6, 1.2f), ParcelShade);
    picture.Fill(Outline::RoundedRectangle({2, 6.5f}, 20, 14, 1.2f), Parcel);
    picture.Fill(Outline::Arc({12, 13.5f}, 4, -30, 230).Stroked(1.8f), Slate);
    picture.Fill(Triangle({13, 8}, {13.4f, 13}, {18, 11}), Slate);
}

void DrawSettings(Picture& picture) {
    Outline gear = Gear({12, 12}, 8, 10.8f, 8);
    gear.Add(Hole({12, 12}, 3.6f));
    picture.Fill(gear, Slate);
}

void DrawLeave(Picture& picture) {
    // An open door and the way out.
    Outline door = Outline::RoundedRectangle({3, 2}, 11, 20, 1);
    picture.Fill(door, Slate);
    picture.Fill(Outline::Rectangle({5, 4}, 7, 16), Cream);
    Outline leaf;
    leaf.MoveTo({5, 4}).LineTo({10, 6}).LineTo({10, 22}).LineTo({5, 20});
    picture.Fill(leaf, {0x8A, 0x9B, 0xA8});
    picture.Fill(ArrowRight({22.5f, 12}, 10, 3, 4.5f), DarkOrange);
}

} // namespace tamblin::artwork
