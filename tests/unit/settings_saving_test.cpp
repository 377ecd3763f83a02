// tamb.ini: what a save writes, to the byte.
#include <algorithm>

#include "unit/settings_scene.h"

namespace tamblin {
namespace {

// --- A fresh file -------------------------------------------------------------------------------

TEST_F(SettingsFileTest, FreshFileHasItsNineKindsOfLines) {
    state.KvaOption = L"ON";
    file.SaveSettings(Combo({L"C:\\A", L"D:\\表\\"}, 1), L"C:\\Packs\\");
    EXPECT_EQ(
        Ini(),
        fake.ansi
            .Encode(L"# Tamblin\r\n# Configuration File\r\n\r\n"
                    L"VERSION=Ver." TAMBLIN_VERSION L"\r\nDEFAULT=D:\\表\\\r\nKVAOPTION=ON\r\n"
                    L"VMRFOLDER=C:\\A\r\nVMRFOLDER=D:\\表\\\r\n"
                    L"VIEWFOLDER=C:\\Packs\\\r\n\r\n")
            .value());
    EXPECT_FALSE(files.Exists(BackupPath));
}

TEST_F(SettingsFileTest, FreshFileWithoutFoldersHasNoFolderLineAndReadsBackAsOff) {
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_EQ(Ini(), Lines({"# Tamblin", "# Configuration File", "", "VERSION=Ver." TAMBLIN_VERSION,
                            "DEFAULT=", "KVAOPTION=", "VIEWFOLDER=C:\\", ""}));
    file.ReadSetting(setting_keys::KvaOption);
    EXPECT_EQ(state.KvaOption, L"OFF");
}

// --- Rewriting ----------------------------------------------------------------------------------

TEST_F(SettingsFileTest, SavingMakesTheProgramFolderCurrent) {
    files.AddFolder(L"C:\\Else");
    files.SetCurrentFolder(L"C:\\Else");
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
    EXPECT_TRUE(files.Exists(IniPath));
    EXPECT_FALSE(files.Exists(L"C:\\Else\\tamb.ini"));
}

TEST_F(SettingsFileTest, RewriteBringsEveryKeyUpToDateInItsPlace) {
    state.KvaOption = L"OFF";
    Given({"# my settings", "VIEWFOLDER=C:\\", "", "VMRFOLDER=C:\\Old", "KVAOPTION=ON", "UNKNOWN=1",
           "VMRFOLDER=C:\\Older", "DEFAULT=C:\\Old", "VERSION=Ver.0.60 Beta-2", "some text"});
    file.SaveSettings(Combo({L"C:\\A", L"C:\\B"}, 1), L"C:\\Packs\\");
    EXPECT_EQ(Ini(), Lines({"# my settings", "VIEWFOLDER=C:\\Packs\\", "", "VMRFOLDER=C:\\A",
                            "VMRFOLDER=C:\\B", "KVAOPTION=OFF", "UNKNOWN=1", "DEFAULT=C:\\B",
                            "VERSION=Ver." TAMBLIN_VERSION, "some text"}));
    EXPECT_FALSE(files.Exists(BackupPath));
}

struct Rewrite {
    const char* name;
    std::vector<std::string> before;
    HostFolderCombo combo;
    std::vector<std::string> after;
};

TEST_F(SettingsFileTest, RewriteChangesOnlyWhatItsKeysSay) {
    const Rewrite rewrites[] = {
        {"only folders are added when their key is missing",
         {"VERSION=Ver.0.60", "#"},
         Combo({L"C:\\A", L"C:\\B"}),
         {"VERSION=Ver." TAMBLIN_VERSION, "#", "VMRFOLDER=C:\\A", "VMRFOLDER=C:\\B"}},
        {"an empty combo removes the folders",
         {"VMRFOLDER=C:\\A", "x", "VMRFOLDER=C:\\B"},
         Combo({}),
         {"x"}},
        {"both default lines are rewritten",
         {"DEFAULT=C:\\A", "DEFAULT=C:\\B", "VMRFOLDER="},
         Combo({L"C:\\N"}),
         {"DEFAULT=C:\\N", "DEFAULT=C:\\N", "VMRFOLDER=C:\\N"}},
        {"a combo without selection empties the default",
         {"DEFAULT=C:\\A", "VMRFOLDER=C:\\A"},
         Combo({L"C:\\A"}, std::nullopt),
         {"DEFAULT=", "VMRFOLDER=C:\\A"}},
        {"keys in other letters or with blanks are unknown",
         {"version=Ver.0.60", "VERSION =Ver.0.60", "VERSION", "vmrfolder=C:\\A", "VMRFOLDER=x"},
         Combo({}),
         {"version=Ver.0.60", "VERSION =Ver.0.60", "VERSION", "vmrfolder=C:\\A"}},
        // The rewrite reads fields, not lines.
        {"a comma ends an item, and its rest becomes one of its own",
         {"VMRFOLDER=C:\\a,b", "# one, two", "VIEWFOLDER=C:\\v,DEFAULT=C:\\x"},
         Combo({L"C:\\N"}),
         {"VMRFOLDER=C:\\N", "b", "# one", "two", "VIEWFOLDER=C:\\Packs\\", "DEFAULT=C:\\N"}},
        {"quotes and leading blanks go",
         {"\"VERSION=Ver.0.60\"", "  KVAOPTION=ON", "\"a, b\"", "VMRFOLDER="},
         Combo({}),
         {"VERSION=Ver." TAMBLIN_VERSION, "KVAOPTION=", "a, b"}}};
    for (const Rewrite& rewrite : rewrites) {
        Given(rewrite.before);
        file.SaveSettings(rewrite.combo, L"C:\\Packs\\");
        EXPECT_EQ(Ini(), Lines(rewrite.after)) << rewrite.name;
    }
}

// What stands behind the comma is taken for a line of its own, at every save once more.
TEST_F(SettingsFileTest, RegisteredFolderWithACommaLeavesItsRestBehindAtEverySave) {
    Given({"VMRFOLDER=C:\\a,b"});
    const auto combo = Combo({L"C:\\a,b"});
    file.SaveSettings(combo, L"C:\\Packs\\");
    EXPECT_EQ(Ini(), Lines({"VMRFOLDER=C:\\a,b", "b"}));
    file.SaveSettings(combo, L"C:\\Packs\\");
    EXPECT_EQ(Ini(), Lines({"VMRFOLDER=C:\\a,b", "b", "b"}));
}

TEST_F(SettingsFileTest, BackupOfAnInterruptedSaveIsDeletedFirst) {
    files.AddFile(BackupPath, "of an interrupted save");
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_TRUE(Ini().starts_with("# Tamblin\r\n"));
    EXPECT_FALSE(files.Exists(BackupPath));
    Given({"VERSION=Ver.0.60"});
    files.AddFile(BackupPath, "of an interrupted save");
    files.ForgetOperations();
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_EQ(Ini(), Lines({"VERSION=Ver." TAMBLIN_VERSION}));
    EXPECT_FALSE(files.Exists(BackupPath));
    const auto& log = files.Log();
    EXPECT_LT(
        std::find(log.begin(), log.end(), L"Delete C:\\Tamblin\\tamb.bak"),
        std::find(log.begin(), log.end(), L"Copy C:\\Tamblin\\tamb.ini -> C:\\Tamblin\\tamb.bak"));
}

TEST_F(SettingsFileTest, TenThousandUnknownLinesSurviveAndNoneIsTooLong) {
    std::vector<std::string> lines = {std::string(100'000, 'x')};
    for (int line = 0; line < 10'000; ++line)
        lines.push_back("LINE" + std::to_string(line) + "=" + std::string(line % 90u, 'v'));
    lines.push_back("VERSION=Ver." TAMBLIN_VERSION);
    lines.push_back("VMRFOLDER=C:\\A");
    GivenHosts({L"C:\\A"});
    Given(lines);
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
    EXPECT_TRUE(file.ReadSetting(setting_keys::VmrFolder));
    file.SaveSettings(Combo({L"C:\\A"}), L"C:\\");
    EXPECT_EQ(Ini(), Lines(lines));
}

// --- Files that nobody wrote on purpose ---------------------------------------------------------

// NULs, control characters, and bytes that are no characters of the code page.
TEST_F(SettingsFileTest, UnknownBytesSurvive) {
    std::string bytes("a\0b\r\n\x1A\x01\t\r\n\x81\r\n\xFF\xFE\xFD=\x80\xA0\r\n#\x85\xFC\x95\r\n",
                      27);
    GivenBytes(bytes + "VERSION=Ver.0.60\r\nVMRFOLDER=C:\\\x81");
    EXPECT_TRUE(file.ReadSetting(setting_keys::Version));
    EXPECT_FALSE(file.ReadSetting(setting_keys::VmrFolder));
    EXPECT_FALSE(file.ReadSetting(setting_keys::ViewFolder));
    file.SaveSettings(Combo({}), L"C:\\");
    EXPECT_EQ(Ini(), bytes + "VERSION=Ver." TAMBLIN_VERSION "\r\n");
}

TEST_F(SettingsFileTest, NulsInValuesAreNoValues) {
    for (const char* key : {"VERSION=", "VMRFOLDER=", "DEFAULT=", "VIEWFOLDER="}) {
        GivenBytes(key + std::string("C:\\\0x\r\nVERSION=Ver." TAMBLIN_VERSION "\r\n", 24));
        EXPECT_FALSE(file.ReadSetting(key)) << key;
    }
    EXPECT_FALSE(state.VersionKnown);
    EXPECT_EQ(state.HostFolderCount, 0);
    EXPECT_EQ(state.DefaultFolder, L"");
    EXPECT_EQ(state.ViewFolder, L"");
}

TEST_F(SettingsFileTest, FolderOfThatNameIsNoFileAndNotSavedOver) {
    files.AddFile(L"C:\\Tamblin\\tamb.ini\\inside", "1");
    EXPECT_FALSE(file.ReadSetting(setting_keys::Version));
    const auto before = files.Snapshot();
    FailToSave(Combo({}), ErrorNumber::PathFileAccess);
    EXPECT_EQ(files.Snapshot(), before);
}

TEST_F(SettingsFileTest, FileInUseFailsAndTouchesNothing) {
    Given({"VERSION=Ver.0.60"});
    files.AddFile(BackupPath, "of an interrupted save");
    files.Lock(IniPath);
    const auto before = files.Snapshot();
    FailToSave(Combo({}), ErrorNumber::PermissionDenied);
    EXPECT_EQ(files.Snapshot(), before);
}

TEST_F(SettingsFileTest, FolderInTheBackupsPlaceFailsAndTouchesNothing) {
    Given({"VERSION=Ver.0.60"});
    files.AddFolder(BackupPath);
    const auto before = files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { file.SaveSettings(Combo({}), L"C:\\"); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(files.Snapshot(), before);
}

// --- Names beyond the code page ------------------------------------------------------------------

TEST_F(SettingsFileTest, NameThatTheCodePageCannotHoldLeavesTheFileAsItWas) {
    const std::wstring thai = L"C:\\\x0E01\x0E02";
    for (const bool fresh : {false, true})
        for (const bool asView : {false, true}) {
            files.DeleteTree(IniPath);
            if (!fresh)
                Given({"VERSION=Ver." TAMBLIN_VERSION, "VMRFOLDER=C:\\A"});
            const auto before = files.Snapshot();
            const HostFolderCombo combo = Combo({L"C:\\A", asView ? L"C:\\B" : thai});
            try {
                file.SaveSettings(combo, asView ? thai : L"C:\\");
                ADD_FAILURE();
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::BadFileName);
                EXPECT_EQ(error.Path(), thai);
            }
            EXPECT_EQ(files.Snapshot(), before);
        }
}

} // namespace
} // namespace tamblin
