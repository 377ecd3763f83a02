// Every command while the user may not use one of the folders, each in turn: nothing is lost, every
// file is the former one or the one that the command was to make, the failure is 75 or none, and
// once the folder may be used the same command finishes the job.

#include <algorithm>

#include "maintenance/folder_check.h"
#include "maintenance/launch.h"
#include "maintenance/start_up_file.h"
#include "maintenance/uninstall.h"
#include "maintenance/updates.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

struct DeniedScene : MainWindowScene {
    DeniedScene() {
        AddCharacter(files, L"C:\\Host", L"abc");
        files.AddFile(L"C:\\Host\\abc\\dat\\obl\\abc.obl", "delivered");
        files.AddFile(L"C:\\Host\\abc\\abc.txt", "readme");
        files.AddFile(L"C:\\Host\\ombrel.rc", "former");
        files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
        files.AddFile(L"C:\\Host\\orphan.obl", "without a folder");
        files.AddFile(L"C:\\Host\\lone\\deeper\\a", "without a definition");
        files.AddFile(L"C:\\Packs\\ombrel.exe", "newer");
        files.AddFile(L"C:\\Tamblin\\tamb.ini", "VERSION=Ver.0.60\r\n");
        files.AddFile(L"C:\\TAMTMP\\left\\over");
        state.KvaOption = L"ON";
        AddPackage(L"p.lzh", {{L"mio.obl", "mio 1"},
                              {L"mio\\dat\\voice.wav", "mio 2"},
                              {L"mio\\KVA.DEF", "a,b,2\r\n"}});
        Open();
    }

    FolderCheck check{fake.platform};
};

struct DeniedCommand {
    const char* name;
    void (*run)(DeniedScene& scene);
    bool changesDisk = true;
};

void PrintTo(const DeniedCommand& command, std::ostream* out) {
    *out << command.name;
}

void SelectCharacter(DeniedScene& scene) {
    scene.main.Activate();
    Select(scene.model.installed.names, {L"abc"});
}

const DeniedCommand commands[] = {
    {"Save",
     [](DeniedScene& scene) {
         scene.main.ExitPressed();
     }},
    {"Launch",
     [](DeniedScene& scene) {
         SelectCharacter(scene);
         LaunchCharacter(scene.model, scene.fake.platform);
     },
     false},
    {"SetStartUpCharacter",
     [](DeniedScene& scene) {
         SelectCharacter(scene);
         SetStartUpCharacter(scene.model, scene.fake.platform);
     }},
    {"Readme",
     [](DeniedScene& scene) {
         SelectCharacter(scene);
         ShowReadme(scene.model, scene.fake.platform);
     },
     false},
    {"UpdateHost",
     [](DeniedScene& scene) {
         scene.model.enabled[Command::UpdateHost] = true;
         UpdateHostProgram(scene.model, scene.fake.platform);
     }},
    {"UpdateDefinition",
     [](DeniedScene& scene) {
         SelectCharacter(scene);
         scene.model.definitionUpdateReady = scene.model.enabled[Command::UpdateDefinition] = true;
         UpdateDefinitionFile(scene.model, scene.fake.platform);
     }},
    {"Uninstall",
     [](DeniedScene& scene) {
         SelectCharacter(scene);
         Uninstall(scene.model, scene.state, scene.fake.platform);
     }},
    {"DeleteOrphans",
     [](DeniedScene& scene) {
         scene.check.RunCheck(scene.model);
         scene.check.DeleteDefinitionFiles();
     }},
    {"Recycle",
     [](DeniedScene& scene) {
         scene.check.RunCheck(scene.model);
         for (size_t index = 0; index < scene.check.folders.Size(); ++index)
             scene.check.folders.Select(index);
         scene.check.MoveFoldersToRecycleBin();
     }},
    {"PrepareStaging",
     [](DeniedScene& scene) {
         scene.main.PrepareStagingPressed();
     }},
    {"Install",
     [](DeniedScene& scene) {
         scene.main.Activate();
         Select(scene.model.browser.Files(), {L"p.lzh"});
         Install(scene.model, scene.state, scene.fake.platform, scene.screen);
     }},
};

using Tree = MemoryFileSystem::Tree;

// What is there has come by the command or was there before; what was there before is there unless
// the command was to take it away. The staging folder may hold what it likes.
void ExpectNothingLost(const Tree& former, const Tree& intended, const Tree& after) {
    const auto name = [](const std::wstring& path) {
        return std::string(path.begin(), path.end());
    };
    for (const auto& [path, bytes] : former)
        if (intended.contains(path) && !path.starts_with(L"C:\\TAMTMP")) {
            EXPECT_TRUE(after.contains(path)) << name(path);
        }
    for (const auto& [path, bytes] : after) {
        if (path.starts_with(L"C:\\TAMTMP"))
            continue;
        const auto before = former.find(path);
        const auto wanted = intended.find(path);
        const bool isFormer = before != former.end() && before->second == bytes;
        const bool isWanted = wanted != intended.end() && wanted->second == bytes;
        EXPECT_TRUE(isFormer || isWanted) << name(path);
    }
}

class DeniedFolders : public testing::TestWithParam<DeniedCommand> {};

TEST_P(DeniedFolders, CostNothingAndTheNextTryFinishesTheJob) {
    DeniedScene plain;
    const Tree former = plain.files.Snapshot();
    GetParam().run(plain);
    const Tree intended = plain.files.Snapshot();
    EXPECT_EQ(former != intended, GetParam().changesDisk);

    size_t failures = 0;
    for (const auto& [path, bytes] : former) {
        if (!path.ends_with(L'\\'))
            continue;
        const std::wstring folder(WithoutBackslash(path));
        SCOPED_TRACE(std::string(folder.begin(), folder.end()));
        DeniedScene scene;
        scene.files.DenyAccess(folder);
        const auto failure = ErrorOf([&] { GetParam().run(scene); });
        if (failure) {
            EXPECT_EQ(failure, ErrorNumber::PathFileAccess);
            ++failures;
        }
        EXPECT_TRUE(scene.screen.enabled);
        ExpectNothingLost(former, intended, scene.files.Snapshot());

        if (scene.files.Exists(folder))
            scene.files.AllowAccess(folder);
        if (scene.files.Snapshot() == intended)
            continue;
        EXPECT_EQ(ErrorOf([&] { GetParam().run(scene); }), std::nullopt);
        EXPECT_EQ(scene.files.Snapshot(), intended);
    }
    EXPECT_GT(failures, 0U);
}

INSTANTIATE_TEST_SUITE_P(Commands, DeniedFolders, testing::ValuesIn(commands), CaseName);

} // namespace
} // namespace tamblin
