// The pictures of the resources, and how buttons draw them.
#include "ui/picture.h"

#include "ui/picture_button.h"
#include "windows/canvas.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Yellow = RGB(255, 255, 0);

// Calls `look` with the place and the colour of each pixel that lets nothing through.
int ForEachOpaquePixel(const Picture& picture,
                       const std::function<void(int, int, COLORREF)>& look) {
    const Canvas dark(picture.Width(), picture.Height(), 0);
    const Canvas light(picture.Width(), picture.Height(), White);
    picture.Draw(dark.Target(), 0, 0);
    picture.Draw(light.Target(), 0, 0);
    int count = 0;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            if (dark.At(x, y) == light.At(x, y)) {
                look(x, y, dark.At(x, y));
                ++count;
            }
    return count;
}

TEST(PictureTest, HasAHeightForEveryUsualLineOfText) {
    struct Drawing {
        const wchar_t* name;
        int eighths; // of a line
        double widthToHeight;
    };
    for (const auto& [name, eighths, widthToHeight] :
         {Drawing{L"EMBLEM", 64, 1}, Drawing{L"LETTERS", 36, 133.0 / 36},
          Drawing{L"INSTALL", 16, 1}, Drawing{L"STAGING", 16, 1}, Drawing{L"SETTINGS", 10, 1},
          Drawing{L"LEAVE", 10, 1}})
        for (int line = 9; line <= 40; ++line) {
            const int room = MulDiv(eighths, line, 8);
            const Picture picture(name, room);
            EXPECT_LE(picture.Height(), room);
            EXPECT_GE(picture.Height(), room * 3 / 4) << eighths << " " << line;
            EXPECT_NEAR(picture.Width(), picture.Height() * widthToHeight, 1);
        }
}

TEST(PictureTest, TakesTheLargestThatIsNotHigher) {
    EXPECT_EQ(Picture(L"SETTINGS", 25).Height(), 25);
    EXPECT_EQ(Picture(L"SETTINGS", 29).Height(), 25);
    EXPECT_EQ(Picture(L"SETTINGS", 30).Height(), 30);
}

TEST(PictureTest, IsEmptyWhereThereIsNone) {
    Picture tooSmall(L"SETTINGS", 10);
    EXPECT_EQ(tooSmall.Width(), 0);
    EXPECT_EQ(tooSmall.Height(), 0);
    tooSmall.Tint(Yellow);
    const Canvas canvas(4, 4, White);
    tooSmall.Draw(canvas.Target(), 0, 0);
    EXPECT_EQ(canvas.At(1, 1), White);
    EXPECT_EQ(Picture(L"NOTHING", 100).Height(), 0);
}

// At two pixels to a unit of the drawing, upright edges fall between pixels and stay sharp.
TEST(PictureTest, IsDrawnPixelForPixel) {
    const Picture picture(L"INSTALL", 48);
    const Canvas canvas(60, 60, White);
    picture.Draw(canvas.Target(), 5, 5);
    const auto at = [&](int x, int y) {
        return canvas.At(5 + x, 5 + y);
    };
    constexpr COLORREF arrow = RGB(0x2E, 0x9B, 0x5F);
    constexpr COLORREF parcel = RGB(0xE3, 0xB1, 0x6B);
    EXPECT_EQ(at(24, 2), White);
    EXPECT_EQ(at(24, 3), arrow);
    for (const int y : {3, 15}) {
        EXPECT_EQ(at(19, y), White);
        EXPECT_EQ(at(20, y), arrow);
        EXPECT_EQ(at(27, y), arrow);
        EXPECT_EQ(at(28, y), White);
    }
    EXPECT_EQ(at(5, 32), White);
    EXPECT_EQ(at(6, 32), parcel);
    EXPECT_EQ(at(41, 32), parcel);
    EXPECT_EQ(at(42, 32), White);
    EXPECT_EQ(at(24, 43), parcel);
    EXPECT_EQ(at(24, 44), White);
}

TEST(PictureTest, TintedHasOneColour) {
    Picture picture(L"INSTALL", 48);
    const auto notYellow = [&] {
        const Canvas canvas(48, 48, 0);
        picture.Draw(canvas.Target(), 0, 0);
        int count = 0;
        for (int at = 0; at < 48 * 48; ++at) {
            const COLORREF colour = canvas.At(at % 48, at / 48);
            count += GetBValue(colour) != 0 || GetRValue(colour) != GetGValue(colour);
        }
        return count;
    };
    EXPECT_GT(notYellow(), 500);
    picture.Tint(Yellow);
    EXPECT_EQ(notYellow(), 0);
    EXPECT_GT(
        ForEachOpaquePixel(picture, [](int, int, COLORREF colour) { EXPECT_EQ(colour, Yellow); }),
        500);
}

