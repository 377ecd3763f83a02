// Replacing the host program and definition files with newer copies.
#include "maintenance/updates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;

constexpr wchar_t HostQuestion[] = L"Vimoraをアップデートします。よろしいですか？";
constexpr wchar_t HostDone[] = L"Vimoraのアップデートが完了しました。";

TEST(UpdateHostProgram, ReplacesItWithTheBrowsedCopyAfterAQuestion) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
    scene.Show();
    scene.model.buttons[3] = true;
    scene.messages.onShow = [&](const Box& box) {
        const bool asked = box.kind == Kind::AskOkCancel;
        EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\ombrel.exe"), asked ? "host" : "new");
        EXPECT_TRUE(scene.model.buttons[3]);
    };
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\ombrel.exe"), "new");
    EXPECT_EQ(scene.files.Contents(L"C:\\Browsed\\ombrel.exe"), "new");
    EXPECT_FALSE(scene.model.buttons[3]);
    EXPECT_THAT(scene.messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, HostQuestion}, Box{Kind::Inform, HostDone}));
}

TEST(UpdateHostProgram, KeepsNoBackup) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
    scene.Show();
    auto expected = scene.files.Snapshot();
    expected[L"C:\\VMR\\ombrel.exe"] = "new";
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Snapshot(), expected);
}

TEST(UpdateHostProgram, CancelChangesNothing) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
    scene.Show();
    scene.model.buttons[3] = true;
    scene.messages.answer = false;
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\ombrel.exe"), "host");
    EXPECT_TRUE(scene.model.buttons[3]);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(HostQuestion));
}

TEST(UpdateHostProgram, WithoutACopyInTheBrowsedFolderNothingIsShown) {
    MaintenanceScene scene;
    scene.files.AddFolder(L"C:\\Browsed\\ombrel.exe");
    scene.Show();
    const auto before = scene.files.Snapshot();
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(UpdateHostProgram, NewCopyIsCreatedUnderTheNameThatItHasOnDisk) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\Browsed\\OmbreL.EXE", "new");
    scene.files.DeleteTree(L"C:\\VMR\\ombrel.exe");
    scene.Show();
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Snapshot(L"C:\\VMR").count(L"C:\\VMR\\OmbreL.EXE"), 1U);
}

class UpdateHosts : public testing::TestWithParam<const wchar_t*> {};

TEST_P(UpdateHosts, AreReachedThroughADoubledBackslashToo) {
    MaintenanceScene scene(GetParam());
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
    scene.Show();
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(scene.base + L"ombrel.exe"), "new");
}

TEST_P(UpdateHosts, TakeDefinitionFiles) {
    MaintenanceScene scene(GetParam());
    scene.files.AddFile(L"C:\\Browsed\\abc.obl", "new");
    scene.ShowSelected(L"abc");
    scene.SelectFiles({L"abc.obl"});
    UpdateDefinitionFile(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(scene.base + L"abc.obl"), "new");
}

INSTANTIATE_TEST_SUITE_P(Updates, UpdateHosts,
                         testing::Values(L"C:\\VMR", L"C:\\VMR\\", L"C:\\", L"C:\\表 ソ\\能"));

TEST(UpdateHostProgram, BrowsedDriveRootIsReached) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\ombrel.exe", "new");
    scene.state.BrowseStartFolder = L"C:\\";
    scene.Show();
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\ombrel.exe"), "new");
}

// A definition file of the browsed folder, selected together with its character.
struct BrowsedUpdate : MaintenanceScene {
    explicit BrowsedUpdate(const std::wstring& file = L"abc.obl") {
        files.AddFile(L"C:\\Browsed\\" + file, "new");
        ShowSelected(L"abc");
        SelectFiles({file});
        model.buttons[4] = true;
    }
    void Run() { UpdateDefinitionFile(model, platform); }
};

