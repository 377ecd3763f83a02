// A picture that is drawn from outlines with smooth edges, at whatever size it is wanted. Portable,
// so that the program's icon can be made from the same drawing as its windows' artwork.
//
// An outline is filled where it is wound around, in either direction. Coordinates are the drawing's
// own units; the picture maps them onto its pixels.
#pragma once

#include <cstdint>
#include <vector>

namespace tamblin {

struct Point {
    float x = 0;
    float y = 0;
};

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    float opacity = 1;
};

// Closed polygons; curves are flattened as they are added.
class Outline {
  public:
    Outline& MoveTo(Point to);
    Outline& LineTo(Point to);
    Outline& CurveTo(Point control1, Point control2, Point to);

    static Outline Rectangle(Point corner, float width, float height);
    static Outline RoundedRectangle(Point corner, float width, float height, float radius);
    static Outline Circle(Point centre, float radius);
    // A line with round ends and corners through the points of this outline's polygons.
    Outline Stroked(float width) const;
    // Part of a circle as an open line; angles in degrees, clockwise from "three o'clock".
    static Outline Arc(Point centre, float radius, float fromDegrees, float toDegrees);

    Outline& Add(const Outline& other);

    const std::vector<std::vector<Point>>& Polygons() const { return polygons; }

  private:
    std::vector<std::vector<Point>> polygons;
};

class Picture {
  public:
    Picture(int widthInPixels, int heightInPixels);

    int Width() const { return width; }
    int Height() const { return height; }
    // Rows from the top; 0xAARRGGBB, the colours multiplied by the opacity.
    const std::vector<std::uint32_t>& Pixels() const { return pixels; }

    // The drawing's unit in pixels, and where its origin lies.
    void SetUnit(float pixelsPerUnit, Point originInPixels = {});

    void Fill(const Outline& outline, Colour colour);
    // From one colour at `from` to another at `to`, straight on beyond both.
    void Fill(const Outline& outline, Point from, Colour fromColour, Point to, Colour toColour);

    // Gives all that is drawn one colour.
    void Tint(Colour colour);

  private:
    template <class ColourAt>
    void FillWith(const Outline& outline, ColourAt colourAt);
    Point Map(Point p) const { return {p.x * unit + origin.x, p.y * unit + origin.y}; }
    void AddEdge(Point from, Point to);
    void AddEdgeInRow(float* row, float x0, float x1, float signedHeight) const;
    void Blend(std::uint32_t& pixel, Colour colour, float coverage) const;

    int width;
    int height;
    float unit = 1;
    Point origin;
    std::vector<std::uint32_t> pixels;
    // How much the coverage changes from each pixel to the next, one spare cell per row.
    std::vector<float> change;
};

} // namespace tamblin
