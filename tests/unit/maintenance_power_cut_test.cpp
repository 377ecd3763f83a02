// Maintenance commands while the power goes and under a virus scanner.
#include "unit/maintenance_faults_scene.h"

namespace tamblin {
namespace {

TEST(PowerCut, DuringALaunchKeepsTheFormerStartUpFile) {
    ForEachPowerCut<OneCharacter>(
        3, [](auto& scene) { LaunchCharacter(scene.model, scene.platform); },
        [](auto& scene) {
            ExpectFormerStartUpFile(scene);
            ExpectOtherFilesKept(scene);
        });
}

TEST(PowerCut, DuringAnUpdateLeavesTheFormerProgramOrTheNewOne) {
    ForEachPowerCut<NewHostProgram>(
        2, [](auto& scene) { UpdateHostProgram(scene.model, scene.platform); },
        [](auto& scene) {
            auto after = scene.before;
            after[L"C:\\VMR\\ombrel.exe"] = "new";
            EXPECT_TRUE(scene.files.Snapshot() == scene.before || scene.files.Snapshot() == after);
        });
}

TEST(PowerCut, DuringAnUninstallTouchesOnlyWhatWasSelected) {
    ForEachPowerCut<ThreeCharacters>(
        3, [](auto& scene) { Uninstall(scene.model, scene.state, scene.platform); },
        [](auto& scene) {
            const auto after = scene.files.Snapshot(L"C:\\VMR");
            for (const auto& [path, bytes] : scene.expected)
                EXPECT_EQ(after.count(path), 1U);
            // A folder that is still there has its definition file.
            if (after.contains(L"C:\\VMR\\b\\")) {
                EXPECT_EQ(after.count(L"C:\\VMR\\b.obl"), 1U);
            }
        });
}

// A scanner holds a file that a command is about to use, with and without letting others delete it.
TEST(UnderAScanner, EveryCommandWaits) {
    for (const auto shares :
         {MemoryFileSystem::HolderShares::Nothing, MemoryFileSystem::HolderShares::Deletion}) {
        OneCharacter launched;
        launched.files.HoldFor(L"C:\\VMR\\ombrel.rc", 40, shares);
        launched.starter.onStart = [&](const std::wstring&) {
            launched.files.HoldFor(L"C:\\VMR\\ombrel.rc", 40, shares);
        };
        LaunchCharacter(launched.model, launched.platform);
        EXPECT_EQ(launched.files.Contents(L"C:\\VMR\\ombrel.rc"), launched.formerStartUp);
        EXPECT_FALSE(launched.files.Exists(launched.Backup()));

        OneCharacter edited;
        edited.files.HoldFor(L"C:\\VMR\\ombrel.rc", 40, shares);
        SetStartUpCharacter(edited.model, edited.platform);
        EXPECT_EQ(edited.files.Contents(L"C:\\VMR\\ombrel.rc"), "H001currentobl=abc.obl\r\n");

        NewHostProgram updated;
        updated.files.HoldFor(L"C:\\VMR\\ombrel.exe", 40, shares);
        updated.files.HoldFor(L"C:\\Browsed\\ombrel.exe", 40, shares);
        UpdateHostProgram(updated.model, updated.platform);
        EXPECT_EQ(updated.files.Contents(L"C:\\VMR\\ombrel.exe"), "new");

        OneCharacter uninstalled;
        uninstalled.files.HoldFor(L"C:\\VMR\\abc.obl", 40, shares);
        Uninstall(uninstalled.model, uninstalled.state, uninstalled.platform);
        EXPECT_FALSE(uninstalled.files.Exists(L"C:\\VMR\\abc"));
        EXPECT_GT(launched.files.Waited() + edited.files.Waited(), Patience::Milliseconds{0});
    }
}

TEST(UninstallFaults, ListIsEmptyWhenItCannotBeReadAnew) {
    ThreeCharacters scene;
    scene.messages.onShow = [&](const Box& box) {
        if (box.kind == MessageBoxesFake::Kind::Inform)
            scene.files.DeleteTree(L"C:\\VMR");
    };
    EXPECT_EQ(ErrorOf([&] { Uninstall(scene.model, scene.state, scene.platform); }),
              ErrorNumber::PathNotFound);
    EXPECT_TRUE(scene.model.installed.names.Empty());
    EXPECT_FALSE(scene.model.enabled[Command::Uninstall]);
    EXPECT_FALSE(scene.model.enabled[Command::DeselectInstalled]);
}

} // namespace
} // namespace tamblin