TEST(UpdateDefinitionFile, ReplacesItWithTheSelectedFileAfterAQuestion) {
    BrowsedUpdate scene;
    scene.messages.onShow = [&](const Box& box) {
        const bool asked = box.kind == Kind::AskOkCancel;
        EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc.obl"), asked ? "definition" : "new");
    };
    scene.Run();
    EXPECT_FALSE(scene.model.buttons[4]);
    EXPECT_THAT(scene.messages.shown,
                ElementsAre(Box{Kind::AskOkCancel, L"abcをアップデートします。よろしいですか？"},
                            Box{Kind::Inform, L"abcのアップデートが完了しました。"}));
}

TEST(UpdateDefinitionFile, MessagesNameTheStemAsSpelledOnDisk) {
    BrowsedUpdate scene(L"Abc.OBL");
    scene.Run();
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(L"Abcをアップデートします。よろしいですか？",
                                                    L"Abcのアップデートが完了しました。"));
}

TEST(UpdateDefinitionFile, FirstSelectedFileIsTaken) {
    BrowsedUpdate scene(L"b.obl");
    scene.files.AddFile(L"C:\\Browsed\\a.obl", "a");
    scene.model.browser.RebuildBrowser();
    scene.SelectFiles({L"a.obl", L"b.obl"});
    scene.Run();
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\a.obl"), "a");
    EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\b.obl"));
}

TEST(UpdateDefinitionFile, CancelChangesNothing) {
    BrowsedUpdate scene;
    scene.messages.answer = false;
    const auto before = scene.files.Snapshot();
    scene.Run();
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_TRUE(scene.model.buttons[4]);
    EXPECT_EQ(scene.messages.shown.size(), 1U);
}

