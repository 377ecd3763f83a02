// tamb.ini: what each key's reading accepts and stores.
#include "unit/settings_scene.h"

namespace tamblin {
namespace {

// --- Reading ------------------------------------------------------------------------------------

TEST_F(SettingsFileTest, MissingFileReadsAsNothing) {
    state.HostFolderCount = 1;
    state.HostFolders[1] = L"C:\\Host";
    state.VersionKnown = true;
    for (const auto key : {setting_keys::Version, setting_keys::VmrFolder, setting_keys::Default,
                           setting_keys::ViewFolder, setting_keys::KvaOption})
        EXPECT_FALSE(file.ReadSetting(key)) << key;
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\Host"));
    EXPECT_TRUE(state.VersionKnown);
    EXPECT_EQ(state.KvaOption, L"");
}

TEST_F(SettingsFileTest, EmptyFileHasNoKeysAndGetsTheFolders) {
    GivenBytes("");
    for (const auto key : {setting_keys::Version, setting_keys::VmrFolder, setting_keys::KvaOption})
        EXPECT_FALSE(file.ReadSetting(key)) << key;
    EXPECT_EQ(state.KvaOption, L"");
    file.SaveSettings(Combo({L"C:\\A"}), L"C:\\");
    EXPECT_EQ(Ini(), Lines({"VMRFOLDER=C:\\A"}));
}

TEST_F(SettingsFileTest, IsReadFromTheProgramFolderWhateverIsCurrent) {
    Given({"VERSION=Ver." TAMBLIN_VERSION});
    files.AddFile(L"C:\\Else\\tamb.ini", "VERSION=Ver.9\r\n");
    files.SetCurrentFolder(L"C:\\Else");
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
    Given({"VERSION=Ver.9.99"});
    files.AddFile(L"C:\\tamb.ini", "VERSION=Ver.0.60\r\n");
    fake.platform.programFolder = L"C:\\";
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
}

TEST_F(SettingsFileTest, VersionIsKnownOrNot) {
    const std::pair<const char*, bool> versions[] = {{"Ver.0.60 Beta-2", true},
                                                     {"Ver.0.60", true},
                                                     {"Ver.0.61", true},
                                                     {"Ver." TAMBLIN_VERSION, true},
                                                     {"Ver.9.99", false},
                                                     {"ver." TAMBLIN_VERSION, false},
                                                     {" Ver." TAMBLIN_VERSION, false},
                                                     {"Ver." TAMBLIN_VERSION " ", false},
                                                     {"", false}};
    for (const auto& [version, known] : versions) {
        SCOPED_TRACE(version);
        state.VersionKnown = !known;
        Given({"# Tamblin", std::string("VERSION=") + version});
        EXPECT_EQ(file.ReadSetting(setting_keys::Version), known);
        EXPECT_EQ(state.VersionKnown, known);
    }
}

TEST_F(SettingsFileTest, MissingKeyStoresNothing) {
    state.VersionKnown = true;
    state.KvaOption = L"ON";
    state.DefaultFolder = L"C:\\Old";
    state.ViewFolder = L"C:\\OldView";
    Given({"# VERSION=Ver.0.60", " VERSION=Ver.0.60", "version=Ver.0.60", "XVERSION=Ver.0.60"});
    for (const auto key : {setting_keys::Version, setting_keys::Default, setting_keys::ViewFolder,
                           setting_keys::KvaOption})
        EXPECT_FALSE(file.ReadSetting(key)) << key;
    EXPECT_TRUE(state.VersionKnown);
    EXPECT_EQ(state.KvaOption, L"ON");
    EXPECT_EQ(state.DefaultFolder, L"C:\\Old");
    EXPECT_EQ(state.ViewFolder, L"C:\\OldView");
}

TEST_F(SettingsFileTest, KvaOptionIsOnOrOffAndNeverASuccess) {
    const std::pair<const char*, const wchar_t*> options[] = {
        {"ON", L"ON"},   {"on", L"ON"}, {"On", L"ON"},   {"oN", L"OFF"},
        {"OFF", L"OFF"}, {"", L"OFF"},  {" ON", L"OFF"}, {"ON,1", L"OFF"}};
    for (const auto& [written, read] : options) {
        Given({std::string("KVAOPTION=") + written});
        EXPECT_FALSE(file.ReadSetting(setting_keys::KvaOption));
        EXPECT_EQ(state.KvaOption, read) << written;
    }
}

TEST_F(SettingsFileTest, OnlyTheFirstLineOfAKeyCounts) {
    GivenHosts({L"C:\\Host"});
    Given({"VERSION=Ver.9", "DEFAULT=C:\\Gone", "KVAOPTION=OFF", "VERSION=Ver." TAMBLIN_VERSION,
           "DEFAULT=C:\\Host", "KVAOPTION=ON"});
    EXPECT_FALSE(file.ReadSetting(setting_keys::Version));
    EXPECT_FALSE(file.ReadSetting(setting_keys::Default));
    file.ReadSetting(setting_keys::KvaOption);
    EXPECT_FALSE(state.VersionKnown);
    EXPECT_EQ(state.DefaultFolder, L"");
    EXPECT_EQ(state.KvaOption, L"OFF");
}

TEST_F(SettingsFileTest, LastLineWithoutEndIsReadAndSurvives) {
    GivenBytes("VMRFOLDER=\r\nVERSION=Ver." TAMBLIN_VERSION);
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_EQ(Ini(), Lines({"VERSION=Ver." TAMBLIN_VERSION}));
}

struct FolderCase {
    const char* name;
    std::vector<std::wstring> files;
    const char* value;
    bool taken;
    FileAttributes attributes = {.archive = true};
};

class DefaultFolderTest : public SettingsFileTest,
                          public testing::WithParamInterface<FolderCase> {};

TEST_P(DefaultFolderTest, IsTakenWhenItIsAHostFolder) {
    for (const std::wstring& name : GetParam().files)
        files.AddFile(name, {}, GetParam().attributes);
    state.DefaultFolder = L"former";
    Given({std::string("DEFAULT=") + GetParam().value});
    EXPECT_EQ(file.ReadSetting(setting_keys::Default), GetParam().taken);
    EXPECT_EQ(state.DefaultFolder,
              GetParam().taken ? fake.ansi.Decode(GetParam().value) : L"former");
    files.AddFile(IniPath, "VERSION=Ver." TAMBLIN_VERSION);
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version)); // reading goes on
}

