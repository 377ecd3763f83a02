// The result of the folder structure check, and what the user can do about it.
#pragma once

#include "maintenance/folder_check.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/label.h"
#include "ui/list_box.h"

namespace tamblin {

class Form11 : public Form {
  public:
    // Shows a check that has been run, which outlives the window.
    Form11(Application& owner, FolderCheck& folderCheck, HWND ownerWindow);

  private:
    void Load() override { ShowModel(); }
    void Activated() override;
    void MenuChosen(MenuItem item) override;
    void EscapePressed() override { Close(); }
    void Run(const std::function<void()>& event);
    void ShowModel();
    std::unique_ptr<LayoutItem> MakeLayout();

    FolderCheck& check;

    Label label1{*this, 1, L"インストールされているオンブレルのフォルダ構造チェックの結果です。"};
    Label label2{*this, 2, L"オンブレル定義ファイルだけが存在。"};
    ListBox list1{*this, 1, ListBox::Selecting::One, 30, 4};
    Label label5{*this, 5, L"Vimoraおよび、関連ツールに認識され、誤作動を生ずるおそれがあります。"};
    Button command1{*this, 1, L"削除する（推奨）"};
    Label label3{*this, 3, L"フォルダだけが存在。"};
    ListBox list2{*this, 2, ListBox::Selecting::Several, 30, 5};
    Label label6{*this, 6, L"直接、Vimoraおよび、関連ツールに影響を及ぼすものではありません。"};
    Label label7{*this, 7, L"リストから選択し、右クリックのメニューから、ごみ箱へ移動できます。"};
    Label label4{*this, 4,
                 L"（注）このチェックに引っかからなかったからといって、オンブレルの動作を保証する"
                 L"ものではありません。"};
    Button command3{*this, 3, L"閉じる"};
};

} // namespace tamblin
