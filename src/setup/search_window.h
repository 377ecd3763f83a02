// Shows how far the search for host folders has come, and lets the user stop it.
#pragma once

#include "setup/host_search.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/label.h"

namespace tamblin {

class Form4 : public Form, private EventLoop {
  public:
    Form4(Application& owner, Platform& surroundings, SettingsState& settings);

    // Runs the search to its end while the window lives on. After Stay the window stays open until
    // the user leaves it, which calls `onLeave`.
    NextWindow Search();
    std::function<void()> onLeave;

  private:
    void Yield() override; // between two folders: paint, and let clicks in
    bool MayClose(CloseReason reason) override;
    void Closing() override;
    void EscapePressed() override { Leave(); }
    void Leave();
    void ShowProgress();
    std::unique_ptr<LayoutItem> MakeLayout();

    Platform& platform;
    HostSearch search;
    bool searching = false;
    ULONGLONG lastPainted = 0; // milliseconds
    WidthGroup captions;

    Label label1{*this, 1, L"Vimoraがインストールされているフォルダを検索しています..."};
    Label label9{*this, 9, L"進行状況"};
    Label label10{*this, 10, L"検索ドライブ"};
    Label label11{*this, 11, L""};
    Label label7{*this, 7, L"検索ファイル"};
    Label label8{*this, 8, L""};
    Label label2{*this, 2, L"検索フォルダ"};
    Label label3{*this, 3, L""};
    Label label4{*this, 4, L"検出"};
    Label label5{*this, 5, L""};
    Button command1{*this, 1, L"中止"};
    Label label6{*this, 6, L"検索を中止し、１つ前に戻る"};
};

} // namespace tamblin