TEST(UpdateDefinitionFile, VanishedSourceEndsItSilently) {
    BrowsedUpdate scene;
    scene.files.DeleteTree(L"C:\\Browsed\\abc.obl");
    scene.Run();
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc.obl"), "definition");
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(UpdateDefinitionFile, DriveOfTheSourceThatIsGoneEndsItSilently) {
    MaintenanceScene scene;
    scene.files.AddDrive(L"D:");
    scene.state.BrowseStartFolder = L"D:\\New\\";
    scene.files.AddFile(L"D:\\New\\ombrel.exe");
    scene.files.AddFile(L"D:\\New\\abc.obl");
    scene.Show();
    scene.SelectFiles({L"abc.obl"});
    scene.files.RemoveDrive(L"D:");
    UpdateDefinitionFile(scene.model, scene.platform);
    UpdateHostProgram(scene.model, scene.platform);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(UpdateDefinitionFile, WithoutSelectionNothingHappens) {
    for (const bool ready : {false, true}) {
        MaintenanceScene scene;
        scene.AddCharacter(L"abc");
        scene.Show();
        scene.model.definitionUpdateReady = ready;
        UpdateDefinitionFile(scene.model, scene.platform);
        EXPECT_EQ(scene.files.OperationCount(), 0U);
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

TEST(UpdateDefinitionFile, EndsInTheProgramFolder) {
    BrowsedUpdate scene;
    scene.files.AddDrive(L"D:");
    scene.files.SetCurrentFolder(L"D:\\");
    scene.Run();
    EXPECT_EQ(scene.files.CurrentFolder(), L"C:\\Tamblin");
}

TEST(UpdateDefinitionFile, DeliveredUpdateComesFromTheCharactersOwnFolder) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\VMR\\abc\\dat\\obl\\abc.obl", "delivered");
    scene.files.AddFile(L"C:\\Browsed\\abc.obl", "browsed");
    scene.ShowSelected(L"abc");
    scene.SelectFiles({L"abc.obl"});
    scene.model.definitionUpdateReady = true;
    UpdateDefinitionFile(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc.obl"), "delivered");
    EXPECT_EQ(scene.files.Contents(L"C:\\VMR\\abc\\dat\\obl\\abc.obl"), "delivered");
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(L"abcをアップデートします。よろしいですか？",
                                                    L"abcのアップデートが完了しました。"));
}

class DeliveredNames : public testing::TestWithParam<const wchar_t*> {};

TEST_P(DeliveredNames, AreReached) {
    const std::wstring name = GetParam();
    MaintenanceScene scene(L"C:\\");
    scene.files.AddFile(L"C:\\" + name + L"\\dat\\obl\\" + name + L".obl", "new");
    scene.ShowSelected(name);
    scene.model.definitionUpdateReady = true;
    UpdateDefinitionFile(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\" + name + L".obl"), "new");
    EXPECT_EQ(scene.messages.Texts().back(), name + L"のアップデートが完了しました。");
}

INSTANTIATE_TEST_SUITE_P(UpdateDefinitionFile, DeliveredNames,
                         testing::Values(L"abc", L"a b", L"x.obl", L"表ソ能"));

class LostSources : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(Updates, LostSources, testing::Bool(), [](const auto& lost) {
    return lost.param ? "DriveGone" : "DriveNotReady";
});

TEST_P(LostSources, EndEitherUpdateSilently) {
    BrowsedUpdate scene;
    if (GetParam())
        scene.files.RemoveDrive(L"C:");
    else
        scene.files.SetReady(L"C:", false);
    UpdateHostProgram(scene.model, scene.platform);
    scene.Run();
    scene.model.definitionUpdateReady = true;
    scene.Run();
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

struct TargetRow {
    const char* name;
    void (*prepare)(MemoryFileSystem& files, const std::wstring& target);
    ErrorNumber number;
};

class RefusedTargets : public testing::TestWithParam<TargetRow> {
  protected:
    // Expects the failure, the target's former contents, and no word of completion.
    template <typename Run>
    void ExpectFailure(MaintenanceScene& scene, const std::wstring& target, size_t button,
                       Run&& run) {
        scene.model.buttons[button] = true;
        GetParam().prepare(scene.files, target);
        const auto before = scene.files.Snapshot();
        EXPECT_EQ(ErrorOf(run), GetParam().number);
        EXPECT_EQ(scene.files.Snapshot(), before);
        EXPECT_EQ(scene.messages.shown.size(), 1U);
        EXPECT_TRUE(scene.model.buttons[button]);
    }
};

TEST_P(RefusedTargets, EndTheUpdateOfTheHostProgram) {
    MaintenanceScene scene;
    scene.files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
    scene.Show();
    ExpectFailure(scene, L"C:\\VMR\\ombrel.exe", 3,
                  [&] { UpdateHostProgram(scene.model, scene.platform); });
}

TEST_P(RefusedTargets, EndTheUpdateOfADefinitionFile) {
    BrowsedUpdate scene;
    ExpectFailure(scene, L"C:\\VMR\\abc.obl", 4, [&] { scene.Run(); });
}

INSTANTIATE_TEST_SUITE_P(
    Updates, RefusedTargets,
    testing::Values(TargetRow{"InUse",
                              [](MemoryFileSystem& files, const std::wstring& target) {
                                  files.Lock(target);
                              },
                              ErrorNumber::PermissionDenied},
                    TargetRow{"Running",
                              [](MemoryFileSystem& files, const std::wstring& target) {
                                  files.Lock(target, MemoryFileSystem::LockKind::DenyWriting);
                              },
                              ErrorNumber::PermissionDenied},
                    TargetRow{"ReadOnly",
                              [](MemoryFileSystem& files, const std::wstring& target) {
                                  files.AddFile(target, "kept", {.readOnly = true});
                              },
                              ErrorNumber::PathFileAccess},
                    TargetRow{"HostFolderVanished",
                              [](MemoryFileSystem& files, const std::wstring&) {
                                  files.DeleteTree(L"C:\\VMR");
                              },
                              ErrorNumber::PathNotFound}),
    CaseName);

} // namespace
} // namespace tamblin
