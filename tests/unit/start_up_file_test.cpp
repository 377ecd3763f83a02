// The host's start-up file: the permanent edit and the steps around a launch.
#include "maintenance/start_up_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/thrown_number.h"
#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;

TEST(SetStartUpCharacter, ReplacesTheWholeFileByOneLine) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=abc.obl\r\n");
    EXPECT_FALSE(scene.files.Exists(scene.Backup()));
    EXPECT_THAT(scene.messages.shown,
                ElementsAre(Box{Kind::Inform, L"abcが起動するようにombrel.rcを書き換えました。"}));
}

TEST(SetStartUpCharacter, DeletesTheOldFileBeforeItWritesTheNewOne) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_THAT(scene.files.Log(),
                ElementsAre(L"Find C:\\VMR\\ombrel.rc", L"Delete C:\\VMR\\ombrel.rc",
                            L"Write C:\\VMR\\ombrel.rc"));
}

TEST(SetStartUpCharacter, CreatesAMissingFile) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    scene.files.DeleteTree(L"C:\\VMR\\ombrel.rc");
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=abc.obl\r\n");
    EXPECT_EQ(scene.messages.shown.size(), 1U);
}

TEST(SetStartUpCharacter, TakesTheFirstOfSeveralSelected) {
    MaintenanceScene scene;
    for (const wchar_t* name : {L"a", L"b", L"c"})
        scene.AddCharacter(name);
    scene.Show();
    scene.SelectCharacters({L"b", L"c"});
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=b.obl\r\n");
}

TEST(SetStartUpCharacter, WithoutSelectionNothingIsTouchedOrShown) {
    MaintenanceScene scene;
    scene.AddCharacter(L"abc");
    scene.Show();
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.OperationCount(), 0U);
    EXPECT_EQ(scene.StartUpFile(), scene.formerStartUp);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(SetStartUpCharacter, WritesTheListedNameWithALowerCaseExtension) {
    MaintenanceScene scene;
    scene.files.AddFolder(L"C:\\VMR\\Abc");
    scene.files.AddFile(L"C:\\VMR\\ABC.OBL");
    scene.Show();
    scene.SelectCharacters({L"Abc"});
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=Abc.obl\r\n");
}

TEST(SetStartUpCharacter, DoesNotCareWhetherHostAndDefinitionFileExist) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    for (const wchar_t* gone : {L"ombrel.exe", L"abc.obl", L"abc"})
        scene.files.DeleteTree(scene.base + gone);
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=abc.obl\r\n");
}

TEST(SetStartUpCharacter, DoubledBackslashOfADriveRootReachesTheRoot) {
    MaintenanceScene scene(L"C:\\");
    scene.ShowSelected(L"abc");
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\ombrel.rc"), "H001currentobl=abc.obl\r\n");
}

struct StartUpRow {
    const wchar_t* name;
    const char* line;
};

class StartUpNames : public testing::TestWithParam<StartUpRow> {};

TEST_P(StartUpNames, AreWrittenInTheCodePageOfTheSystem) {
    MaintenanceScene scene;
    scene.ShowSelected(GetParam().name);
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.StartUpFile(), GetParam().line);
    EXPECT_THAT(scene.messages.Texts(),
                ElementsAre(GetParam().name + std::wstring(L"が起動するようにombrel.rcを"
                                                           L"書き換えました。")));
}

INSTANTIATE_TEST_SUITE_P(
    SetStartUpCharacter, StartUpNames,
    testing::Values(StartUpRow{L"x.obl", "H001currentobl=x.obl.obl\r\n"},
                    StartUpRow{L"a b  c", "H001currentobl=a b  c.obl\r\n"},
                    StartUpRow{L"a=b,#", "H001currentobl=a=b,#.obl\r\n"},
                    StartUpRow{L"表ソ能", "H001currentobl=\x95\\\x83\\\x94\\.obl\r\n"},
                    StartUpRow{L"ｱ伺か", "H001currentobl=\xB1\x8E\x66\x82\xA9.obl\r\n"}));

struct RefusalRow {
    const char* name;
    void (*prepare)(MaintenanceScene& scene);
    ErrorNumber number;
};

class StartUpRefusals : public testing::TestWithParam<RefusalRow> {};

