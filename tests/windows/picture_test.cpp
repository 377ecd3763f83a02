// Drawing with smooth edges.
#include "ui/picture.h"

#include <gtest/gtest.h>

namespace tamblin {
namespace {

constexpr Colour White{255, 255, 255};
constexpr Colour Red{255, 0, 0};

unsigned Opacity(const Picture& picture, int x, int y) {
    return picture.Pixels()[static_cast<size_t>(y * picture.Width() + x)] >> 24;
}

double Area(const Picture& picture) {
    double area = 0;
    for (const std::uint32_t pixel : picture.Pixels())
        area += (pixel >> 24) / 255.0;
    return area;
}

TEST(PictureTest, FillsWholePixelsWholly) {
    Picture picture(4, 4);
    picture.Fill(Outline::Rectangle({1, 1}, 2, 2), Red);
    EXPECT_EQ(picture.Pixels()[5], 0xFFFF0000u);
    EXPECT_EQ(Opacity(picture, 0, 1), 0u);
    EXPECT_EQ(Opacity(picture, 3, 1), 0u);
    EXPECT_EQ(Opacity(picture, 1, 3), 0u);
}

TEST(PictureTest, FillsAPixelAsFarAsItIsCovered) {
    Picture picture(3, 3);
    picture.Fill(Outline::Rectangle({0.5f, 0.75f}, 1, 1), White);
    EXPECT_NEAR(Opacity(picture, 0, 0), 255 * 0.125, 1);
    EXPECT_NEAR(Opacity(picture, 1, 0), 255 * 0.125, 1);
    EXPECT_NEAR(Opacity(picture, 0, 1), 255 * 0.375, 1);
    EXPECT_NEAR(Area(picture), 1, 0.02);
}

TEST(PictureTest, CoversTheAreaOfSlantedAndRoundOutlines) {
    Picture triangle(20, 20);
    Outline outline;
    outline.MoveTo({1, 1}).LineTo({18.5f, 7}).LineTo({4, 17});
    triangle.Fill(outline, White);
    EXPECT_NEAR(Area(triangle), 131, 0.5);
    Picture circle(20, 20);
    circle.Fill(Outline::Circle({10, 10}, 8), White);
    EXPECT_NEAR(Area(circle), 3.14159 * 64, 1.5);
}

TEST(PictureTest, WindingEitherWayFillsAlike) {
    Picture clockwise(8, 8);
    clockwise.Fill(Outline::Arc({4, 4}, 3, 0, 360), White);
    Picture counterclockwise(8, 8);
    counterclockwise.Fill(Outline::Arc({4, 4}, 3, 360, 0), White);
    EXPECT_EQ(clockwise.Pixels(), counterclockwise.Pixels());
}

TEST(PictureTest, ClipsWhatLiesOutside) {
    Picture picture(4, 4);
    picture.Fill(Outline::Rectangle({-10, -10}, 30, 30), White);
    EXPECT_NEAR(Area(picture), 16, 0.01);
    Picture beside(4, 4);
    beside.Fill(Outline::Rectangle({-10, -10}, 5, 30), White);
    beside.Fill(Outline::Rectangle({9, 0}, 5, 5), White);
    EXPECT_NEAR(Area(beside), 0, 0.01);
}

TEST(PictureTest, AStrokeHasItsWidthAndRoundEnds) {
    Picture picture(20, 10);
    Outline line;
    line.MoveTo({5, 5}).LineTo({15, 5});
    picture.Fill(line.Stroked(4), White);
    EXPECT_NEAR(Area(picture), 10 * 4 + 3.14159 * 4, 1);
}

TEST(PictureTest, GrowsWithItsUnit) {
    Picture picture(40, 40);
    picture.SetUnit(4, {2, 2});
    picture.Fill(Outline::Rectangle({1, 1}, 2, 2), White);
    EXPECT_NEAR(Area(picture), 64, 0.1);
    EXPECT_EQ(Opacity(picture, 6, 6), 255u);
    EXPECT_EQ(Opacity(picture, 5, 6), 0u);
}

TEST(PictureTest, TintsWhatIsDrawnAndNothingElse) {
    Picture picture(3, 1);
    picture.Fill(Outline::Rectangle({0, 0}, 1.5f, 1), White);
    picture.Tint(Red);
    EXPECT_EQ(picture.Pixels()[0], 0xFFFF0000u);
    EXPECT_NEAR(Opacity(picture, 1, 0), 128, 1);
    EXPECT_EQ(picture.Pixels()[1] & 0xFFFF, 0u);
    EXPECT_EQ(picture.Pixels()[2], 0u);
}

TEST(PictureTest, MixesColoursAlongALine) {
    Picture picture(11, 1);
    picture.Fill(Outline::Rectangle({0, 0}, 11, 1), {0.5f, 0}, {0, 0, 0}, {10.5f, 0}, Red);
    EXPECT_EQ(picture.Pixels()[0], 0xFF000000u);
    EXPECT_NEAR((picture.Pixels()[5] >> 16) & 0xFF, 128, 1);
    EXPECT_EQ(picture.Pixels()[10], 0xFFFF0000u);
}

} // namespace
} // namespace tamblin