INSTANTIATE_TEST_SUITE_P(
    Folders, DefaultFolderTest,
    testing::Values(
        FolderCase{"Both", {L"C:\\H\\ombrel.exe", L"C:\\H\\ombrel.rc"}, "C:\\H", true},
        FolderCase{"OtherCase", {L"C:\\H\\OMBREL.EXE", L"C:\\H\\Ombrel.RC"}, "c:\\h", true},
        FolderCase{"Backslash", {L"C:\\H\\ombrel.exe", L"C:\\H\\ombrel.rc"}, "C:\\H\\", true},
        FolderCase{"Comma", {L"C:\\a,b\\ombrel.exe", L"C:\\a,b\\ombrel.rc"}, "C:\\a,b", true},
        FolderCase{"Root", {L"C:\\ombrel.exe", L"C:\\ombrel.rc"}, "C:\\", true},
        FolderCase{
            "CurrentOfDrive", {L"C:\\Tamblin\\ombrel.exe", L"C:\\Tamblin\\ombrel.rc"}, "C:", false},
        FolderCase{
            "Hidden", {L"C:\\H\\ombrel.exe", L"C:\\H\\ombrel.rc"}, "C:\\H", true, {.hidden = true}},
        FolderCase{
            "System", {L"C:\\H\\ombrel.exe", L"C:\\H\\ombrel.rc"}, "C:\\H", true, {.system = true}},
        FolderCase{"NoProgram", {L"C:\\H\\ombrel.rc"}, "C:\\H", false},
        FolderCase{"NoStartUpFile", {L"C:\\H\\ombrel.exe"}, "C:\\H", false},
        FolderCase{
            "FolderForProgram", {L"C:\\H\\ombrel.exe\\x", L"C:\\H\\ombrel.rc"}, "C:\\H", false},
        FolderCase{"Gone", {}, "C:\\Gone", false}, FolderCase{"NoDrive", {}, "Q:\\H", false},
        FolderCase{"NoName", {}, "C:\\a?b", false}, FolderCase{"Empty", {}, "", false}),
    CaseName);

class ViewFolderTest : public SettingsFileTest, public testing::WithParamInterface<FolderCase> {};

