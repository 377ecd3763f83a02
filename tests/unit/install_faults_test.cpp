// Installs during which the n-th operation fails, a deletion by the shell among them, or the power
// goes. Whatever fails: no file of the host is lost, none of a package that was to be installed, no
// archive; the main window can be used again, nothing of the program keeps the staging folder from
// being deleted, and the same install without the fault completes what was begun.

#include <algorithm>

#include "install/package_staging.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr ErrorNumber InstallErrors[] = {ErrorNumber::BadFileName,      ErrorNumber::FileNotFound,
                                         ErrorNumber::DeviceIo,         ErrorNumber::DiskFull,
                                         ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                         ErrorNumber::PathFileAccess,   ErrorNumber::PathNotFound};

const std::vector<PackedFile> Packed = {{L"mio.obl", "mio 1"},
                                        {L"mio\\face.bmp", "mio 2"},
                                        {L"mio\\readonly", "mio 3", {.readOnly = true}},
                                        {L"mio\\dat\\voice.wav", "mio 4"},
                                        {L"mio\\mio-X.txt", "mio 5"},
                                        {L"mio\\KVA.DEF", "a,b,2\r\nc,d,2\r\n"},
                                        {L"old.obl", "mio 7"},
                                        {L"abc.obl", "installed"},
                                        {L"abc\\x", "installed"},
                                        {L"loose\\x", "no character"},
                                        {L"readme.txt", "no character"}};
constexpr char FormerDefinitions[] = "#mine\r\na,b,1\r\n";
constexpr char MergedDefinitions[] = "#mine\r\na,b,2\r\nc,d,2\r\n";

// A host with a character, launcher definitions and a stray definition file of an earlier mio.
struct FaultScene : MainWindowScene {
    FaultScene() {
        AddCharacter(files, L"C:\\Host", L"abc");
        files.AddFile(L"C:\\Host\\old.obl", "to be replaced");
        files.AddFile(L"C:\\Host\\kva.def", FormerDefinitions);
        files.AddFile(L"C:\\Host\\kva.tmp", "replaced by the next merge");
        files.AddFile(L"C:\\TAMTMP\\left\\over");
        state.KvaOption = L"ON";
        AddPackage(L"p.lzh", Packed);
        Open();
        Select(model.browser.Files(), {L"p.lzh"});
        hostBefore = files.Snapshot(L"C:\\Host");
    }

    // Installs with the n-th operation failing.
    std::optional<ErrorNumber> InstallWithFault(size_t n, ErrorNumber error) {
        files.ForgetOperations();
        files.FailOperation(n, error);
        const auto failure = ErrorOf([&] { Install(model, state, fake.platform, screen); });
        faultReached = files.OperationCount() >= n;
        if (faultReached)
            shellFailed = files.Log()[n - 1].starts_with(L"DeleteTree ");
        files.FailNothing();
        return failure;
    }

    std::optional<ErrorNumber> InstallAgain() {
        main.Activate();
        Select(model.browser.Files(), {L"p.lzh"});
        return ErrorOf([&] { Install(model, state, fake.platform, screen); });
    }

    bool Holds(const std::wstring& path, std::string_view bytes) const {
        return files.Exists(path) && files.Contents(path) == bytes;
    }

    MemoryFileSystem::Tree hostBefore;
    bool faultReached = false;
    bool shellFailed = false;
};

void ExpectHostAsItWas(const FaultScene& scene) {
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\ombrel.exe", "host"));
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\ombrel.rc", "H001currentobl=abc.obl\r\n"));
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\abc.obl", "definition"));
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\abc\\face.bmp", "picture"));
    EXPECT_TRUE(scene.Holds(L"C:\\Packs\\p.lzh", "archive"));
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\kva.def", FormerDefinitions) ||
                (scene.Holds(L"C:\\Host\\kva.def", MergedDefinitions) &&
                 scene.Holds(L"C:\\Host\\kva.tmp", FormerDefinitions)));
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\old.obl", "to be replaced") ||
                scene.Holds(L"C:\\Host\\old.obl", "mio 7"));
}