TEST_P(StartUpRefusals, EndTheCommandAndKeepTheFormerFile) {
    MaintenanceScene scene;
    scene.ShowSelected(L"abc");
    GetParam().prepare(scene);
    const auto before = scene.files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { SetStartUpCharacter(scene.model, scene.platform); }),
              GetParam().number);
    EXPECT_EQ(scene.files.Snapshot(), before);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    SetStartUpCharacter, StartUpRefusals,
    testing::Values(RefusalRow{"ReadOnly",
                               [](MaintenanceScene& scene) {
                                   scene.files.AddFile(L"C:\\VMR\\ombrel.rc", "1",
                                                       {.readOnly = true});
                               },
                               ErrorNumber::PathFileAccess},
                    RefusalRow{
                        "InUse",
                        [](MaintenanceScene& scene) { scene.files.Lock(L"C:\\VMR\\ombrel.rc"); },
                        ErrorNumber::PermissionDenied},
                    RefusalRow{"FolderVanished",
                               [](MaintenanceScene& scene) { scene.files.DeleteTree(L"C:\\VMR"); },
                               ErrorNumber::PathNotFound},
                    RefusalRow{"FolderInItsPlace",
                               [](MaintenanceScene& scene) {
                                   scene.files.DeleteTree(L"C:\\VMR\\ombrel.rc");
                                   scene.files.AddFolder(L"C:\\VMR\\ombrel.rc");
                               },
                               ErrorNumber::PathFileAccess}),
    CaseName);

constexpr wchar_t ThaiName[] = L"\x0E01\x0E02";
constexpr wchar_t NameOfLookAlikes[] = L"caf\x00E9 \x00A5";

TEST(SetStartUpCharacter, NameThatTheCodePageCannotHoldLeavesTheFileAsItWas) {
    for (const std::wstring name : {ThaiName, NameOfLookAlikes}) {
        MaintenanceScene scene;
        scene.ShowSelected(name);
        const auto before = scene.files.Snapshot();
        EXPECT_EQ(ThrownNumber([&] { SetStartUpCharacter(scene.model, scene.platform); }), 52);
        EXPECT_EQ(scene.files.Snapshot(), before);
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

TEST(ReplaceStartUpFile, NameThatTheCodePageCannotHoldLeavesTheFileAsItWas) {
    MaintenanceScene scene;
    const auto before = scene.files.Snapshot();
    scene.files.SetCurrentFolder(L"C:\\VMR");
    try {
        ReplaceStartUpFile(std::wstring(ThaiName) + L".obl", scene.platform);
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::BadFileName);
        EXPECT_EQ(error.Path(), std::wstring(ThaiName) + L".obl");
        EXPECT_NE(error.Advice(), L"");
    }
    EXPECT_EQ(scene.files.Snapshot(), before);
}

TEST(ReplaceStartUpFile, SetsTheFormerFileAsideInTheCurrentFolder) {
    MaintenanceScene scene;
    scene.files.SetCurrentFolder(L"C:\\VMR");
    ReplaceStartUpFile(L"abc.OBL", scene.platform);
    EXPECT_EQ(scene.StartUpFile(), "H001currentobl=abc.OBL\r\n");
    EXPECT_EQ(scene.files.Contents(scene.Backup()), scene.formerStartUp);
}

TEST(ReplaceStartUpFile, LeftoverBackupStopsItBeforeAnythingChanges) {
    MaintenanceScene scene;
    scene.files.SetCurrentFolder(L"C:\\VMR");
    scene.files.AddFile(scene.Backup(), "earlier");
    const auto before = scene.files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { ReplaceStartUpFile(L"abc.obl", scene.platform); }),
              ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(scene.files.Snapshot(), before);
}

TEST(RestoreStartUpFile, BringsTheFormerFileBackToTheByte) {
    MaintenanceScene scene;
    scene.files.SetCurrentFolder(L"C:\\VMR");
    const auto before = scene.files.Snapshot();
    ReplaceStartUpFile(L"abc.obl", scene.platform);
    RestoreStartUpFile(scene.platform);
    EXPECT_EQ(scene.files.Snapshot(), before);
}

} // namespace
} // namespace tamblin
