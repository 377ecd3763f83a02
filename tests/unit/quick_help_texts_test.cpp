// Every caption and text of the quick help window, to the character.
#include "setup/quick_help_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/version.h"

namespace tamblin {
namespace {

using testing::ElementsAre;

struct ExpectedTopic {
    const wchar_t* caption;
    std::vector<std::wstring> lines;
};

const std::vector<ExpectedTopic> expectedPurposes = {
    {L"●オンブレルをインストールする",
     {L"　「すべてのフォルダ」からオンブレルのパッケージを選択し、インストールボタンをクリックしま"
      L"す。",
      L"　確認ウィンドウが出るので、「Install」ボタンをクリックするとインストールされます。"}},
    {L"●Ombrel.exeを更新する",
     {L"　「すべてのフォルダ」から新しいombrel.exeを選択し、「VMR」ボタンをクリックします。"}},
    {L"●.oblファイルを更新する",
     {L"　「すべてのフォルダ」から新しいオンブレル定義ファイルを選択し、「導入済オンブレル一覧」か"
      L"ら該当するオンブレルを選択します。",
      L"　「OBL」ボタンがアクティブになるので、クリックすると完了です。", L"",
      L"　該当オンブレルが、ネットワーク更新で新しい定義ファイルを提供している場合は、オンブレルを"
      L"選択するだけで、ボタンがアクティブになります。"}},
    {L"●.rcファイルを書き換える",
     {L"　ヴィモラを普通に起動する場合の起動オンブレルを設定します。",
      L"　「導入済オンブレル一覧」からオンブレルを選択し、「.rc」ボタンをクリックします。"}},
    {L"●VMRフォルダをチェックする",
     {L"　ヴィモラのフォルダをチェックします。", L"",
      L"　オンブレル定義ファイルだけがある場合や、フォルダだけがある場合、オンブレルが正しく起動で"
      L"きない場合があるので、その対処ができます。"}},
    {L"●オンブレルを起動する",
     {L"　「導入済オンブレル一覧」から選択したオンブレルを直接起動できます。",
      L"　呼び出したいオンブレルを選択し、右クリックのメニューから「オンブレルの起動」をクリックし"
      L"ます。"}},
    {L"●READMEを表示する",
     {L"　READMEを表示させたいオンブレルを選択し、右クリックのメニューから「READMEの表示」をクリッ"
      L"クします。",
      L"　そのオンブレルのREADMEを見つけられなかった場合は、メニューが選択できなくなっています"
      L"。"}}};

const std::vector<ExpectedTopic> expectedButtons = {
    {L"●インストールボタン",
     {L"　オンブレルをインストールします。", L"",
      L"　「すべてのフォルダ」からパッケージを選択し、このボタンをクリックします。",
      L"　確認ウィンドウが表示されるので、「Install」ボタンをクリックするとインストールされます"
      L"。"}},
    {L"●Local Updateボタン", {L"　"}},
    {L"●VMRボタン",
     {L"　ombrel.exeをアップデートします。",
      L"　「すべてのフォルダ」から新しいombrel.exeを選択し、このボタンをクリックします。"}},
    {L"●OBLボタン",
     {L"　オンブレル定義ファイルをアップデートします。",
      L"　「すべてのフォルダ」から新しいオンブレル定義ファイルを選択し、「導入済オンブレル一覧」か"
      L"ら該当するオンブレルを選択します。",
      L"　「OBL」ボタンがアクティブになるので、クリックすると完了です。", L"",
      L"　該当オンブレルが、ネットワーク更新で、新しい定義ファイルを提供している場合は、オンブレル"
      L"を選択するだけで、ボタンがアクティブになります。"}},
    {L"●アンインストールボタン",
     {L"　オンブレルをアンインストールします。",
      L"　「導入済オンブレル一覧」から、アンインストールするオンブレルを選択し、このボタンをクリッ"
      L"クします。"}},
    {L"●.rcボタン",
     {L"　ombrel.rcファイルを書き換えます。",
      L"　選択したオンブレルをヴィモラの次回起動オンブレルに設定します。"}},
    {L"●Checkボタン",
     {L"　ヴィモラフォルダのチェックをします。", L"",
      L"　オンブレル定義ファイルだけがある場合や、フォルダだけがある場合、オンブレルが正しく起動で"
      L"きない場合があるので、その対処ができます。"}},
    {L"●設定ボタン",
     {L"　ヴィモラに関する設定を行います。",
      L"　ヴィモラを複数インストールしている場合、１０ヶ所まで登録しておくことができます。",
      L"　Kavalet用定義ファイルにデータを書き込むかどうかも、ここで設定できます。"}},
    {L"●Quick Helpボタン", {L"　Tamblinに関する簡単なヘルプを表示します。"}},
    {L"●選択解除ボタン", {L"　それぞれのリストの選択を解除します。"}},
    {L"●終了ボタン", {L"　Tamblinを終了します。"}}};

std::wstring Joined(const std::vector<std::wstring>& lines) {
    std::wstring text = lines.front();
    for (size_t index = 1; index < lines.size(); ++index)
        text += L"\r\n" + lines[index];
    return text;
}

void ExpectTopics(std::span<const HelpTopic> topics, const std::vector<ExpectedTopic>& expected) {
    ASSERT_EQ(topics.size(), expected.size());
    for (size_t index = 0; index < expected.size(); ++index) {
        EXPECT_EQ(std::wstring(topics[index].caption), expected[index].caption);
        EXPECT_EQ(std::wstring(topics[index].text), Joined(expected[index].lines));
    }
}

std::vector<std::wstring> Texts(std::span<const wchar_t* const> texts) {
    return {texts.begin(), texts.end()};
}

TEST(QuickHelpTexts, PurposeTopics) {
    ExpectTopics(PurposeTopics(), expectedPurposes);
}

TEST(QuickHelpTexts, ButtonTopics) {
    ExpectTopics(ButtonTopics(), expectedButtons);
}

TEST(QuickHelpTexts, EveryTopicTextBeginsWithAnIdeographicSpace) {
    for (const auto topics : {PurposeTopics(), ButtonTopics()})
        for (const HelpTopic& topic : topics)
            EXPECT_EQ(topic.text[0], L'\u3000');
}

TEST(QuickHelpTexts, LocalUpdateHasNoText) {
    EXPECT_EQ(std::wstring(ButtonTopics()[1].caption), L"●Local Updateボタン");
    EXPECT_EQ(std::wstring(ButtonTopics()[1].text), L"\u3000");
}

TEST(QuickHelpTexts, Categories) {
    EXPECT_THAT(Texts(HelpCategoryCaptions()),
                ElementsAre(L"●機能制限", L"●ボタン説明", L"●目的別ヘルプ", L"●Tamblinについて"));
    EXPECT_EQ(static_cast<int>(HelpCategory::Limitations), 0);
    EXPECT_EQ(static_cast<int>(HelpCategory::Buttons), 1);
    EXPECT_EQ(static_cast<int>(HelpCategory::Purposes), 2);
    EXPECT_EQ(static_cast<int>(HelpCategory::About), 3);
}

TEST(QuickHelpTexts, Limitations) {
    EXPECT_THAT(
        Texts(LimitationLines()),
        ElementsAre(
            L"１、一度に登録できるヴィモラの場所は１０ヶ所までです。",
            L"２、ウィンドウ上のボタンは使用可能状態になっている場合のみアクティブになります。"));
}

TEST(QuickHelpTexts, AboutEndsInTheLinkToTheSupportPage) {
    EXPECT_THAT(Texts(AboutLines()),
                ElementsAre(L"Tamblin\r\n  Ver." TAMBLIN_VERSION L"\r\n\r\n1999/11/16 Released.",
                            L"adapted for Vimora", L"support Page"));
    EXPECT_EQ(SupportLinkIndex, 2U);
    EXPECT_TRUE(std::wstring(SupportPageAddress).starts_with(L"https://"));
}

TEST(QuickHelpTexts, HintAndRemoraCaption) {
    EXPECT_EQ(std::wstring(HelpHint),
              L"「●」のついた文字をクリックすると簡単なヘルプが表示されます。");
    EXPECT_EQ(std::wstring(RemoraCaption), L"小判鮫モード\r\nOFFにする");
}

} // namespace
} // namespace tamblin
