// Saving and reading the settings while the n-th file operation fails: former settings are never
// lost, every failed save ends the program, and the next save works.

#include "base/version.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t SettingsPath[] = L"C:\\Tamblin\\tamb.ini";
constexpr wchar_t FormerSettingsPath[] = L"C:\\Tamblin\\tamb.bak";
constexpr char Former[] = "# mine\r\nVERSION=Ver.0.60\r\nkeep me\r\nVMRFOLDER=C:\\Host\r\n";
constexpr char Rewritten[] =
    "# mine\r\nVERSION=Ver." TAMBLIN_VERSION "\r\nkeep me\r\nVMRFOLDER=C:\\Host\r\n";
constexpr ErrorNumber SettingsErrors[] = {
    ErrorNumber::BadFileName,      ErrorNumber::FileNotFound,   ErrorNumber::DeviceIo,
    ErrorNumber::DiskFull,         ErrorNumber::DiskNotReady,   ErrorNumber::DeviceUnavailable,
    ErrorNumber::PermissionDenied, ErrorNumber::PathFileAccess, ErrorNumber::PathNotFound};

class SettingsFaults : public testing::TestWithParam<ErrorNumber> {
  public:
    struct Scene : PlatformFake {
        Scene() {
            AddHost(files, L"C:\\Host");
            combo.entries = {L"C:\\Host"};
            combo.selected = 0;
        }
        void Save() { file.SaveSettings(combo, L"C:\\"); }
        bool Holds(const wchar_t* path, std::string_view bytes) const {
            return files.Exists(path) && files.Contents(path) == bytes;
        }
        bool FormerSettingsAreThere() const {
            return Holds(SettingsPath, Former) || Holds(SettingsPath, Rewritten);
        }

        SettingsState state;
        HostFolderCombo combo;
        SettingsFile file{platform, state};
    };

    // Saves with the n-th operation failing. False when there were fewer operations.
    static bool SaveWithFault(Scene& scene, size_t n, ErrorNumber number) {
        scene.files.ForgetOperations();
        scene.files.FailOperation(n, number);
        bool failed = false;
        try {
            scene.Save();
        } catch (const RunTimeError& error) {
            failed = true;
            EXPECT_TRUE(error.IsFatal());
            EXPECT_EQ(error.Number(), number);
        }
        scene.files.FailNothing();
        EXPECT_EQ(failed, scene.files.OperationCount() >= n);
        return failed;
    }
};

TEST_P(SettingsFaults, RewriteNeverLosesTheFormerSettings) {
    for (const bool withBackup : {false, true}) {
        for (size_t n = 1;; ++n) {
            SCOPED_TRACE(n);
            Scene scene;
            scene.files.AddFile(SettingsPath, Former);
            if (withBackup)
                scene.files.AddFile(FormerSettingsPath, "older");
            const bool failed = SaveWithFault(scene, n, GetParam());
            EXPECT_TRUE(scene.FormerSettingsAreThere());
            if (!failed) {
                EXPECT_GT(n, 5U);
                break;
            }
            scene.Save();
            EXPECT_NE(
                scene.files.Contents(SettingsPath).find("VERSION=Ver." TAMBLIN_VERSION "\r\n"),
                std::string::npos);
            EXPECT_NE(scene.files.Contents(SettingsPath).find("VMRFOLDER=C:\\Host\r\n"),
                      std::string::npos);
            EXPECT_FALSE(scene.files.Exists(FormerSettingsPath));
        }
    }
}

struct RewriteScene : SettingsFaults::Scene {
    RewriteScene() {
        files.AddFile(SettingsPath, Former);
        files.AddFile(FormerSettingsPath, "older");
    }
};

TEST(SettingsPowerCut, LeavesTheFormerSettingsOrTheNewOnes) {
    ForEachPowerCut<RewriteScene>(
        6, [](auto& scene) { scene.Save(); },
        [](auto& scene) {
            EXPECT_TRUE(scene.Holds(SettingsPath, Former) || scene.Holds(SettingsPath, Rewritten));
            scene.Save();
            EXPECT_TRUE(scene.Holds(SettingsPath, Rewritten));
            EXPECT_FALSE(scene.files.Exists(FormerSettingsPath));
        });
}

TEST(SettingsUnderAScanner, AreSaved) {
    for (const auto shares :
         {MemoryFileSystem::HolderShares::Nothing, MemoryFileSystem::HolderShares::Deletion}) {
        RewriteScene scene;
        scene.files.HoldFor(SettingsPath, 40, shares);
        scene.files.HoldFor(FormerSettingsPath, 40, shares);
        scene.Save();
        EXPECT_TRUE(scene.Holds(SettingsPath, Rewritten));
        EXPECT_FALSE(scene.files.Exists(FormerSettingsPath));
    }
}

TEST_P(SettingsFaults, FreshFileIsWrittenTheNextTime) {
    for (size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        Scene scene;
        const bool failed = SaveWithFault(scene, n, GetParam());
        if (!failed)
            break;
        scene.Save();
        EXPECT_TRUE(scene.files.Contents(SettingsPath).starts_with("# Tamblin\r\n"));
    }
}

TEST_P(SettingsFaults, ReadingNeverThrowsAndNeverWrites) {
    for (size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        Scene scene;
        scene.files.AddFile(SettingsPath, "VERSION=Ver." TAMBLIN_VERSION
                                          "\r\nVMRFOLDER=C:\\Host\r\n"
                                          "DEFAULT=C:\\Host\r\nVIEWFOLDER=C:\\Host\\\r\n");
        const auto before = scene.files.Snapshot();
        scene.files.ForgetOperations();
        scene.files.FailOperation(n, GetParam());
        for (const auto key : {setting_keys::Version, setting_keys::VmrFolder,
                               setting_keys::Default, setting_keys::ViewFolder})
            EXPECT_NO_THROW(scene.file.ReadSetting(key));
        EXPECT_EQ(scene.files.Snapshot(), before);
        if (scene.files.OperationCount() < n)
            break;
    }
}

TEST(SettingsReading, GoesOnBehindAViewFolderThatVanishesMeanwhile) {
    SettingsFaults::Scene scene;
    scene.files.AddFile(SettingsPath, "VIEWFOLDER=C:\\Host\r\nKVAOPTION=ON\r\n");
    scene.files.FailOperation(4, ErrorNumber::PathNotFound);
    EXPECT_FALSE(scene.file.ReadSetting(setting_keys::ViewFolder));
    EXPECT_EQ(scene.files.Log().back(), L"List C:\\Host");
    scene.file.ReadSetting(setting_keys::KvaOption);
    EXPECT_EQ(scene.state.KvaOption, L"ON");
}

INSTANTIATE_TEST_SUITE_P(Errors, SettingsFaults, testing::ValuesIn(SettingsErrors),
                         [](const auto& error) {
                             return "Error" + std::to_string(static_cast<int>(error.param));
                         });

} // namespace
} // namespace tamblin