// In these Windows finds the program's icon without scaling it.
TEST(PictureTest, IconHasTheSidesThatWindowsAsksFor) {
    const auto resource = [](int id, LPWSTR type) {
        return FindResourceW(nullptr, MAKEINTRESOURCEW(id), type);
    };
    const auto bytes = [](HRSRC found) {
        return static_cast<BYTE*>(LockResource(LoadResource(nullptr, found)));
    };
    BYTE* sides = bytes(resource(1, RT_GROUP_ICON));
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 256}) {
        const HRSRC found =
            resource(LookupIconIdFromDirectoryEx(sides, TRUE, side, side, 0), RT_ICON);
        const HICON icon = CreateIconFromResourceEx(bytes(found), SizeofResource(nullptr, found),
                                                    TRUE, 0x30000, 0, 0, 0);
        ICONINFO parts{};
        BITMAP colours{};
        ASSERT_TRUE(GetIconInfo(icon, &parts)) << side;
        GetObjectW(parts.hbmColor, sizeof colours, &colours);
        EXPECT_EQ(colours.bmWidth, side);
        EXPECT_EQ(colours.bmHeight, side);
        DeleteObject(parts.hbmColor);
        DeleteObject(parts.hbmMask);
        DestroyIcon(icon);
    }
}

class PictureForm : public Form {
  public:
    explicit PictureForm(Application& owner) : Form(owner, 101, L"Pictures", FormFrame::Resizable) {
        auto row = Row();
        row->Add(button).Gap(20, 1);
        SetLayout(std::move(row));
    }
    PictureButton button{*this, 1, L"Install", L"INSTALL", PictureButton::Caption::Hidden};
};

class PictureButtonTest : public WindowScene {
  protected:
    PictureForm& form = application.Open<PictureForm>(application);
    void DrawButton(Canvas& canvas, UINT state) {
        DRAWITEMSTRUCT drawing{};
        drawing.hDC = canvas.Target();
        drawing.rcItem = canvas.Area();
        drawing.itemState = state;
        form.button.Draw(drawing);
    }
};

// Every pixel of the picture stands in the button as it is: not scaled and not cut off.
TEST_F(PictureButtonTest, ShowsItsPictureAsItIsAtEveryDensity) {
    form.Show();
    for (const unsigned dpi : Densities) {
        MoveToDensity(form, dpi);
        const Picture picture(L"INSTALL", 2 * form.Measure().LineHeight());
        const RECT area = ClientAreaOf(form.button.Handle());
        Canvas canvas(area.right, area.bottom, White);
        DrawButton(canvas, 0);
        const int left = (static_cast<int>(area.right) - picture.Width()) / 2;
        const int top = static_cast<int>(area.bottom) / 2 - picture.Height() / 2;
        ASSERT_GT(left, 0) << dpi;
        ASSERT_GT(top, 0) << dpi;
        int wrong = 0;
        const int opaque = ForEachOpaquePixel(picture, [&](int x, int y, COLORREF colour) {
            wrong += canvas.At(left + x, top + y) != colour;
        });
        EXPECT_GT(opaque, picture.Width() * picture.Height() / 4) << dpi;
        EXPECT_EQ(wrong, 0) << dpi;
    }
}

TEST_F(PictureButtonTest, DisabledIsWeaker) {
    const Picture picture(L"INSTALL", 2 * form.Measure().LineHeight());
    const auto darkness = [&](UINT state) {
        Canvas canvas(picture.Width(), picture.Height(), White);
        DrawButton(canvas, state);
        int sum = 0;
        ForEachOpaquePixel(
            picture, [&](int x, int y, COLORREF) { sum += 255 - GetBValue(canvas.At(x, y)); });
        return sum;
    };
    const int enabled = darkness(0);
    EXPECT_GT(darkness(ODS_DISABLED), enabled / 5);
    EXPECT_LT(darkness(ODS_DISABLED), enabled / 2);
}

} // namespace
} // namespace tamblin
