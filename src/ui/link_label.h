// A text that the user clicks: it turns bold under the pointer and with the keyboard's focus.
#pragma once

#include "ui/control.h"

namespace tamblin {

class LinkLabel : public Control {
  public:
    enum class Look { Plain, Underlined };
    LinkLabel(Form& owner, int number, int index, const std::wstring& caption,
              Look usualLook = Look::Plain);
    ~LinkLabel() override;

    std::function<void()> onClick;

    void SetHighlighted(bool on);
    bool IsHighlighted() const { return highlighted; }

    Size NaturalSize(const TextMeasure& measure) const override;
    void SetFont(const TextMeasure& measure) override;
    void Notified(UINT code) override;
    void Draw(const DRAWITEMSTRUCT& drawing) override;
    bool TakeReturn() override;

  private:
    Look look;
    HFONT usualFont = nullptr;
    HFONT boldFont = nullptr;
    bool highlighted = false;
};

} // namespace tamblin
