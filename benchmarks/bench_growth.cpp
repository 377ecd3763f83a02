// How the time of each operation grows with the number of characters or files: time per item, as a
// ratio to the plain file operations that the same number of items needs at the least.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>

#include "app/main_screen.h"
#include "base/text.h"
#include "install/copy_staged_tree.h"
#include "install/package_staging.h"
#include "install/selection_rules.h"
#include "maintenance/folder_check.h"
#include "support/lzh_writer.h"
#include "timed_install.h"

namespace tamblin {
namespace {

// The shortest of a few runs: what the machine does besides only ever adds.
double BestSeconds(const std::function<void()>& work) {
    double best = Seconds(work);
    for (int run = 0; run < 2; ++run)
        best = std::min(best, Seconds(work));
    return best;
}

std::wstring Numbered(const wchar_t* name, size_t number) {
    return name + std::to_wstring(number);
}

// A host folder with so many characters. One that is there already is taken as it is.
std::wstring MakeHost(GrowthWorld& world, size_t characters) {
    const std::wstring host = std::wstring(BenchFolder) + Numbered(L"\\host", characters);
    if (!world.files.Find(BenchFolder))
        world.files.MakeFolder(BenchFolder);
    if (world.files.Find(host))
        return host;
    MakeEmptyHost(world.files, host);
    for (size_t number = 0; number < characters; ++number) {
        const std::wstring character = host + Numbered(L"\\character", number);
        world.files.MakeFolder(character);
        world.files.Write(character + L".obl", "");
    }
    return host;
}

void Print(const char* what, size_t items, double seconds, double plain) {
    std::printf("%-28s %8zu %12.2f %10.2f\n", what, items,
                seconds * 1e6 / static_cast<double>(items), seconds / plain);
    std::fflush(stdout);
}

void MeasureCharacters(size_t characters) {
    GrowthWorld world;
    const std::wstring host = MakeHost(world, characters);
    Session session(world.platform, host);
    MainModel& model = session.model;
    const double listing = BestSeconds([&] { world.files.List(host); });
    const auto measure = [&](const char* what, const std::function<void()>& work) {
        Print(what, characters, BestSeconds(work), listing);
    };
    measure("installed list", [&] { RefreshInstalledList(model, session.state, world.platform); });
    for (size_t index = 0; index < model.installed.names.Size(); ++index)
        model.installed.names.Select(index);
    measure("selection rules", [&] { ApplySelectionRules(model, session.state, world.platform); });
    measure("folder check", [&] {
        FolderCheck check(world.platform);
        check.RunCheck(model);
    });
}

// A package of one character with so many files, a hundred in each folder.
void WritePackage(FileSystem& files, const std::wstring& folder, size_t count) {
    files.Write(folder + L"\\package.obl", "definition");
    files.MakeFolder(folder + L"\\package");
    std::wstring subfolder;
    for (size_t number = 0; number < count; ++number) {
        if (number % 100 == 0) {
            subfolder = folder + Numbered(L"\\package\\part", number / 100);
            files.MakeFolder(subfolder);
        }
        files.Write(subfolder + Numbered(L"\\file", number), "contents of a small file");
    }
}

// The same as an archive.
std::string PackedPackage(size_t count) {
    lzh::LzhWriter writer;
    writer.AddFile(L"package.obl", "definition");
    for (size_t number = 0; number < count; ++number)
        writer.AddFile(Numbered(L"package\\part", number / 100) + Numbered(L"\\file", number),
                       "contents of a small file");
    return writer.Finish();
}

// The least that moving these files takes: one renaming each, and the folders.
double SecondsOfRenaming(FileSystem& files, size_t count) {
    const std::wstring from = std::wstring(BenchFolder) + L"\\from";
    const std::wstring to = std::wstring(BenchFolder) + L"\\to";
    files.MakeFolder(from);
    files.MakeFolder(to);
    WritePackage(files, from, count);
    return Seconds([&] {
        files.MakeFolder(to + L"\\package");
        files.Rename(from + L"\\package.obl", to + L"\\package.obl");
        for (size_t number = 0; number < count; ++number) {
            const std::wstring part = Numbered(L"\\package\\part", number / 100);
            if (number % 100 == 0)
                files.MakeFolder(to + part);
            const std::wstring name = part + Numbered(L"\\file", number);
            files.Rename(from + name, to + name);
        }
    });
}

void MeasureInstall(size_t count) {
    GrowthWorld world;
    const std::wstring host = MakeHost(world, 0);
    Session session(world.platform, host);
    const double renaming = SecondsOfRenaming(world.files, count);

    PrepareStagingFolder(host, world.platform);
    WritePackage(world.files, StagingFolder(host), count);
    Print("install, copy stage", count,
          Seconds([&] { CopyStagedTree(host, session.state, world.platform); }), renaming);

    RemoveTree(world.files, host + L"\\package");
    world.files.Delete(host + L"\\package.obl");
    const std::wstring packages = std::wstring(BenchFolder) + L"\\packages";
    world.files.MakeFolder(packages);
    world.files.Write(packages + L"\\package.lzh", PackedPackage(count));
    session.state.BrowseStartFolder = packages;
    session.model.browser.RebuildBrowser();
    session.model.browser.Files().Select(0);
    ConfirmingScreen screen;
    Print("install, all of it", count,
          Seconds([&] { Install(session.model, session.state, world.platform, screen); }),
          renaming);
    for (const wchar_t* folder : {L"\\from", L"\\to", L"\\packages", L"\\host0"})
        RemoveTree(world.files, std::wstring(BenchFolder) + folder);
}

} // namespace

int RunGrowthBenchmark() {
    std::printf("%-28s %8s %12s %10s\n", "operation", "items", "us per item", "ratio");
    std::printf("(ratio: to one listing of the same host folder)\n");
    for (const size_t characters : {100U, 1000U, 10000U})
        MeasureCharacters(characters);
    std::printf("(ratio: to renaming the same files)\n");
    for (const size_t files : {100U, 1000U, 5000U})
        MeasureInstall(files);
    return 0;
}

} // namespace tamblin

int main() {
    try {
        return tamblin::RunGrowthBenchmark();
    } catch (const tamblin::RunTimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.Number()));
        return 1;
    }
}
