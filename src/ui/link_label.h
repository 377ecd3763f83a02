// A text that the user clicks: it turns bold under the pointer and with the keyboard's focus. The
// one whose text is being read is marked as chosen.
#pragma once

#include "ui/control.h"
#include "ui/gdi_object.h"

namespace tamblin {

class LinkLabel : public Control {
  public:
    enum class Look { Plain, Underlined };
    LinkLabel(Form& owner, int number, int index, const std::wstring& caption,
              Look usualLook = Look::Plain);

    std::function<void()> onClick;

    void SetHighlighted(bool on);
    bool IsHighlighted() const { return highlighted; }
    void SetChosen(bool on);
    bool IsChosen() const { return chosen; }

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;
    bool TakeKey(const KeyPress& press) override;

  private:
    Look look;
    GdiObject<HFONT> usualFont;
    GdiObject<HFONT> boldFont;
    bool highlighted = false;
    bool chosen = false;
};

} // namespace tamblin
