// What every window says and what holds for all of them, for those that have no test of their own
// elsewhere.
#include "maintenance/folder_check_window.h"
#include "settings/folder_management_window.h"
#include "setup/choice_window.h"
#include "setup/manual_folder_window.h"
#include "setup/quick_help_window.h"
#include "setup/search_window.h"
#include "setup/wizard_window.h"
#include "support/hosts.h"
#include "windows/form_check.h"
#include "windows/window_scene.h"

namespace tamblin {
namespace {

class EveryFormTest : public WindowScene {
  protected:
    void SetUp() override {
        AddHost(fake.files, L"C:\\Vimora");
        fake.files.AddFile(L"C:\\Vimora\\Lonely.obl");
        fake.files.AddFolder(L"C:\\Vimora\\Orphan");
        state.HostFolders[1] = L"C:\\Vimora";
        state.HostFolders[2] = L"D:\\a folder with a rather long name\\Vimora";
        state.HostFolders[3] = L"D:\\Found";
        state.HostFolderCount = 2;
        state.WorkingFolderCount = 3;
        state.DefaultFolder = L"C:\\Vimora";
        state.BrowseStartFolder = L"C:\\Vimora\\";
    }

    template <class FormType, class... Arguments>
    FormType& Shown(Arguments&&... arguments) {
        auto& form = application.Open<FormType>(application, std::forward<Arguments>(arguments)...);
        form.Show();
        Pump();
        return form;
    }

    static void ExpectSound(Form& form, const wchar_t* title, std::span<const Element> elements) {
        EXPECT_EQ(TextOf(form.Handle()), title);
        EXPECT_EQ(WrongElements(form, elements), "");
        EXPECT_EQ(FaultsOf(form), "");
    }

    void RunCheck() {
        MainModel model(fake.platform, state);
        model.combo.entries = {L"C:\\Vimora"};
        model.combo.selected = 0;
        check.RunCheck(model);
    }

