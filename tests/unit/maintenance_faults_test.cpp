// Every file operation of every maintenance command fails in turn, with every error that a drive
// can give; afterwards nothing may be lost beyond what the command's own steps say.

#include "unit/maintenance_faults_scene.h"

namespace tamblin {
namespace {

// What the shell fails to do it tells nobody.
bool IsDoneByTheShell(const std::wstring& operation) {
    return operation.starts_with(L"DeleteTree ") || operation.starts_with(L"MoveToRecycleBin ");
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
                failed.starts_with(L"Find ")) {
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

TEST_P(MaintenanceFaults, LaunchNeverLosesTheFormerStartUpFile) {
    ForEachOperation<OneCharacter>(
        [](auto& scene) {
            scene.starter.onStart = [&](const std::wstring&) {
                ExpectFormerStartUpFile(scene);
            };
            LaunchCharacter(scene.model, scene.platform);
        },
        [](auto& scene, const std::wstring&) {
            ExpectFormerStartUpFile(scene);
            ExpectOtherFilesKept(scene);
            EXPECT_THAT(scene.messages.shown, IsEmpty());
            // The host is started only after the temporary file stands.
            const bool goingBack = scene.files.CountLogged(L"Delete ") > 0;
            EXPECT_EQ(!scene.starter.started.empty(), goingBack);
        },
        NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, PermanentEditLosesTheFileOnlyBetweenItsDeletionAndItsWriting) {
    ForEachOperation<OneCharacter>(
        [](auto& scene) { SetStartUpCharacter(scene.model, scene.platform); },
        [](auto& scene, const std::wstring& failed) {
            if (failed.starts_with(L"Write "))
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
    ForEachOperation<Scene>([](auto& scene) { ShowReadme(scene.model, scene.platform); },
                            [](auto& scene, const std::wstring&) {
                                EXPECT_EQ(scene.shell.opened.size() + 1,
                                          scene.files.OperationCount());
                            },
                            NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, MenuFailsWithoutTouchingAnything) {
    ForEachOperation<OneCharacter>(
        [](auto& scene) { CharacterMenu(scene.model, scene.platform); },
        [](auto& scene, const std::wstring&) { EXPECT_EQ(scene.files.Snapshot(), scene.before); },
        NotReady::IsMissing);
}

TEST_P(MaintenanceFaults, UninstallTouchesOnlyWhatWasSelected) {
    ForEachOperation<ThreeCharacters>(
        [](auto& scene) { Uninstall(scene.model, scene.state, scene.platform); },
        [](auto& scene, const std::wstring& failed) {
            for (const wchar_t* name : {L"a", L"b"})
                if (failed == L"DeleteTree C:\\VMR\\" + std::wstring(name)) {
                    scene.expected[scene.base + name + L"\\"];
                    scene.expected[scene.base + name + L"\\face.bmp"] =
                        scene.files.Contents(scene.base + name + L"\\face.bmp");
                }
            const bool atDefinitionFile =
                failed.starts_with(L"Delete ") || failed.starts_with(L"Find ");
            if (atDefinitionFile || failed == L"DeleteTree C:\\VMR\\b")
                scene.expected[L"C:\\VMR\\b.obl"] = "definition";
            EXPECT_EQ(scene.files.Snapshot(L"C:\\VMR"), scene.expected);
            EXPECT_EQ(scene.messages.shown.size(), atDefinitionFile ? 1U : 2U);
        });
}

TEST_P(MaintenanceFaults, UpdateOfTheHostProgramLeavesItOrReplacesIt) {
    ForEachOperation<NewHostProgram>(
        [](auto& scene) { UpdateHostProgram(scene.model, scene.platform); },
        [](auto& scene, const std::wstring& failed) {
            EXPECT_EQ(scene.files.Snapshot(), scene.before);
            EXPECT_TRUE(scene.model.enabled[Command::UpdateHost]);
            EXPECT_EQ(scene.messages.shown.size(), failed.starts_with(L"Copy ") ? 1U : 0U);
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
        [](auto& scene) { UpdateDefinitionFile(scene.model, scene.platform); },
        [](auto& scene, const std::wstring& failed) {
            const bool copied = failed.starts_with(L"SetCurrentFolder ");
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

TEST_P(MaintenanceFaults, DeletionOfOrphansKeepsTheOneThatFailedAndThoseBehindIt) {
    struct Scene : ThreeOrphans {
        Scene() {
            check.RunCheck(model);
            files.ForgetOperations();
        }
    };
    ForEachOperation<Scene>(
        [](auto& scene) { scene.check.DeleteDefinitionFiles(); },
        [](auto& scene, const std::wstring&) {
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
    ForEachOperation<Scene>([](auto& scene) { scene.check.MoveFoldersToRecycleBin(); },
                            [](auto& scene, const std::wstring& failed) {
                                EXPECT_EQ(scene.shell.recycled.size(), 2U);
                                const std::wstring kept =
                                    failed.substr(std::wstring(L"MoveToRecycleBin ").size());
                                EXPECT_EQ(scene.files.Contents(kept + L"\\a"), "1");
                            });
}

} // namespace
} // namespace tamblin