// Once the user has said yes, each file of the character is in the host or still staged.
void ExpectPackageComplete(const FaultScene& scene) {
    for (const PackedFile& file : Packed) {
        const bool goesToTheHost = file.path.starts_with(L"mio") || file.path.starts_with(L"old");
        if (!goesToTheHost)
            continue;
        EXPECT_TRUE(scene.Holds(L"C:\\Host\\" + file.path, file.bytes) ||
                    scene.Holds(L"C:\\TAMTMP\\" + file.path, file.bytes))
            << std::string(file.path.begin(), file.path.end());
    }
}

void ExpectInstalled(const FaultScene& scene) {
    for (const PackedFile& file : Packed)
        if (file.path.starts_with(L"mio")) {
            EXPECT_TRUE(scene.Holds(L"C:\\Host\\" + file.path, file.bytes));
        }
    EXPECT_TRUE(scene.Holds(L"C:\\Host\\kva.def", MergedDefinitions));
    EXPECT_FALSE(scene.files.Exists(L"C:\\TAMTMP"));
    EXPECT_TRUE(scene.screen.enabled);
}

void ExpectUntouched(const FaultScene& scene) {
    EXPECT_EQ(scene.files.Snapshot(L"C:\\Host"), scene.hostBefore);
}

// Installs with each operation failing in turn, and then without a fault.
void ForEachFault(ErrorNumber error, const std::function<void(FaultScene&)>& prepare,
                  const std::function<void(const FaultScene&)>& check,
                  const std::function<void(FaultScene&)>& makeGood) {
    for (size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        FaultScene scene;
        prepare(scene);
        scene.InstallWithFault(n, error);
        EXPECT_TRUE(scene.screen.enabled);
        check(scene);
        if (!scene.faultReached)
            break;
        makeGood(scene);
        EXPECT_EQ(scene.InstallAgain(), std::nullopt);
        ExpectInstalled(scene);
    }
}

class InstallFaults : public testing::TestWithParam<ErrorNumber> {};

TEST_P(InstallFaults, LoseNothingOfTheHostNorOfThePackage) {
    size_t n = 1;
    for (;; ++n) {
        SCOPED_TRACE(n);
        FaultScene scene;
        const auto failure = scene.InstallWithFault(n, GetParam());
        EXPECT_TRUE(scene.screen.enabled);
        ExpectHostAsItWas(scene);
        if (!scene.faultReached) {
            EXPECT_FALSE(failure);
            ExpectInstalled(scene);
            break;
        }
        if (!scene.screen.confirmations.empty())
            ExpectPackageComplete(scene);
        if (failure) {
            EXPECT_EQ(failure, scene.shellFailed ? ErrorNumber::PathFileAccess : GetParam());
        }
        if (scene.shellFailed && failure) {
            EXPECT_TRUE(scene.screen.confirmations.empty());
        }
        EXPECT_EQ(scene.files.HeldFolder(), L"");
        if (n + 1 < scene.files.OperationCount()) { // unless going there is what failed
            EXPECT_EQ(scene.files.CurrentFolder(), L"C:\\Tamblin");
        }
    }
    EXPECT_GT(n, 40U);
}

TEST_P(InstallFaults, DoNotKeepTheNextInstallFromSucceeding) {
    ForEachFault(
        GetParam(), [](FaultScene&) {}, [](const FaultScene&) {}, [](FaultScene&) {});
}

