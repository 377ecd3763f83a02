// Removing installed characters for good.
#include "maintenance/uninstall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;

constexpr wchar_t QuestionText[] =
    L"現在選択されているオンブレルをアンインストールしてもよろしいですか？";
constexpr wchar_t DoneText[] = L"アンインストールが完了しました。";

struct UninstallScene : MaintenanceScene {
    using MaintenanceScene::MaintenanceScene;
    void Run() { Uninstall(model, state, platform); }
};

TEST(Uninstall, RemovesFolderAndDefinitionFileOfTheOneSelected) {
    UninstallScene scene;
    scene.AddCharacter(L"other");
    scene.ShowSelected(L"abc");
    auto expected = scene.files.Snapshot();
    for (const wchar_t* gone : {L"abc\\", L"abc\\face.bmp", L"abc.obl"})
        expected.erase(L"C:\\VMR\\" + std::wstring(gone));
    scene.Run();
    EXPECT_EQ(scene.files.Snapshot(), expected);
    EXPECT_THAT(scene.shell.deleted, ElementsAre(L"C:\\VMR\\abc"));
    EXPECT_THAT(scene.shell.Recycled(), IsEmpty());
}

TEST(Uninstall, AsksAndReportsCompletion) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.Run();
    EXPECT_THAT(scene.messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, QuestionText}, Box{Kind::Inform, DoneText}));
}

TEST(Uninstall, CancelChangesNothing) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.messages.answer = false;
    const auto before = scene.files.Snapshot();
    scene.Run();
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_THAT(scene.files.Log(), IsEmpty());
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText));
    EXPECT_EQ(scene.model.installed.names.SelectedCount(), 1U);
}

TEST(Uninstall, OfSeveralOnlyTheLastLosesItsDefinitionFile) {
    UninstallScene scene;
    for (const wchar_t* name : {L"a", L"b", L"c"})
        scene.AddCharacter(name);
    scene.Show();
    scene.SelectCharacters({L"a", L"c"});
    scene.Run();
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\a"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\a.obl"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\b"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\b.obl"));
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\c"));
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\c.obl"));
}

TEST(Uninstall, DeletesFromTheFirstToTheLastAndThenTheDefinitionFile) {
    UninstallScene scene;
    for (const wchar_t* name : {L"a", L"b"})
        scene.AddCharacter(name);
    scene.Show();
    scene.SelectCharacters({L"a", L"b"});
    scene.messages.onShow = [&](const Box& box) {
        scene.files.AddToLog(box.text);
    };
    scene.Run();
    auto log = scene.files.Log();
    ASSERT_GE(log.size(), 6U);
    log.resize(6);
    EXPECT_THAT(log, ElementsAre(QuestionText, L"DeleteTree C:\\VMR\\a", L"DeleteTree C:\\VMR\\b",
                                 L"Find C:\\VMR\\b", L"Delete C:\\VMR\\b.obl", DoneText));
}

TEST(Uninstall, ListIsReadAnewAndItsButtonsAreDisabled) {
    UninstallScene scene;
    scene.AddCharacter(L"other");
    scene.ShowSelected(L"abc");
    scene.model.buttons[5] = scene.model.buttons[7] = true;
    scene.Run();
    EXPECT_THAT(scene.model.installed.names.Entries(), ElementsAre(L"other"));
    EXPECT_EQ(scene.model.installed.folder, L"C:\\VMR");
    EXPECT_FALSE(scene.model.buttons[5]);
    EXPECT_FALSE(scene.model.buttons[7]);
    EXPECT_EQ(scene.files.CountLogged(L"List "), 1U);
}

TEST(Uninstall, ButtonsOfTheFileSelectionAreDecidedAnew) {
    UninstallScene scene;
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe");
    scene.ShowSelected(L"abc");
    scene.SelectFiles({L"ombrel.exe"});
    scene.Run();
    EXPECT_TRUE(scene.model.buttons[3]);
    EXPECT_TRUE(scene.model.buttons[9]);
}

TEST(Uninstall, WithoutSelectionTheMissingDefinitionFileEndsIt) {
    UninstallScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    const auto before = scene.files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { scene.Run(); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_THAT(scene.shell.deleted, IsEmpty());
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText));
}

