#include "setup/quick_help_texts.h"

#include "base/version.h"

namespace tamblin {
namespace {

constexpr const wchar_t* CategoryCaptions[] = {
    L"●機能制限",
    L"●ボタン説明",
    L"●目的別ヘルプ",
    L"●Tamblinについて",
};

#define TAMBLIN_FOLDER_CHECK_REASON                                                                        \
    L"　オンブレル定義ファイルだけがある場合や、フォルダだけがある場合、" \
    L"オンブレルが正しく起動できない場合があるので、その対処ができます。"

constexpr HelpTopic Purposes[] = {
    {L"●オンブレルをインストールする",
     L"　「すべてのフォルダ」からオンブレルのパッケージを選択し、インストールボタンをクリックします"
     L"。"
     L"\r\n"
     L"　確認ウィンドウが出るので、「Install」ボタンをクリックするとインストールされます。"},
    {L"●Ombrel.exeを更新する",
     L"　「すべてのフォルダ」から新しいombrel.exeを選択し、「VMR」ボタンをクリックします。"},
    {L"●.oblファイルを更新する",
     L"　「すべてのフォルダ」から新しいオンブレル定義ファイルを選択し、「導入済オンブレル一覧」から"
     L"該当するオンブレルを選択します。\r\n"
     L"　「OBL」ボタンがアクティブになるので、クリックすると完了です。\r\n"
     L"\r\n"
     L"　該当オンブレルが、ネットワーク更新で新しい定義ファイルを提供している場合は、オンブレルを"
     L"選択するだけで、ボタンがアクティブになります。"},
    {L"●.rcファイルを書き換える",
     L"　ヴィモラを普通に起動する場合の起動オンブレルを設定します。\r\n"
     L"　「導入済オンブレル一覧」からオンブレルを選択し、「.rc」ボタンをクリックします。"},
    {L"●VMRフォルダをチェックする",
     L"　ヴィモラのフォルダをチェックします。\r\n"
     L"\r\n" TAMBLIN_FOLDER_CHECK_REASON},
    {L"●オンブレルを起動する",
     L"　「導入済オンブレル一覧」から選択したオンブレルを直接起動できます。\r\n"
     L"　呼び出したいオンブレルを選択し、右クリックのメニューから「オンブレルの起動」をクリックしま"
     L"す。"},
    {L"●READMEを表示する",
     L"　READMEを表示させたいオンブレルを選択し、右クリックのメニューから「READMEの表示」を"
     L"クリックします。\r\n"
     L"　そのオンブレルのREADMEを見つけられなかった場合は、メニューが選択できなくなっています。"},
};

constexpr HelpTopic Buttons[] = {
    {L"●インストールボタン",
     L"　オンブレルをインストールします。\r\n"
     L"\r\n"
     L"　「すべてのフォルダ」からパッケージを選択し、このボタンをクリックします。\r\n"
     L"　確認ウィンドウが表示されるので、「Install」ボタンをクリックするとインストールされます。"},
    {L"●Local Updateボタン", L"　"},
    {L"●VMRボタン",
     L"　ombrel.exeをアップデートします。\r\n"
     L"　「すべてのフォルダ」から新しいombrel.exeを選択し、このボタンをクリックします。"},
    {L"●OBLボタン",
     L"　オンブレル定義ファイルをアップデートします。\r\n"
     L"　「すべてのフォルダ」から新しいオンブレル定義ファイルを選択し、「導入済オンブレル一覧」から"
     L"該当するオンブレルを選択します。\r\n"
     L"　「OBL」ボタンがアクティブになるので、クリックすると完了です。\r\n"
     L"\r\n"
     L"　該当オンブレルが、ネットワーク更新で、新しい定義ファイルを提供している場合は、オンブレルを"
     L"選択するだけで、ボタンがアクティブになります。"},
    {L"●アンインストールボタン",
     L"　オンブレルをアンインストールします。\r\n"
     L"　「導入済オンブレル一覧」から、アンインストールするオンブレルを選択し、このボタンを"
     L"クリックします。"},
    {L"●.rcボタン",
     L"　ombrel.rcファイルを書き換えます。\r\n"
     L"　選択したオンブレルをヴィモラの次回起動オンブレルに設定します。"},
    {L"●Checkボタン",
     L"　ヴィモラフォルダのチェックをします。\r\n"
     L"\r\n" TAMBLIN_FOLDER_CHECK_REASON},
    {L"●設定ボタン",
     L"　ヴィモラに関する設定を行います。\r\n"
     L"　ヴィモラを複数インストールしている場合、１０ヶ所まで登録しておくことができます。\r\n"
     L"　Kavalet用定義ファイルにデータを書き込むかどうかも、ここで設定できます。"},
    {L"●Quick Helpボタン", L"　Tamblinに関する簡単なヘルプを表示します。"},
    {L"●選択解除ボタン", L"　それぞれのリストの選択を解除します。"},
    {L"●終了ボタン", L"　Tamblinを終了します。"},
};

#undef TAMBLIN_FOLDER_CHECK_REASON

constexpr const wchar_t* Limitations[] = {
    L"１、一度に登録できるヴィモラの場所は１０ヶ所までです。",
    L"２、ウィンドウ上のボタンは使用可能状態になっている場合のみアクティブになります。",
};

constexpr const wchar_t* About[] = {
    L"Tamblin\r\n  Ver." TAMBLIN_VERSION L"\r\n\r\n1999/11/16 Released.",
    L"adapted for Vimora",
    L"support Page",
};

} // namespace

const wchar_t* const HelpHint = L"「●」のついた文字をクリックすると簡単なヘルプが表示されます。";
const wchar_t* const RemoraCaption = L"小判鮫モード\r\nOFFにする";
const wchar_t* const SupportPageAddress = L"https://tamblin.example/support/";

std::span<const wchar_t* const> HelpCategoryCaptions() {
    return CategoryCaptions;
}
std::span<const HelpTopic> PurposeTopics() {
    return Purposes;
}
std::span<const HelpTopic> ButtonTopics() {
    return Buttons;
}
std::span<const wchar_t* const> LimitationLines() {
    return Limitations;
}
std::span<const wchar_t* const> AboutLines() {
    return About;
}

} // namespace tamblin
