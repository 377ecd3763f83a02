// The host's start-up file: the permanent edit and the steps around a launch.
#include "maintenance/start_up_file.h"

#include "support/thrown_number.h"
#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

struct StartUpFileTest : testing::Test, MaintenanceScene {};

TEST_F(StartUpFileTest, ReplacesTheWholeFileByOneLine) {
    ShowSelected(L"abc");
    SetStartUpCharacter(model, platform);
    EXPECT_THAT(files.Log(), ElementsAre(L"Find C:\\VMR\\ombrel.rc", L"Delete C:\\VMR\\ombrel.rc",
                                         L"Write C:\\VMR\\ombrel.rc"));
    EXPECT_EQ(StartUpFile(), "H001currentobl=abc.obl\r\n");
    EXPECT_FALSE(files.Exists(Backup()));
    EXPECT_THAT(messages.shown,
                ElementsAre(Box{Kind::Inform, L"abcが起動するようにombrel.rcを書き換えました。"}));
}

TEST_F(StartUpFileTest, CreatesAMissingFileWhetherHostAndDefinitionFileExistOrNot) {
    ShowSelected(L"abc");
    for (const wchar_t* gone : {L"ombrel.rc", L"ombrel.exe", L"abc.obl", L"abc"}) {
        files.DeleteTree(base + gone);
        SetStartUpCharacter(model, platform);
        EXPECT_EQ(StartUpFile(), "H001currentobl=abc.obl\r\n");
    }
    EXPECT_EQ(messages.shown.size(), 4U);
}

TEST_F(StartUpFileTest, TakesTheFirstOfSeveralSelected) {
    for (const wchar_t* name : {L"a", L"b", L"c"})
        AddCharacter(name);
    Show();
    SelectCharacters({L"b", L"c"});
    SetStartUpCharacter(model, platform);
    EXPECT_EQ(StartUpFile(), "H001currentobl=b.obl\r\n");
}

TEST_F(StartUpFileTest, WithoutSelectionNothingIsTouchedOrShown) {
    AddCharacter(L"abc");
    Show();
    SetStartUpCharacter(model, platform);
    EXPECT_EQ(files.OperationCount(), 0U);
    EXPECT_EQ(StartUpFile(), formerStartUp);
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(StartUpFileTest, WritesTheListedNameWithALowerCaseExtension) {
    files.AddFolder(L"C:\\VMR\\Abc");
    files.AddFile(L"C:\\VMR\\ABC.OBL");
    Show();
    SelectCharacters({L"Abc"});
    SetStartUpCharacter(model, platform);
    EXPECT_EQ(StartUpFile(), "H001currentobl=Abc.obl\r\n");
}

TEST(SetStartUpCharacter, DoubledBackslashOfADriveRootReachesTheRoot) {
    MaintenanceScene scene(L"C:\\");
    scene.ShowSelected(L"abc");
    SetStartUpCharacter(scene.model, scene.platform);
    EXPECT_EQ(scene.files.Contents(L"C:\\ombrel.rc"), "H001currentobl=abc.obl\r\n");
}

TEST(SetStartUpCharacter, NamesAreWrittenInTheCodePageOfTheSystem) {
    const std::pair<const wchar_t*, const char*> lines[] = {
        {L"x.obl", "H001currentobl=x.obl.obl\r\n"},
        {L"a b  c", "H001currentobl=a b  c.obl\r\n"},
        {L"a=b,#", "H001currentobl=a=b,#.obl\r\n"},
        {L"表ソ能", "H001currentobl=\x95\\\x83\\\x94\\.obl\r\n"},
        {L"ｱ伺か", "H001currentobl=\xB1\x8E\x66\x82\xA9.obl\r\n"}};
    for (const auto& [name, line] : lines) {
        MaintenanceScene scene;
        scene.ShowSelected(name);
        SetStartUpCharacter(scene.model, scene.platform);
        EXPECT_EQ(scene.StartUpFile(), line);
        EXPECT_THAT(
            scene.messages.Texts(),
            ElementsAre(name + std::wstring(L"が起動するようにombrel.rcを書き換えました。")));
    }
}

TEST(SetStartUpCharacter, FileThatCannotBeReplacedStays) {
    using enum ErrorNumber;
    for (const wchar_t* reason : {L"read-only", L"in use", L"host vanished", L"a folder"}) {
        SCOPED_TRACE(reason);
        MaintenanceScene scene;
        scene.ShowSelected(L"abc");
        const std::wstring path = L"C:\\VMR\\ombrel.rc";
        if (*reason == L'r')
            scene.files.AddFile(path, "1", {.readOnly = true});
        else if (*reason == L'i')
            scene.files.Lock(path);
        else
            scene.files.DeleteTree(*reason == L'h' ? L"C:\\VMR" : path);
        if (*reason == L'a')
            scene.files.AddFolder(path);
        const auto before = scene.files.Snapshot();
        const auto error = ErrorOf([&] { SetStartUpCharacter(scene.model, scene.platform); });
        EXPECT_EQ(error, *reason == L'i'   ? PermissionDenied
                         : *reason == L'h' ? PathNotFound
                                           : PathFileAccess);
        EXPECT_EQ(scene.files.Snapshot(), before);
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

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

TEST_F(StartUpFileTest, NameThatTheCodePageCannotHoldLeavesTheFileAsItWas) {
    const auto before = files.Snapshot();
    files.SetCurrentFolder(L"C:\\VMR");
    try {
        ReplaceStartUpFile(std::wstring(ThaiName) + L".obl", platform);
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::BadFileName);
        EXPECT_EQ(error.Path(), std::wstring(ThaiName) + L".obl");
        EXPECT_NE(error.Advice(), L"");
    }
    EXPECT_EQ(files.Snapshot(), before);
}

} // namespace
} // namespace tamblin
