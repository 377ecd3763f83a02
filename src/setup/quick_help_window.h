// Short help, by category and topic. In remora mode the window keeps to the main window's right
// side.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "base/version.h"
#include "platform/platform.h"
#include "setup/quick_help_texts.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/link_label.h"
#include "ui/tick_button.h"

namespace tamblin {

inline constexpr wchar_t SupportPageAddress[] = L"https://tamblin.example/support/";

class Form9 : public Form {
  public:
    Form9(Application& owner, Platform& surroundings, HWND mainWindow);

  private:
    using Links = std::vector<std::unique_ptr<LinkLabel>>;
    // In the order of the links in Label3.
    enum class HelpCategory { Limitations, Buttons, Purposes, About };

    void Load() override;
    void Tick() override { Dock(); }
    void Arranged() override;
    void PointerOver(Control* control) override;
    void EscapePressed() override { Close(); }

    void ShowCategory(HelpCategory category);
    static void MarkChosen(const Links& links, const LinkLabel* chosen);
    void RemoraClicked();
    void Dock();
    Links MakeTopics(int number, std::span<const HelpTopic> topics, TextPane& pane);
    Links MakeCategories();
    std::unique_ptr<LayoutItem> MakeLayout();
    std::unique_ptr<LayoutItem> MakeTopicsPage(Links& topics, TextPane& pane);
    std::unique_ptr<LayoutItem> MakeAboutPage();

    Platform& platform;
    HWND followed;

    Label label1{*this, 1, L"「●」のついた文字をクリックすると簡単なヘルプが表示されます。"};
    Links label3; // categories
    Links label4; // purpose topics
    TextPane label6{*this, 6, 46, 9};
    Links label5; // button topics
    TextPane label7{*this, 7, 46, 9};
    Label label8First{*this, 8, L"１、一度に登録できるヴィモラの場所は１０ヶ所までです。"};
    Label label8Second{
        *this, 8,
        L"２、ウィンドウ上のボタンは使用可能状態になっている場合のみアクティブになります。", 1};
    Label label9Program{*this, 9,
                        L"Tamblin\r\n  Ver." TAMBLIN_VERSION L"\r\n\r\n1999/11/16 Released."};
    Label label9Origin{*this, 9, L"adapted for Vimora", 1};
    LinkLabel label9Link{*this, 9, 2, L"support Page", LinkLabel::Look::Underlined};
    CheckBox check1{*this, 1, L"小判鮫モード\r\nOFFにする"};
    Button command1{*this, 1, L"閉じる"};
};

} // namespace tamblin
