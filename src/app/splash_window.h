// The splash window: what is seen while the program starts.
#pragma once

#include "app/start_up.h"
#include "base/version.h"
#include "ui/form.h"
#include "ui/gdi_object.h"
#include "ui/label.h"
#include "ui/picture_box.h"

namespace tamblin {

// A pattern for an area of that size in pixels, with lines as wide as the font's dialog unit asks
// for.
GdiObject<HBRUSH> MakeSplashBackground(SIZE size, int unit);

class Form6 : public Form {
  public:
    Form6(Application& owner, StartUp& steps, HandOver& windows);

  private:
    void Load() override;
    void Tick() override;
    void Arranged() override;
    bool PaintBackground(HDC target) override;
    HBRUSH LabelBackground(HDC target, HWND label) override;
    std::unique_ptr<LayoutItem> MakeLayout();

    StartUp& startUp;
    HandOver& handOver;
    GdiObject<HBRUSH> backgroundBrush;

    PictureBox image1{*this, 1, L"Tamblin の絵", L"EMBLEM", 64};
    PictureBox image2{*this, 2, L"Tamblin", L"LETTERS", 36};
    Label label2{*this, 2, L"Version " TAMBLIN_VERSION};
    Label label3{*this, 3, L"support to install && uninstall ombrels", 0,
                 Label::Ampersands::Markers};
    Label label4{*this, 4, L"system files are checking..."};
    Label label6{*this, 6, L"a small helper for people who keep many ombrels"};
};

} // namespace tamblin
