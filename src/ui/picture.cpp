#include "ui/picture.h"

#include <algorithm>
#include <cmath>

namespace tamblin {
namespace {

constexpr int CurvePieces = 16;
constexpr int CirclePieces = 48;
constexpr float Pi = 3.14159265f;

float SignedArea(const std::vector<Point>& polygon) {
    float area = 0;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const Point a = polygon[i];
        const Point b = polygon[(i + 1) % polygon.size()];
        area += a.x * b.y - b.x * a.y;
    }
    return area;
}

// The rectangle around a straight line, wound as circles are, so that overlaps add up.
std::vector<Point> Bar(Point a, Point b, float halfWidth) {
    const float length = std::hypot(b.x - a.x, b.y - a.y);
    const float dx = (b.x - a.x) / length * halfWidth;
    const float dy = (b.y - a.y) / length * halfWidth;
    std::vector<Point> bar{
        {a.x - dy, a.y + dx}, {b.x - dy, b.y + dx}, {b.x + dy, b.y - dx}, {a.x + dy, a.y - dx}};
    if (SignedArea(bar) < 0)
        std::reverse(bar.begin(), bar.end());
    return bar;
}

float Mix(float a, float b, float share) {
    return a + (b - a) * share;
}

std::uint8_t Mix(std::uint8_t a, std::uint8_t b, float share) {
    return static_cast<std::uint8_t>(
        std::lround(Mix(static_cast<float>(a), static_cast<float>(b), share)));
}

Colour Mix(Colour a, Colour b, float share) {
    return {Mix(a.red, b.red, share), Mix(a.green, b.green, share), Mix(a.blue, b.blue, share),
            Mix(a.opacity, b.opacity, share)};
}

} // namespace

Outline& Outline::MoveTo(Point to) {
    polygons.push_back({to});
    return *this;
}

Outline& Outline::LineTo(Point to) {
    polygons.back().push_back(to);
    return *this;
}

Outline& Outline::CurveTo(Point control1, Point control2, Point to) {
    const Point from = polygons.back().back();
    for (int piece = 1; piece <= CurvePieces; ++piece) {
        const float t = static_cast<float>(piece) / CurvePieces;
        const float s = 1 - t;
        const float a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
        LineTo({a * from.x + b * control1.x + c * control2.x + d * to.x,
                a * from.y + b * control1.y + c * control2.y + d * to.y});
    }
    return *this;
}

Outline Outline::Rectangle(Point corner, float width, float height) {
    Outline outline;
    outline.MoveTo(corner)
        .LineTo({corner.x + width, corner.y})
        .LineTo({corner.x + width, corner.y + height})
        .LineTo({corner.x, corner.y + height});
    return outline;
}

Outline Outline::RoundedRectangle(Point corner, float width, float height, float radius) {
    const float left = corner.x + radius, right = corner.x + width - radius;
    const float top = corner.y + radius, bottom = corner.y + height - radius;
    Outline outline = Arc({right, top}, radius, -90, 0);
    for (const auto& quarter :
         {Arc({right, bottom}, radius, 0, 90), Arc({left, bottom}, radius, 90, 180),
          Arc({left, top}, radius, 180, 270)})
        for (const Point p : quarter.polygons.front())
            outline.LineTo(p);
    return outline;
}

Outline Outline::Circle(Point centre, float radius) {
    return Arc(centre, radius, 0, 360);
}