TEST(Uninstall, MissingDefinitionFileEndsItAfterTheFolderHasGone) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(L"C:\\VMR\\abc.obl");
    EXPECT_EQ(ErrorOf([&] { scene.Run(); }), ErrorNumber::FileNotFound);
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\abc"));
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText));
    EXPECT_EQ(scene.files.CountLogged(L"List "), 0U);
}

TEST(Uninstall, DefinitionFileInUseEndsItAndStays) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.files.Lock(L"C:\\VMR\\abc.obl");
    EXPECT_EQ(ErrorOf([&] { scene.Run(); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc.obl"), "definition");
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText));
}

TEST(Uninstall, ReadOnlyDefinitionFileEndsItAndStays) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.files.AddFile(L"C:\\VMR\\abc.obl", "1", {.readOnly = true});
    EXPECT_EQ(ErrorOf([&] { scene.Run(); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc.obl"), "1");
}

TEST(Uninstall, FolderThatCannotBeDeletedKeepsItsDefinitionFile) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.files.Lock(L"C:\\VMR\\abc\\face.bmp");
    scene.Run();
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\abc\\face.bmp"));
    EXPECT_TRUE(scene.files.Exists(L"C:\\VMR\\abc.obl"));
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText, DoneText));
}

TEST(Uninstall, LinkedFolderGoesAndItsTargetStays) {
    UninstallScene scene;
    scene.files.AddFile(L"C:\\Elsewhere\\kept.txt", "kept");
    scene.files.AddLink(L"C:\\VMR\\abc", L"C:\\Elsewhere");
    scene.files.AddFile(L"C:\\VMR\\abc.obl");
    scene.Show();
    scene.SelectCharacters({L"abc"});
    scene.Run();
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\abc"));
    EXPECT_EQ(scene.files.Contents(L"C:\\Elsewhere\\kept.txt"), "kept");
}

TEST(Uninstall, HostFolderThatVanishedEndsIt) {
    UninstallScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(L"C:\\VMR");
    EXPECT_EQ(ErrorOf([&] { scene.Run(); }), ErrorNumber::PathNotFound);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(QuestionText));
}

struct UninstallRow {
    const wchar_t* host;
    const wchar_t* name;
    const wchar_t* folder;
};

class UninstallNames : public testing::TestWithParam<UninstallRow> {};

TEST_P(UninstallNames, LeadToFolderAndDefinitionFile) {
    UninstallScene scene(GetParam().host);
    scene.ShowSelected(GetParam().name);
    scene.Run();
    EXPECT_THAT(scene.shell.deleted, ElementsAre(GetParam().folder));
    EXPECT_FALSE(scene.files.Exists(GetParam().folder));
    EXPECT_FALSE(scene.files.Exists(GetParam().folder + std::wstring(L".obl")));
}

INSTANTIATE_TEST_SUITE_P(Uninstall, UninstallNames,
                         testing::Values(UninstallRow{L"C:\\", L"abc", L"C:\\abc"},
                                         UninstallRow{L"C:\\VMR\\", L"abc", L"C:\\VMR\\abc"},
                                         UninstallRow{L"C:\\VMR", L"a b", L"C:\\VMR\\a b"},
                                         UninstallRow{L"C:\\VMR", L"x.obl", L"C:\\VMR\\x.obl"},
                                         UninstallRow{L"C:\\VMR", L"表ソ能", L"C:\\VMR\\表ソ能"}));

TEST(Uninstall, TenThousandSelectedAreEachDeletedOnce) {
    UninstallScene scene;
    for (int number = 10000; number < 20000; ++number)
        scene.AddCharacter(L"c" + std::to_wstring(number));
    scene.Show();
    for (size_t index = 0; index < scene.model.installed.names.Size(); ++index)
        scene.model.installed.names.Select(index);
    scene.Run();
    EXPECT_EQ(scene.files.CountLogged(L"DeleteTree "), 10000U);
    EXPECT_EQ(scene.files.CountLogged(L"Delete "), 1U);
    EXPECT_EQ(scene.files.CountLogged(L"List "), 1U);
    EXPECT_EQ(scene.files.Snapshot(L"C:\\VMR").size(), 2U + 9999U);
}

} // namespace
} // namespace tamblin
