// The splash window: what is seen while the program starts.
#pragma once

#include "app/start_up.h"
#include "base/version.h"
#include "ui/form.h"
#include "ui/hand_over.h"
#include "ui/label.h"
#include "ui/picture_box.h"

namespace tamblin {

class Form6 : public Form {
  public:
    Form6(Application& owner, StartUp& steps, HandOver& windows, const EarlierCopy& earlier);
    ~Form6() override;

  private:
    void Load() override;
    void Tick() override;
    void Arranged() override;
    bool PaintBackground(HDC target) override;
    HBRUSH LabelBackground(HDC target, HWND label) override;
    std::unique_ptr<LayoutItem> MakeLayout();

    StartUp& startUp;
    HandOver& handOver;
    const EarlierCopy& earlierCopy;
    HBRUSH backgroundBrush = nullptr;

    PictureBox image1{*this, 1, L"Tamblin の絵", L"EMBLEM", 64};
    PictureBox image2{*this, 2, L"Tamblin", L"LETTERS", 36};
    Label label2{*this, 2, L"Version " TAMBLIN_VERSION};
    Label label3{*this, 3, L"support to install && uninstall ombrels", Label::Ampersands::Markers};
    Label label4{*this, 4, L"system files are checking..."};
    Label label6{*this, 6, L"a small helper for people who keep many ombrels"};
};

} // namespace tamblin
