// A push button that shows a drawing, with its caption beside it when it has one to show. Its text
// is its accessible name in either case.
#pragma once

#include <memory>

#include "ui/bitmap.h"
#include "ui/button.h"

namespace tamblin {

// Draws something that fills a square of 24 units into a picture that is mapped onto that square.
using Glyph = void (*)(Picture& picture);
inline constexpr float GlyphUnits = 24;

class PictureButton : public Button {
  public:
    enum class Caption { Shown, Hidden };
    PictureButton(Form& owner, int number, const std::wstring& text, Glyph drawing,
                  Caption caption);

    bool ShowsCaption() const { return captionShown; }

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;

  protected:
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void SetHovered(bool on);
    void DrawSurface(const DRAWITEMSTRUCT& drawing, bool enabled, bool pressed) const;
    void DrawContents(const DRAWITEMSTRUCT& drawing, bool enabled, bool pressed) const;

    Glyph glyph;
    bool captionShown;
    bool hovered = false;
    std::unique_ptr<Bitmap> bitmap;
};

} // namespace tamblin
