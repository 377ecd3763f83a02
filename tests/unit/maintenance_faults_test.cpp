// Every file operation of every maintenance command fails in turn, with every error that a drive
// can give; afterwards nothing may be lost beyond what the command's own steps say.

#include "maintenance/character_menu.h"
#include "maintenance/folder_check.h"
#include "maintenance/launch.h"
#include "maintenance/start_up_file.h"
#include "maintenance/uninstall.h"
#include "maintenance/updates.h"
#include "unit/maintenance_scene.h"

namespace tamblin {
namespace {

// What the shell fails to do it tells nobody.
bool IsDoneByTheShell(const std::wstring& operation) {
    return StartsWith(operation, L"DeleteTree ") || StartsWith(operation, L"MoveToRecycleBin ");
}

class MaintenanceFaults : public testing::TestWithParam<ErrorNumber> {
  protected:
    // Runs the command on fresh scenes, its first operation failing, then its second, and so on,
    // until none fails. `check` is told which one has failed, by its line in the log. With
    // IsMissing a file on a drive that is not ready is a missing one, and the command says nothing.
    enum class NotReady { Fails, IsMissing };
    template <typename Scene, typename Command, typename Check>
    static void ForEachOperation(Command&& command, Check&& check,
                                 NotReady notReady = NotReady::Fails) {
        for (size_t n = 1;; ++n) {
            Scene scene;
            scene.files.FailOperation(n, GetParam());
            const auto failure = ErrorOf([&] { command(scene); });
            if (scene.files.OperationCount() < n) {
                EXPECT_GT(n, 1U);
                EXPECT_FALSE(failure.has_value());
                return;
            }
            SCOPED_TRACE(testing::Message() << "operation " << n);
            const std::wstring failed = scene.files.Log().at(n - 1);
            if (notReady == NotReady::IsMissing && GetParam() == ErrorNumber::DiskNotReady &&
                StartsWith(failed, L"Find ")) {
                EXPECT_FALSE(failure.has_value());
                EXPECT_THAT(scene.messages.shown, IsEmpty());
                continue;
            }
            if (IsDoneByTheShell(failed))
                EXPECT_FALSE(failure.has_value());
            else
                EXPECT_EQ(failure, GetParam());
            check(scene, failed);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Numbers, MaintenanceFaults,
                         testing::Values(ErrorNumber::OutOfMemory, ErrorNumber::FileNotFound,
                                         ErrorNumber::DeviceIo, ErrorNumber::FileAlreadyExists,
                                         ErrorNumber::DiskFull, ErrorNumber::DeviceUnavailable,
                                         ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                         ErrorNumber::PathFileAccess, ErrorNumber::PathNotFound),
                         [](const auto& instance) {
                             return "Error" + std::to_string(static_cast<int>(instance.param));
                         });

struct OneCharacter : MaintenanceScene {
    OneCharacter() {
        ShowSelected(L"abc");
        before = files.Snapshot();
    }
    MemoryFileSystem::Tree before;
};

// The former start-up file stands under one of its names, under its own unless set aside.
void ExpectFormerStartUpFile(const MaintenanceScene& scene) {
    const bool setAside = scene.files.Exists(scene.Backup());
    const std::wstring place = setAside ? scene.Backup() : L"C:\\VMR\\ombrel.rc";
    ASSERT_TRUE(scene.files.Exists(place));
    EXPECT_EQ(scene.files.Contents(place), scene.formerStartUp);
}

// All files but the start-up file's two are as they were.
void ExpectOtherFilesKept(const OneCharacter& scene) {
    auto before = scene.before;
    auto after = scene.files.Snapshot();
    for (auto* tree : {&before, &after}) {
        tree->erase(L"C:\\VMR\\ombrel.rc");
        tree->erase(L"C:\\VMR\\ombrel_rc.bak");
    }
    EXPECT_EQ(after, before);
}

TEST_P(MaintenanceFaults, LaunchNeverLosesTheFormerStartUpFile) {
    ForEachOperation<OneCharacter>(
        [](OneCharacter& scene) {
            scene.starter.onStart = [&](const std::wstring&) {
                ExpectFormerStartUpFile(scene);
            };
            LaunchCharacter(scene.model, scene.platform);
        },
        [](OneCharacter& scene, const std::wstring&) {
            ExpectFormerStartUpFile(scene);
            ExpectOtherFilesKept(scene);
            EXPECT_THAT(scene.messages.shown, IsEmpty());
        },
        NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, LaunchStartsTheHostOnlyAfterTheTemporaryFileStands) {
    ForEachOperation<OneCharacter>(
        [](OneCharacter& scene) { LaunchCharacter(scene.model, scene.platform); },
        [](OneCharacter& scene, const std::wstring&) {
            const bool goingBack = scene.files.CountLogged(L"Delete ") > 0;
            EXPECT_EQ(!scene.starter.started.empty(), goingBack);
        },
        NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, PermanentEditLosesTheFileOnlyBetweenItsDeletionAndItsWriting) {
    ForEachOperation<OneCharacter>(
        [](OneCharacter& scene) { SetStartUpCharacter(scene.model, scene.platform); },
        [](OneCharacter& scene, const std::wstring& failed) {
            if (StartsWith(failed, L"Write "))
                EXPECT_FALSE(scene.files.Exists(L"C:\\VMR\\ombrel.rc"));
            else
                ExpectFormerStartUpFile(scene);
            ExpectOtherFilesKept(scene);
            EXPECT_THAT(scene.messages.shown, IsEmpty());
        });
}

TEST_P(MaintenanceFaults, ReadmesFoundBeforeTheFailureAreOpen) {
    struct Scene : OneCharacter {
        Scene() {
            for (const wchar_t* ending : {L".txt", L"-X.txt", L".htm", L".html"})
                files.AddFile(L"C:\\VMR\\abc\\abc" + std::wstring(ending));
        }
    };
    ForEachOperation<Scene>([](Scene& scene) { ShowReadme(scene.model, scene.platform); },
                            [](Scene& scene, const std::wstring&) {
                                EXPECT_EQ(scene.shell.opened.size() + 1,
                                          scene.files.OperationCount());
                            },
                            NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, MenuFailsWithoutTouchingAnything) {
    ForEachOperation<OneCharacter>(
        [](OneCharacter& scene) { CharacterMenu(scene.model, scene.platform); },
        [](OneCharacter& scene, const std::wstring&) {
            EXPECT_EQ(scene.files.Snapshot(), scene.before);
        },
        NotReady::IsMissing);
}

struct ThreeCharacters : MaintenanceScene {
    ThreeCharacters() {
        for (const wchar_t* name : {L"a", L"b", L"c"})
            AddCharacter(name);
        Show();
        SelectCharacters({L"a", L"b"});
        for (const wchar_t* kept :
             {L"ombrel.exe", L"ombrel.rc", L"a.obl", L"c.obl", L"c\\face.bmp"})
            expected[base + kept] = files.Contents(base + kept);
        expected[L"C:\\VMR\\c\\"];
    }
    MemoryFileSystem::Tree expected; // once a and b are gone, but for a.obl
};

TEST_P(MaintenanceFaults, UninstallTouchesOnlyWhatWasSelected) {
    ForEachOperation<ThreeCharacters>(
        [](ThreeCharacters& scene) { Uninstall(scene.model, scene.state, scene.platform); },
        [](ThreeCharacters& scene, const std::wstring& failed) {
            for (const wchar_t* name : {L"a", L"b"})
                if (failed == L"DeleteTree C:\\VMR\\" + std::wstring(name)) {
                    scene.expected[scene.base + name + L"\\"];
                    scene.expected[scene.base + name + L"\\face.bmp"] =
                        scene.files.Contents(scene.base + name + L"\\face.bmp");
                }
            const bool atDefinitionFile =
                StartsWith(failed, L"Delete ") || StartsWith(failed, L"Find ");
            if (atDefinitionFile || failed == L"DeleteTree C:\\VMR\\b")
                scene.expected[L"C:\\VMR\\b.obl"] = "definition";
            EXPECT_EQ(scene.files.Snapshot(L"C:\\VMR"), scene.expected);
            EXPECT_EQ(scene.messages.shown.size(), atDefinitionFile ? 1U : 2U);
        });
}

struct NewHostProgram : OneCharacter {
    NewHostProgram() {
        files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
        model.enabled[Command::UpdateHost] = true;
        before = files.Snapshot();
    }
};

TEST_P(MaintenanceFaults, UpdateOfTheHostProgramLeavesItOrReplacesIt) {
    ForEachOperation<NewHostProgram>(
        [](NewHostProgram& scene) { UpdateHostProgram(scene.model, scene.platform); },
        [](NewHostProgram& scene, const std::wstring& failed) {
            EXPECT_EQ(scene.files.Snapshot(), scene.before);
            EXPECT_TRUE(scene.model.enabled[Command::UpdateHost]);
            EXPECT_EQ(scene.messages.shown.size(), StartsWith(failed, L"Copy ") ? 1U : 0U);
        },
        NotReady::IsMissing);
}

struct DeliveredUpdate : MaintenanceScene {
    DeliveredUpdate() {
        files.AddFile(L"C:\\VMR\\abc\\dat\\obl\\abc.obl", "new");
        ShowSelected(L"abc");
        model.definitionUpdateReady = model.enabled[Command::UpdateDefinition] = true;
        before = files.Snapshot();
    }
    MemoryFileSystem::Tree before;
};

TEST_P(MaintenanceFaults, UpdateOfADefinitionFileLeavesItOrReplacesIt) {
    ForEachOperation<DeliveredUpdate>(
        [](DeliveredUpdate& scene) { UpdateDefinitionFile(scene.model, scene.platform); },
        [](DeliveredUpdate& scene, const std::wstring& failed) {
            const bool copied = StartsWith(failed, L"SetCurrentFolder ");
            if (copied)
                scene.before[L"C:\\VMR\\abc.obl"] = "new";
            EXPECT_EQ(scene.files.Snapshot(), scene.before);
            EXPECT_EQ(scene.model.enabled[Command::UpdateDefinition], !copied);
        },
        NotReady::IsMissing);
}

struct ThreeOrphans : MaintenanceScene {
    ThreeOrphans() {
        for (const wchar_t* orphan : {L"x.obl", L"y.obl", L"z.obl"})
            files.AddFile(base + orphan);
        AddCharacter(L"abc");
        Show();
        before = files.Snapshot();
    }
    FolderCheck check{platform};
    MemoryFileSystem::Tree before;
};

TEST_P(MaintenanceFaults, CheckNeverChangesTheDisk) {
    ForEachOperation<ThreeOrphans>([](ThreeOrphans& scene) { scene.check.RunCheck(scene.model); },
                                   [](ThreeOrphans& scene, const std::wstring&) {
                                       EXPECT_EQ(scene.files.Snapshot(), scene.before);
                                   });
}

TEST_P(MaintenanceFaults, DeletionOfOrphansKeepsTheOneThatFailedAndThoseBehindIt) {
    struct Scene : ThreeOrphans {
        Scene() {
            check.RunCheck(model);
            files.ForgetOperations();
        }
    };
    ForEachOperation<Scene>(
        [](Scene& scene) { scene.check.DeleteDefinitionFiles(); },
        [](Scene& scene, const std::wstring&) {
            const size_t deleted = scene.files.OperationCount() - 1;
            for (size_t index = 0; index < deleted; ++index)
                scene.before.erase(scene.base + scene.check.definitionFiles[index]);
            EXPECT_EQ(scene.files.Snapshot(), scene.before);
            EXPECT_THAT(scene.check.definitionFiles.Entries(),
                        ElementsAre(L"x.obl", L"y.obl", L"z.obl"));
        });
}

TEST_P(MaintenanceFaults, RecyclingKeepsWhatTheShellCouldNotMove) {
    struct Scene : MaintenanceScene {
        Scene() {
            for (const wchar_t* folder : {L"x", L"y", L"z"})
                files.AddFile(base + folder + L"\\a", "1");
            Show();
            check.RunCheck(model);
            for (size_t index = 0; index < check.folders.Size(); ++index)
                check.folders.Select(index);
            files.ForgetOperations();
        }
        FolderCheck check{platform};
    };
    ForEachOperation<Scene>([](Scene& scene) { scene.check.MoveFoldersToRecycleBin(); },
                            [](Scene& scene, const std::wstring& failed) {
                                EXPECT_EQ(scene.shell.Recycled().size(), 2U);
                                const std::wstring kept =
                                    failed.substr(std::wstring(L"MoveToRecycleBin ").size());
                                EXPECT_EQ(scene.files.Contents(kept + L"\\a"), "1");
                            });
}

// Runs the command on fresh scenes, the power going during its first operation, then during its
// second, and so on.
template <typename Scene, typename Command, typename Check>
void ForEachPowerCut(Command&& command, Check&& check) {
    size_t n = 1;
    for (bool cut = true; cut; ++n) {
        Scene scene;
        scene.files.CutPower(n);
        try {
            command(scene);
            cut = false;
        } catch (const MemoryFileSystem::PowerCut&) {
            scene.files.ReturnPower();
            SCOPED_TRACE(testing::Message() << "operation " << n);
            check(scene);
        }
    }
    EXPECT_GT(n, 3U);
}

TEST(PowerCut, DuringALaunchKeepsTheFormerStartUpFile) {
    ForEachPowerCut<OneCharacter>(
        [](OneCharacter& scene) { LaunchCharacter(scene.model, scene.platform); },
        [](OneCharacter& scene) {
            ExpectFormerStartUpFile(scene);
            ExpectOtherFilesKept(scene);
        });
}

TEST(PowerCut, DuringAnUpdateLeavesTheFormerProgramOrTheNewOne) {
    ForEachPowerCut<NewHostProgram>(
        [](NewHostProgram& scene) { UpdateHostProgram(scene.model, scene.platform); },
        [](NewHostProgram& scene) {
            auto after = scene.before;
            after[L"C:\\VMR\\ombrel.exe"] = "new";
            EXPECT_TRUE(scene.files.Snapshot() == scene.before || scene.files.Snapshot() == after);
        });
}

TEST(PowerCut, DuringAnUninstallTouchesOnlyWhatWasSelected) {
    ForEachPowerCut<ThreeCharacters>(
        [](ThreeCharacters& scene) { Uninstall(scene.model, scene.state, scene.platform); },
        [](ThreeCharacters& scene) {
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

TEST(UnderAScanner, NobodyWaitsLongerThanFiveSeconds) {
    NewHostProgram scene;
    scene.files.HoldFor(L"C:\\VMR\\ombrel.exe", 100'000);
    EXPECT_EQ(ErrorOf([&] { UpdateHostProgram(scene.model, scene.platform); }),
              ErrorNumber::PermissionDenied);
    EXPECT_EQ(scene.files.Snapshot(), scene.before);
    EXPECT_GE(scene.files.Waited(), Patience::usual);
    EXPECT_LE(scene.files.Waited(), Patience::usual + Patience::Milliseconds{100});
}

TEST(FullDisk, LaunchKeepsTheFormerStartUpFileAside) {
    OneCharacter scene;
    scene.files.SetCapacity(L"C:", 0);
    EXPECT_EQ(ErrorOf([&] { LaunchCharacter(scene.model, scene.platform); }),
              ErrorNumber::DiskFull);
    ExpectFormerStartUpFile(scene);
    EXPECT_THAT(scene.starter.started, IsEmpty());
}

TEST(FullDisk, UpdateKeepsTheFormerProgramAndSaysNothingOfCompletion) {
    NewHostProgram scene;
    const auto former = scene.files.Snapshot();
    scene.files.SetCapacity(L"C:", 0);
    EXPECT_EQ(ErrorOf([&] { UpdateHostProgram(scene.model, scene.platform); }),
              ErrorNumber::DiskFull);
    EXPECT_EQ(scene.messages.shown.size(), 1U);
    EXPECT_EQ(scene.files.Contents(L"C:\\Browsed\\ombrel.exe"), "new");
    EXPECT_EQ(scene.files.Snapshot(), former);
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
