// A push button that shows a picture, with its caption beside it when it has one to show. Its text
// is its accessible name in either case.
#pragma once

#include <memory>

#include "ui/button.h"
#include "ui/picture.h"

namespace tamblin {

class PictureButton : public Button {
  public:
    enum class Caption { Shown, Hidden };
    PictureButton(Form& owner, int number, const std::wstring& text, const wchar_t* namedPicture,
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

    const wchar_t* pictureName;
    bool captionShown;
    bool hovered = false;
    std::unique_ptr<Picture> picture;
};

} // namespace tamblin
