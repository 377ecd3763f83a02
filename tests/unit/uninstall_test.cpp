// Removing installed characters for good.
#include "maintenance/uninstall.h"

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

constexpr wchar_t QuestionText[] =
    L"現在選択されているオンブレルをアンインストールしてもよろしいですか？";
constexpr wchar_t DoneText[] = L"アンインストールが完了しました。";

struct UninstallScene : MaintenanceScene {
    using MaintenanceScene::MaintenanceScene;
    void Uninstall() { tamblin::Uninstall(model, state, platform); }
    void ExpectOnlyTheQuestion() { EXPECT_THAT(messages.Texts(), ElementsAre(QuestionText)); }
};

struct UninstallTest : testing::Test, UninstallScene {};

TEST_F(UninstallTest, RemovesFolderAndDefinitionFileOfTheOneSelectedAfterAQuestion) {
    AddCharacter(L"other");
    ShowSelected(L"abc");
    auto expected = files.Snapshot();
    for (const wchar_t* gone : {L"abc\\", L"abc\\face.bmp", L"abc.obl"})
        expected.erase(L"C:\\VMR\\" + std::wstring(gone));
    Uninstall();
    EXPECT_EQ(files.Snapshot(), expected);
    EXPECT_THAT(shell.deleted, ElementsAre(L"C:\\VMR\\abc"));
    EXPECT_THAT(shell.recycled, IsEmpty());
    EXPECT_THAT(messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, QuestionText}, Box{Kind::Inform, DoneText}));
}

TEST_F(UninstallTest, CancelChangesNothing) {
    ShowSelected(L"abc");
    messages.answer = false;
    const auto before = files.Snapshot();
    Uninstall();
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_THAT(files.Log(), IsEmpty());
    ExpectOnlyTheQuestion();
    EXPECT_EQ(model.installed.names.SelectedCount(), 1U);
    EXPECT_FALSE(model.installed.outdated);
}

TEST_F(UninstallTest, OfSeveralSelectedOnlyTheLastLosesItsDefinitionFileAtTheEnd) {
    for (const wchar_t* name : {L"a", L"b", L"c"})
        AddCharacter(name);
    Show();
    SelectCharacters({L"a", L"c"});
    messages.onShow = [&](const Box& box) {
        files.AddToLog(box.text);
    };
    Uninstall();
    auto log = files.Log();
    ASSERT_GE(log.size(), 6U);
    log.resize(6);
    EXPECT_THAT(log, ElementsAre(QuestionText, L"DeleteTree C:\\VMR\\a", L"DeleteTree C:\\VMR\\c",
                                 L"Find C:\\VMR\\c", L"Delete C:\\VMR\\c.obl", DoneText));
    for (const wchar_t* gone : {L"a", L"c", L"c.obl"})
        EXPECT_FALSE(files.Exists(base + gone)) << gone;
    for (const wchar_t* kept : {L"a.obl", L"b", L"b.obl"})
        EXPECT_TRUE(files.Exists(base + kept)) << kept;
}

TEST_F(UninstallTest, ListIsReadAnewAndItsButtonsAreDisabled) {
    AddCharacter(L"other");
    ShowSelected(L"abc");
    model.enabled[Command::Uninstall] = model.enabled[Command::DeselectInstalled] = true;
    Uninstall();
    EXPECT_THAT(model.installed.names.Entries(), ElementsAre(L"other"));
    EXPECT_EQ(model.installed.folder, L"C:\\VMR");
    EXPECT_FALSE(model.enabled[Command::Uninstall]);
    EXPECT_FALSE(model.enabled[Command::DeselectInstalled]);
    EXPECT_EQ(files.CountLogged(L"List "), 1U);
    // From then on the folder is the same again.
    model.enabled[Command::Install] = true;
    RefreshInstalledList(model, state, platform);
    EXPECT_TRUE(model.enabled[Command::Install]);
}

TEST_F(UninstallTest, ButtonsOfTheFileSelectionAreDecidedAnew) {
    files.AddFile(L"C:\\Browsed\\ombrel.exe");
    ShowSelected(L"abc");
    SelectFiles({L"ombrel.exe"});
    Uninstall();
    EXPECT_TRUE(model.enabled[Command::UpdateHost]);
    EXPECT_TRUE(model.enabled[Command::DeselectFiles]);
}