    SettingsState state;
    HandOverFake handOver;
    FolderCheck check{fake.platform};
};

using enum ControlKind;

TEST_F(EveryFormTest, SetUpWizard) {
    for (const bool fromManagement : {false, true}) {
        state.WizardFromManagement = fromManagement;
        const Element elements[] = {{Label, 1, L"Static", L"Tamblin に必要な情報を設定します。"},
                                    {Label, 2, L"Static", L"設定項目"},
                                    {Label, 3, L"Static", L"・Vimoraフォルダの指定"},
                                    {Command, 2, L"Button", L"自動検出"},
                                    {Label, 5, L"Static", L"見つけさせる"},
                                    {Command, 1, L"Button", L"手動設定"},
                                    {Label, 4, L"Static", L"自分で指定する"},
                                    {Command, 3, L"Button", fromManagement ? L"戻る" : L"終了"},
                                    {Label, 6, L"Static", L"作業をやめる"}};
        ExpectSound(Shown<Form2>(fake.platform, state, handOver),
                    L"環境設定ウィザード  - Tamblin -", elements);
        application.CloseAll();
    }
}

TEST_F(EveryFormTest, ManualFolder) {
    constexpr Element elements[] = {
        {Label, 1, L"Static", L"Vimoraがインストールされているフォルダを指定して下さい。"},
        {Text, 1, L"Edit", nullptr},
        {List, 1, L"ListBox", nullptr},
        {List, 2, L"ListBox", nullptr},
        {Label, 10, L"Static", nullptr},
        {Command, 1, L"Button", L"OK"},
        {Command, 2, L"Button", L"Back"},
        {Label, 3, L"Static", L"１つ前に戻る"},
        {Command, 3, L"Button", L"More"},
        {Label, 4, L"Static", L"もう１つ指定する"},
        {Label, 5, L"Static", L"VMRを複数インストールしている場合、別の場所を指定できます。"}};
    ExpectSound(Shown<Form3>(fake.platform, state, handOver), L"VMRフォルダの手動設定 - Tamblin -",
                elements);
}

TEST_F(EveryFormTest, TheAccessKeyOfManualFoldersPathSelectsIt) {
    const Form& form = Shown<Form3>(fake.platform, state, handOver);
    const HWND path = Find(form, Text, 1);
    ASSERT_FALSE(TextOf(path).empty());
    PressAltAnd(L'v');
    EXPECT_EQ(GetFocus(), path);
    DWORD first = 1;
    DWORD last = 0;
    SendMessageW(path, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0u);
    EXPECT_EQ(last, TextOf(path).size());
}

TEST_F(EveryFormTest, ALongPathDoesNotWidenManualFolder) {
    const auto widthOf = [](const Form& form) {
        RECT area = AreaOf(form.Handle());
        return area.right - area.left;
    };
    const LONG usual = widthOf(Shown<Form3>(fake.platform, state, handOver));
    application.CloseAll();
    std::wstring folder = L"C:";
    for (int level = 0; level < 12; ++level)
        folder += L"\\a folder with a rather long name";
    fake.files.AddFolder(folder);
    state.HostFolders[1] = folder;
    state.EditMode = true;
    state.EditIndex = 1;
    Form3& form = Shown<Form3>(fake.platform, state, handOver);
    EXPECT_NE(TextOf(Find(form, Label, 10)).find(L"rather long name"), std::wstring::npos);
    EXPECT_EQ(widthOf(form), usual);
}

// As on 800 by 600 pixels at 144 and at 192 dpi, in proportion.
TEST_F(EveryFormTest, TextsWrapOnANarrowScreen) {
    RunCheck();
    for (Form* form : std::initializer_list<Form*>{
             &Shown<Form3>(fake.platform, state, handOver), &Shown<Form5>(state, handOver),
             &Shown<Form8>(state, handOver), &Shown<Form11>(check, nullptr)}) {
        for (const int dpi : {144, 192}) {
            const int inProportion = MulDiv(dpi, GetSystemMetrics(SM_CXSCREEN), 800);
            MoveToDensity(*form, static_cast<unsigned>(inProportion));
            ShrinkToMinimum(*form);
            RECT area = AreaOf(form->Handle());
            EXPECT_LE(area.right - area.left, GetSystemMetrics(SM_CXSCREEN));
            EXPECT_LE(area.bottom - area.top, GetSystemMetrics(SM_CYSCREEN));
            EXPECT_EQ(CutOffCaptions(*form) + MisplacedControls(*form), "");
        }
    }
}

TEST_F(EveryFormTest, SearchProgress) {
    constexpr Element elements[] = {
        {Label, 1, L"Static", L"Vimoraがインストールされているフォルダを検索しています..."},
        {Label, 9, L"Static", L"進行状況"},
        {Label, 10, L"Static", L"検索ドライブ"},
        {Label, 11, L"Static", nullptr},
        {Label, 7, L"Static", L"検索ファイル"},
        {Label, 8, L"Static", nullptr},
        {Label, 2, L"Static", L"検索フォルダ"},
        {Label, 3, L"Static", nullptr},
        {Label, 4, L"Static", nullptr},
        {Label, 5, L"Static", nullptr},
        {Command, 1, L"Button", nullptr},
        {Label, 6, L"Static", L"検索を中止し、１つ前に戻る"}};
    ExpectSound(Shown<Form4>(fake.platform, state), L"VMRフォルダを検索中... - Tamblin -",
                elements);
}

TEST_F(EveryFormTest, FolderChoice) {
    for (const std::int16_t stage : {std::int16_t{1}, std::int16_t{2}}) {
        state.ChoiceStage = stage;
        const Element elements[] = {
            {Label, 1, L"Static",
             stage == 1 ? L"検出されたフォルダのうち、登録するフォルダにチェックをつけてください。"
                        : L"デフォルトに設定するフォルダを選択してください。"},
            {List, 1, L"ListBox", nullptr},
            {Combo, 1, L"ComboBox", nullptr},
            {Command, 1, L"Button", L"OK"}};
        ExpectSound(Shown<Form5>(state, handOver), L"VMRフォルダの選択 - Tamblin -", elements);
        application.CloseAll();
    }
}

TEST_F(EveryFormTest, FolderManagement) {
    for (const bool fromMainWindow : {true, false}) {
        state.OpenedFromMainWindow = fromMainWindow;
        const Element elements[] = {
            {Label, 1, L"Static",
             L"VMRがインストールされているフォルダを、10ヶ所まで管理できます。"},
            {List, 1, L"ListBox", nullptr},
            {Command, 1, L"Button", nullptr},
            {Command, 2, L"Button", nullptr},
            {Command, 3, L"Button", nullptr},
            {Label, 2, L"Static",
             L"Kavalet用定義ファイル（kva.def）への情報書き込みを許可しますか？"},
            {Option, 1, L"Button", L"許可する"},
            {Option, 1, L"Button", L"禁止する（デフォルト）", 1},
            {Label, 3, L"Static", L"※ 許可した場合、ベンダーの設定が反映されるようになります。"},
            {Command, 4, L"Button", fromMainWindow ? L"戻る" : L"終了"}};
        ExpectSound(Shown<Form8>(state, handOver), L"Vimoraフォルダ管理 - Tamblin - ", elements);
        application.CloseAll();
    }
}

// The arrow keys go round between the two choices and never leave them.
TEST_F(EveryFormTest, ChoicesOfFolderManagementAreOneRow) {
    const Form& form = Shown<Form8>(state, handOver);
    const HWND allow = Find(form, Option, 1, 0);
    const HWND forbid = Find(form, Option, 1, 1);
    EXPECT_EQ(GetNextDlgGroupItem(form.Handle(), allow, FALSE), forbid);
    EXPECT_EQ(GetNextDlgGroupItem(form.Handle(), forbid, FALSE), allow);
    EXPECT_EQ(GetNextDlgGroupItem(form.Handle(), allow, TRUE), forbid);
}

TEST_F(EveryFormTest, QuickHelp) {
    EXPECT_EQ(FaultsOf(Shown<Form9>(fake.platform, nullptr)), "");
}

TEST_F(EveryFormTest, FolderCheckResult) {
    constexpr Element elements[] = {
        {Label, 1, L"Static",
         L"インストールされているオンブレルのフォルダ構造チェックの結果です。"},
        {Label, 2, L"Static", L"オンブレル定義ファイルだけが存在。"},
        {List, 1, L"ListBox", nullptr},
        {Label, 5, L"Static",
         L"Vimoraおよび、関連ツールに認識され、誤作動を生ずるおそれがあります。"},
        {Command, 1, L"Button", L"削除する（推奨）"},
        {Label, 3, L"Static", L"フォルダだけが存在。"},
        {List, 2, L"ListBox", nullptr},
        {Label, 6, L"Static", L"直接、Vimoraおよび、関連ツールに影響を及ぼすものではありません。"},
        {Label, 7, L"Static",
         L"リストから選択し、右クリックのメニューから、ごみ箱へ移動できます。"},
        {Label, 4, L"Static",
         L"（注）このチェックに引っかからなかったからといって、オンブレルの動作を保証するものでは"
         L"ありません。"},
        {Command, 3, L"Button", L"閉じる"}};
    RunCheck();
    Form11& form = Shown<Form11>(check, nullptr);
    ExpectSound(form, L"フォルダ構造チェックの結果 - Tamblin -", elements);
    EXPECT_EQ(EntriesOf(Find(form, List, 1)), std::vector<std::wstring>{L"Lonely.obl"});
    EXPECT_EQ(EntriesOf(Find(form, List, 2)), std::vector<std::wstring>{L"Orphan"});
}

// The answer to the question is no; then yes, and the list is empty and grey.
TEST_F(EveryFormTest, FolderCheckDeletesAfterAQuestion) {
    RunCheck();
    Form11& form = Shown<Form11>(check, nullptr);
    const HWND list = Find(form, List, 1);
    fake.messages.answer = false;
    Click(Find(form, Command, 1));
    EXPECT_EQ(EntriesOf(list).size(), 1u);
    EXPECT_TRUE(fake.files.Exists(L"C:\\Vimora\\Lonely.obl"));
    fake.messages.answer = true;
    Click(Find(form, Command, 1));
    EXPECT_TRUE(EntriesOf(list).empty());
    EXPECT_FALSE(IsEnabled(list) || IsEnabled(Find(form, Label, 5)));
    EXPECT_FALSE(IsEnabled(Find(form, Command, 1)));
    EXPECT_TRUE(IsEnabled(Find(form, List, 2)) && IsEnabled(Find(form, Label, 6)));
    EXPECT_FALSE(fake.files.Exists(L"C:\\Vimora\\Lonely.obl"));
}

} // namespace
} // namespace tamblin