TEST(InstallPowerCut, LeavesTheFormerFilesOrTheNewOnesWhole) {
    ForEachPowerCut<FaultScene>(
        40,
        [](FaultScene& scene) {
            Install(scene.model, scene.state, scene.fake.platform, scene.screen);
        },
        [](FaultScene& scene) {
            ExpectHostAsItWas(scene);
            // Contents that are new to the host are not flushed one by one, and a read-only file is
            // nobody's to replace.
            if (scene.files.Exists(L"C:\\Host\\mio.obl") ||
                scene.files.Exists(L"C:\\Host\\mio\\readonly"))
                return;
            EXPECT_EQ(scene.InstallAgain(), std::nullopt);
            ExpectInstalled(scene);
        });
}

// Every new file is held for a while, as by a virus scanner.
TEST(InstallUnderAScanner, Succeeds) {
    for (const auto shares :
         {MemoryFileSystem::HolderShares::Nothing, MemoryFileSystem::HolderShares::Deletion}) {
        FaultScene scene;
        const auto unpack = scene.fake.unlha.onUnpack;
        scene.fake.unlha.onUnpack = [&](const std::wstring& archive) {
            const auto result = unpack(archive);
            for (const PackedFile& file : Packed)
                scene.files.HoldFor(L"C:\\TAMTMP\\" + file.path, 30, shares);
            return result;
        };
        EXPECT_EQ(scene.InstallAgain(), std::nullopt);
        ExpectInstalled(scene);
        EXPECT_GT(scene.files.Waited().count(), 0);
    }
}

TEST(InstallWithoutAccess, LeavesTheHostFolderAsItWas) {
    for (const wchar_t* denied : {L"C:\\Host", L"C:\\TAMTMP", L"C:\\Host\\mio"}) {
        FaultScene scene;
        scene.files.AddFolder(L"C:\\Host\\mio");
        const auto before = scene.files.Snapshot(L"C:\\Host");
        scene.screen.onConfirmation = [&] {
            scene.files.DenyAccess(denied);
        };
        EXPECT_EQ(scene.InstallAgain(), ErrorNumber::PathFileAccess);
        EXPECT_EQ(scene.files.Snapshot(L"C:\\Host"), before);
        EXPECT_TRUE(scene.screen.enabled);
        EXPECT_EQ(scene.files.CurrentFolder(), L"C:\\Tamblin");
    }
}

TEST_P(InstallFaults, DuringACancelledInstallLeaveTheHostUntouched) {
    ForEachFault(
        GetParam(), [](FaultScene& scene) { scene.screen.answer = AnswerCancel; }, ExpectUntouched,
        [](FaultScene& scene) { scene.screen.answer = AnswerInstall; });
}

TEST_P(InstallFaults, WhileADamagedArchiveIsClearedLeaveTheHostUntouched) {
    ForEachFault(
        GetParam(), [](FaultScene& scene) { scene.AddPackage(L"p.lzh", Packed, 1); },
        [](const FaultScene& scene) {
            ExpectUntouched(scene);
            EXPECT_TRUE(scene.screen.confirmations.empty());
        },
        [](FaultScene& scene) { scene.AddPackage(L"p.lzh", Packed); });
}

TEST_P(InstallFaults, OfAClearingDoNotKeepTheNextOneFromSucceeding) {
    for (size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        FaultScene scene;
        scene.files.AddFile(L"C:\\TAMTMP\\a\\b\\readonly", "", {.readOnly = true});
        scene.files.ForgetOperations();
        scene.files.FailOperation(n, GetParam());
        const auto failure = ErrorOf([&] { ClearStagingFolder(L"C:\\Host", scene.fake.platform); });
        const bool reached = scene.files.OperationCount() >= n;
        scene.files.FailNothing();
        EXPECT_EQ(failure.has_value(), reached);
        ExpectUntouched(scene);
        if (!reached)
            break;
        scene.main.PrepareStagingPressed();
        EXPECT_TRUE(scene.files.Snapshot(L"C:\\TAMTMP").empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, InstallFaults, testing::ValuesIn(InstallErrors),
                         [](const auto& error) {
                             return "Error" + std::to_string(static_cast<int>(error.param));
                         });

} // namespace
} // namespace tamblin