Outline Outline::Arc(Point centre, float radius, float fromDegrees, float toDegrees) {
    Outline outline;
    const float sweep = toDegrees - fromDegrees;
    const int pieces = std::max(4, static_cast<int>(std::fabs(sweep) / 360 * CirclePieces));
    for (int piece = 0; piece <= pieces; ++piece) {
        const float share = static_cast<float>(piece) / static_cast<float>(pieces);
        const float angle = (fromDegrees + sweep * share) * Pi / 180;
        const Point p{centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
        piece == 0 ? outline.MoveTo(p) : outline.LineTo(p);
    }
    return outline;
}

Outline Outline::Stroked(float width) const {
    Outline stroke;
    for (const auto& polygon : polygons) {
        for (size_t i = 0; i < polygon.size(); ++i) {
            stroke.Add(Circle(polygon[i], width / 2));
            const bool more = i + 1 < polygon.size();
            if (more && (polygon[i].x != polygon[i + 1].x || polygon[i].y != polygon[i + 1].y))
                stroke.polygons.push_back(Bar(polygon[i], polygon[i + 1], width / 2));
        }
    }
    return stroke;
}

Outline& Outline::Add(const Outline& other) {
    polygons.insert(polygons.end(), other.polygons.begin(), other.polygons.end());
    return *this;
}

Picture::Picture(int widthInPixels, int heightInPixels)
    : width(std::max(1, widthInPixels)),
      height(std::max(1, heightInPixels)),
      pixels(static_cast<size_t>(width) * static_cast<size_t>(height)),
      change(static_cast<size_t>(width + 2) * static_cast<size_t>(height)) {}

void Picture::SetUnit(float pixelsPerUnit, Point originInPixels) {
    unit = pixelsPerUnit;
    origin = originInPixels;
}

void Picture::Fill(const Outline& outline, Colour colour) {
    FillWith(outline, [=](Point) { return colour; });
}

void Picture::Fill(const Outline& outline, Point from, Colour fromColour, Point to,
                   Colour toColour) {
    const Point start = Map(from);
    const Point end = Map(to);
    const float dx = end.x - start.x, dy = end.y - start.y;
    const float squared = dx * dx + dy * dy;
    FillWith(outline, [=](Point p) {
        const float share = ((p.x - start.x) * dx + (p.y - start.y) * dy) / squared;
        return Mix(fromColour, toColour, std::clamp(share, 0.0f, 1.0f));
    });
}

// Each edge leaves, in the rows it crosses, the amount by which it changes the covered area of the
// pixels to its right. The running sum along a row then is each pixel's coverage.
template <class ColourAt>
void Picture::FillWith(const Outline& outline, ColourAt colourAt) {
    std::fill(change.begin(), change.end(), 0.0f);
    for (const auto& polygon : outline.Polygons())
        for (size_t i = 0; i < polygon.size(); ++i)
            AddEdge(Map(polygon[i]), Map(polygon[(i + 1) % polygon.size()]));

    for (int y = 0; y < height; ++y) {
        const float* row = &change[static_cast<size_t>(y) * static_cast<size_t>(width + 2)];
        float sum = 0;
        for (int x = 0; x < width; ++x) {
            sum += row[x];
            const float coverage = std::min(1.0f, std::fabs(sum));
            if (coverage < 1.0f / 512)
                continue;
            const Point centre{static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f};
            Blend(pixels[static_cast<size_t>(y) * static_cast<size_t>(width) +
                         static_cast<size_t>(x)],
                  colourAt(centre), coverage);
        }
    }
}

void Picture::AddEdge(Point from, Point to) {
    if (from.y == to.y)
        return;
    const float direction = from.y < to.y ? 1.0f : -1.0f;
    if (direction < 0)
        std::swap(from, to);
    const float slope = (to.x - from.x) / (to.y - from.y);
    const int firstRow = std::max(0, static_cast<int>(std::floor(from.y)));
    const int lastRow = std::min(height, static_cast<int>(std::ceil(to.y)));
    for (int y = firstRow; y < lastRow; ++y) {
        const float top = std::max(from.y, static_cast<float>(y));
        const float bottom = std::min(to.y, static_cast<float>(y + 1));
        const float x0 = from.x + (top - from.y) * slope;
        const float x1 = from.x + (bottom - from.y) * slope;
        float* row = &change[static_cast<size_t>(y) * static_cast<size_t>(width + 2)];
        AddEdgeInRow(row, std::min(x0, x1), std::max(x0, x1), direction * (bottom - top));
    }
}

void Picture::AddEdgeInRow(float* row, float x0, float x1, float signedHeight) const {
    const auto limit = static_cast<float>(width);
    x0 = std::clamp(x0, 0.0f, limit);
    x1 = std::clamp(x1, 0.0f, limit);
    const int first = static_cast<int>(x0);
    const int last = static_cast<int>(x1);
    if (first == last) {
        const float coveredInFirst = 1 - ((x0 + x1) / 2 - static_cast<float>(first));
        row[first] += signedHeight * coveredInFirst;
        row[first + 1] += signedHeight * (1 - coveredInFirst);
        return;
    }
    // The part of the pixels up to each column's right side that lies to the right of the edge.
    const float perColumn = signedHeight / (x1 - x0);
    float before = 0;
    for (int x = first; x <= last; ++x) {
        const float inside =
            std::min(x1, static_cast<float>(x + 1)) - std::max(x0, static_cast<float>(x));
        const float middle =
            (std::min(x1, static_cast<float>(x + 1)) + std::max(x0, static_cast<float>(x))) / 2;
        const float covered = perColumn * inside * (static_cast<float>(x + 1) - middle);
        row[x] += covered + before;
        before = perColumn * inside - covered;
    }
    row[last + 1] += before;
}

void Picture::Tint(Colour colour) {
    for (std::uint32_t& pixel : pixels) {
        const float coverage = static_cast<float>(pixel >> 24) / 255;
        pixel = 0;
        Blend(pixel, colour, coverage);
    }
}

void Picture::Blend(std::uint32_t& pixel, Colour colour, float coverage) const {
    const float opacity = colour.opacity * coverage;
    const auto channel = [&](int shift, float value) {
        const float under = static_cast<float>((pixel >> shift) & 0xFF);
        const auto mixed = static_cast<std::uint32_t>(
            std::lround(std::min(255.0f, value * opacity + under * (1 - opacity))));
        return mixed << shift;
    };
    pixel = channel(24, 255) | channel(16, colour.red) | channel(8, colour.green) |
            channel(0, colour.blue);
}

} // namespace tamblin