TEST_P(ViewFolderTest, IsTakenWhenItHoldsAPlainFile) {
    for (const std::wstring& name : GetParam().files)
        files.AddFile(name);
    files.AddFile(L"C:\\Hidden\\a", "", {.hidden = true});
    files.AddFile(L"C:\\Hidden\\b", "", {.system = true});
    state.ViewFolder = L"former";
    Given({std::string("VIEWFOLDER=") + GetParam().value});
    EXPECT_EQ(file.ReadSetting(setting_keys::ViewFolder), GetParam().taken);
    EXPECT_EQ(state.ViewFolder, GetParam().taken ? fake.ansi.Decode(GetParam().value) : L"former");
    files.AddFile(IniPath, "VERSION=Ver." TAMBLIN_VERSION);
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version)); // reading goes on
}

INSTANTIATE_TEST_SUITE_P(
    Folders, ViewFolderTest,
    testing::Values(FolderCase{"File", {L"C:\\V\\a.txt"}, "C:\\V", true},
                    FolderCase{"Backslash", {L"C:\\V\\a.txt"}, "C:\\V\\", true},
                    FolderCase{"Root", {L"C:\\a.txt"}, "C:\\", true},
                    FolderCase{"OnlySubfolders", {L"C:\\V\\W\\a.txt"}, "C:\\V", false},
                    FolderCase{"RootWithoutFiles", {}, "C:\\", false},
                    FolderCase{"OnlyHiddenFiles", {}, "C:\\Hidden", false},
                    FolderCase{"Gone", {}, "C:\\Gone\\", false},
                    // Nothing stands for the current folder, which holds the settings file.
                    FolderCase{"Empty", {}, "", true},
                    FolderCase{"AFile", {L"C:\\V\\a.txt"}, "C:\\V\\a.txt", false},
                    // Up to three characters are the beginning of the names that are looked for.
                    FolderCase{"BeginningOfANameHere", {}, "TA", true},
                    FolderCase{"BeginningOfNoName", {L"C:\\Tamblin\\xta"}, "ta_", false},
                    FolderCase{"BeginningOfAFoldersName", {L"C:\\Tamblin\\sub\\x"}, "sub", false},
                    FolderCase{"CurrentOfDrive", {}, "C:", true},
                    FolderCase{"BeginningOnADrive", {L"C:\\Tamblin\\new"}, "C:n", true},
                    FolderCase{"NothingOnADrive", {}, "C:n", false},
                    FolderCase{"InAFolder", {L"C:\\Tamblin\\v\\x"}, "v\\", true},
                    FolderCase{"InAFolderWithoutFiles", {L"C:\\Tamblin\\v\\w\\x"}, "v\\", false},
                    FolderCase{"InTheRoot", {L"C:\\xyz"}, "\\x", true},
                    FolderCase{"ShortWithWildcard", {}, "t*", false},
                    FolderCase{"FourCharactersAreAFolder", {}, "tamb", false},
                    FolderCase{"NoDrive", {}, "Q:\\V\\", false},
                    FolderCase{"NoName", {}, "C:\\a?b\\", false}),
    CaseName);

TEST_F(SettingsFileTest, FoldersLoadInFileOrderAsWrittenAndRejectedOnesAreSkipped) {
    GivenHosts({L"C:\\A", L"C:\\b", L"C:\\", L"C:\\Tamblin", L"C:\\表ソ能\\ｶﾅ"});
    files.AddFile(L"C:\\Half\\ombrel.exe");
    // A bare drive is too short a value, also where "C:\" is a host folder.
    Given({"VMRFOLDER=C:\\b\\", "VERSION=Ver." TAMBLIN_VERSION, "VMRFOLDER=C:\\",
           "#VMRFOLDER=C:\\A", "VMRFOLDER=c:\\a", "VMRFOLDER=C:\\Half",
           "VMRFOLDER=C:", "VMRFOLDER=", "VMRFOLDER=Q:\\x", "VMRFOLDER=C:\\a?b", "vmrfolder=C:\\A",
           "VMRFOLDER=" + fake.ansi.EncodeName(L"C:\\表ソ能\\ｶﾅ"), "VMRFOLDER=C:\\b"});
    EXPECT_TRUE(file.ReadSetting(setting_keys::VmrFolder));
    EXPECT_THAT(RegisteredFolders(state),
                ElementsAre(L"C:\\b\\", L"C:\\", L"c:\\a", L"C:\\表ソ能\\ｶﾅ", L"C:\\b"));
}

TEST_F(SettingsFileTest, ReadingFoldersForgetsTheFormerOnes) {
    state.HostFolderCount = 3;
    Given({"VMRFOLDER=C:\\Gone"});
    EXPECT_FALSE(file.ReadSetting(setting_keys::VmrFolder));
    EXPECT_EQ(state.HostFolderCount, 0);
}