TEST_F(UninstallTest, WithoutSelectionTheMissingDefinitionFileEndsIt) {
    AddCharacter(L"abc");
    Show();
    const auto before = files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { Uninstall(); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(files.Snapshot(), before);
    EXPECT_THAT(shell.deleted, IsEmpty());
    ExpectOnlyTheQuestion();
}

TEST_F(UninstallTest, MissingDefinitionFileEndsItAfterTheFolderHasGone) {
    ShowSelected(L"abc");
    files.DeleteTree(L"C:\\VMR\\abc.obl");
    EXPECT_EQ(ErrorOf([&] { Uninstall(); }), ErrorNumber::FileNotFound);
    EXPECT_FALSE(files.Exists(L"C:\\VMR\\abc"));
    ExpectOnlyTheQuestion();
    EXPECT_EQ(files.CountLogged(L"List "), 0U);
}

TEST_F(UninstallTest, DefinitionFileThatIsInUseOrReadOnlyEndsItAndStays) {
    ShowSelected(L"abc");
    files.Lock(L"C:\\VMR\\abc.obl");
    EXPECT_EQ(ErrorOf([&] { Uninstall(); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(files.Contents(L"C:\\VMR\\abc.obl"), "definition");
    ExpectOnlyTheQuestion();
    files.Unlock(L"C:\\VMR\\abc.obl");
    files.AddFile(L"C:\\VMR\\abc.obl", "1", {.readOnly = true});
    EXPECT_EQ(ErrorOf([&] { Uninstall(); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(files.Contents(L"C:\\VMR\\abc.obl"), "1");
}

TEST_F(UninstallTest, FolderThatCannotBeDeletedKeepsItsDefinitionFile) {
    ShowSelected(L"abc");
    files.Lock(L"C:\\VMR\\abc\\face.bmp");
    Uninstall();
    EXPECT_TRUE(files.Exists(L"C:\\VMR\\abc\\face.bmp"));
    EXPECT_TRUE(files.Exists(L"C:\\VMR\\abc.obl"));
    EXPECT_THAT(messages.Texts(), ElementsAre(QuestionText, DoneText));
}

TEST_F(UninstallTest, LinkedFolderGoesAndItsTargetStays) {
    files.AddFile(L"C:\\Elsewhere\\kept.txt", "kept");
    files.AddLink(L"C:\\VMR\\abc", L"C:\\Elsewhere");
    files.AddFile(L"C:\\VMR\\abc.obl");
    Show();
    SelectCharacters({L"abc"});
    Uninstall();
    EXPECT_FALSE(files.Exists(L"C:\\VMR\\abc"));
    EXPECT_EQ(files.Contents(L"C:\\Elsewhere\\kept.txt"), "kept");
}

TEST(Uninstall, NamesLeadToFolderAndDefinitionFile) {
    const std::pair<const wchar_t*, const wchar_t*> places[] = {{L"C:\\", L"abc"},
                                                                {L"C:\\VMR\\", L"abc"},
                                                                {L"C:\\VMR", L"a b"},
                                                                {L"C:\\VMR", L"x.obl"},
                                                                {L"C:\\VMR", L"表ソ能"}};
    for (const auto& [host, name] : places) {
        UninstallScene scene(host);
        scene.ShowSelected(name);
        scene.Uninstall();
        const std::wstring folder = scene.base + name;
        EXPECT_THAT(scene.shell.deleted, ElementsAre(folder));
        EXPECT_FALSE(scene.files.Exists(folder));
        EXPECT_FALSE(scene.files.Exists(folder + L".obl"));
    }
}

TEST_F(UninstallTest, TenThousandSelectedAreEachDeletedOnce) {
    for (int number = 10000; number < 20000; ++number)
        AddCharacter(L"c" + std::to_wstring(number));
    Show();
    for (size_t index = 0; index < model.installed.names.Size(); ++index)
        model.installed.names.Select(index);
    Uninstall();
    EXPECT_EQ(files.CountLogged(L"DeleteTree "), 10000U);
    EXPECT_EQ(files.CountLogged(L"Delete "), 1U);
    EXPECT_EQ(files.CountLogged(L"List "), 1U);
    EXPECT_EQ(files.Snapshot(L"C:\\VMR").size(), 2U + 9999U);
}

} // namespace
} // namespace tamblin