TEST_F(SettingsFileTest, TenFoldersLoadAndTheRestIsLostAtTheNextSave) {
    std::vector<std::string> lines(30, "VMRFOLDER=C:\\Gone");
    for (char letter = 'A'; letter <= 'L'; ++letter) {
        AddHost(files, std::wstring(L"C:\\") + static_cast<wchar_t>(letter));
        lines.push_back(std::string("VMRFOLDER=C:\\") + letter);
    }
    Given(lines);
    EXPECT_TRUE(file.ReadSetting(setting_keys::VmrFolder));
    EXPECT_EQ(state.HostFolderCount, 10);
    EXPECT_EQ(state.HostFolders[1], L"C:\\A");
    EXPECT_EQ(state.HostFolders[10], L"C:\\J");
    EXPECT_EQ(state.HostFolders[11], L"");
    HostFolderCombo combo;
    FillHostFolderCombo(combo, state);
    file.SaveSettings(combo, L"C:\\");
    EXPECT_EQ(Ini(), Lines({lines.begin() + 30, lines.begin() + 40}));
}

TEST_F(SettingsFileTest, DriveThatIsNotReadyEndsAllReadsAndKeepsTheFileFromBeingRewritten) {
    GivenHosts({L"C:\\A", L"C:\\B"});
    files.AddDrive(L"E:");
    files.SetReady(L"E:", false);
    Given(
        {"VERSION=Ver." TAMBLIN_VERSION, "VMRFOLDER=C:\\A", "VMRFOLDER=E:\\x", "VMRFOLDER=C:\\B"});
    const std::string former = Ini();
    EXPECT_TRUE(file.ReadSetting(setting_keys::VmrFolder));
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A"));
    EXPECT_FALSE(file.ReadSetting(setting_keys::Version));
    EXPECT_FALSE(state.VersionKnown);
    files.AddFile(BackupPath, "older");
    EXPECT_EQ(FailToSave(Combo({L"C:\\A"}), ErrorNumber::FileAlreadyOpen), IniPath);
    EXPECT_EQ(Ini(), former);
    EXPECT_EQ(files.Contents(BackupPath), "older");
    files.Delete(IniPath); // there is nothing left to lose
    file.SaveSettings(Combo({L"C:\\A"}), L"C:\\");
    EXPECT_TRUE(files.Exists(IniPath));
}

TEST_F(SettingsFileTest, ViewFolderOnADriveThatIsNotReadyEndsAllLaterReads) {
    files.AddDrive(L"E:");
    files.SetReady(L"E:", false);
    Given({"VIEWFOLDER=E:\\x\\", "KVAOPTION=ON"});
    EXPECT_FALSE(file.ReadSetting(setting_keys::ViewFolder));
    file.ReadSetting(setting_keys::KvaOption);
    EXPECT_EQ(state.KvaOption, L"");
}

TEST_F(SettingsFileTest, FileInUseReadsAsNothing) {
    Given({"VERSION=Ver." TAMBLIN_VERSION});
    files.Lock(IniPath);
    EXPECT_FALSE(file.ReadSetting(setting_keys::Version));
    EXPECT_FALSE(state.VersionKnown);
    Register(state, L"C:\\A");
    EXPECT_FALSE(file.ReadSetting(setting_keys::VmrFolder));
    files.Unlock(IniPath);
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
}

// "D:" would be another folder as soon as the current one has changed.
TEST_F(SettingsFileTest, FoldersThatAreNotFullPathsAreNotFound) {
    for (const wchar_t* host : {L"C:\\Tamblin", L"C:\\Tamblin\\sub", L"C:\\sub"})
        AddHost(files, host);
    for (const wchar_t* path : {L"C:", L"C:sub", L"C:.", L"sub", L"\\sub", L"."}) {
        SCOPED_TRACE(path);
        const std::string folder = fake.ansi.EncodeName(path);
        Given({"VMRFOLDER=" + folder, "DEFAULT=" + folder});
        for (const auto key : {setting_keys::VmrFolder, setting_keys::Default})
            EXPECT_FALSE(file.ReadSetting(key)) << key;
        EXPECT_EQ(state.HostFolderCount, 0);
        EXPECT_EQ(state.DefaultFolder, L"");
    }
}

} // namespace
} // namespace tamblin
