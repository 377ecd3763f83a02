// A whole install, from the selected archives to the refreshed list, against its floor: a bare
// program that creates the same folders and files beside the host folder, writes them and renames
// them into their places. Both on the real file system, in turns; the faster of the rounds counts.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "app/main_screen.h"
#include "support/lzh_encoder.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"
#include "timed_install.h"

namespace tamblin {
namespace {

const std::wstring TopFolder = L"C:\\tamblin-install";
constexpr size_t FilesPerFolder = 100;

// What is installed: packages of one character each, all files with the same contents.
struct Load {
    const char* name;
    size_t packages;
    size_t filesEach;
    std::string contents;

    size_t Files() const { return packages * filesEach; }
};

std::wstring Character(size_t package) {
    return L"character" + std::to_wstring(package);
}

std::wstring Part(size_t package, size_t file) {
    return Character(package) + L"\\part" + std::to_wstring(file / FilesPerFolder);
}

std::wstring FileName(size_t package, size_t file) {
    return Part(package, file) + L"\\file" + std::to_wstring(file);
}

std::string PackedPackage(const Load& load, size_t package) {
    lzh::LzhWriter writer;
    writer.AddFile(Character(package) + L".obl", "definition");
    const std::string packed = lzh::Encode("-lh5-", load.contents);
    for (size_t file = 0; file < load.filesEach; ++file) {
        lzh::LzhEntry entry = lzh::MakeEntry(FileName(package, file), load.contents, "-lh5-", 2);
        entry.packed = packed;
        writer.Add(entry);
    }
    return writer.Finish();
}

void WriteBare(const std::wstring& path, const std::string& contents) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, contents.data(), static_cast<DWORD>(contents.size()), &written, nullptr);
    CloseHandle(file);
}

// Calls work(package, file) for all files, with makeFolder called before for each new folder.
void ForAll(const Load& load, const std::function<void(const std::wstring&)>& makeFolder,
            const std::function<void(size_t, size_t)>& work) {
    for (size_t package = 0; package < load.packages; ++package) {
        makeFolder(Character(package));
        for (size_t file = 0; file < load.filesEach; ++file) {
            if (file % FilesPerFolder == 0)
                makeFolder(Part(package, file));
            work(package, file);
        }
    }
}

void InstallBare(const Load& load) {
    const std::wstring from = TopFolder + L"\\from\\";
    const std::wstring to = TopFolder + L"\\bare\\";
    CreateDirectoryW(from.c_str(), nullptr);
    CreateDirectoryW(to.c_str(), nullptr);
    ForAll(
        load,
        [&](const std::wstring& folder) { CreateDirectoryW((from + folder).c_str(), nullptr); },
        [&](size_t package, size_t file) {
            WriteBare(from + FileName(package, file), load.contents);
        });
    ForAll(
        load, [&](const std::wstring& folder) { CreateDirectoryW((to + folder).c_str(), nullptr); },
        [&](size_t package, size_t file) {
            const std::wstring name = FileName(package, file);
            MoveFileW((from + name).c_str(), (to + name).c_str());
        });
}

// Tells how much of an install is unpacking.
class TimedUnlha : public Unlha {
  public:
    explicit TimedUnlha(Unlha& realUnlha) : unlha(realUnlha) {}
    std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                     unsigned outputSize) override {
        std::int16_t result = 0;
        seconds += Seconds([&] { result = unlha.Run(window, command, output, outputSize); });
        return result;
    }

    double seconds = 0;

  private:
    Unlha& unlha;
};

struct Times {
    double bare = 1e9;
    double install = 1e9;
    double unpacking = 0; // of the fastest install
};

void InstallOnce(const Load& load, Times& times) {
    GrowthWorld world;
    TimedUnlha unlha(world.unlha);
    Platform platform{world.files, world.shell, world.starter,  world.messages, world.events,
                      unlha,       world.ansi,  world.progress, L"C:\\"};
    const std::wstring host = TopFolder + L"\\host";
    MakeEmptyHost(world.files, host);
    Session session(platform, host);
    MainModel& model = session.model;
    session.state.BrowseStartFolder = TopFolder + L"\\packages";
    model.browser.RebuildBrowser();
    for (size_t index = 0; index < load.packages; ++index)
        model.browser.Files().Select(index);
    ConfirmingScreen screen;
    const double seconds = Seconds([&] { Install(model, session.state, platform, screen); });
    if (model.installed.names.Size() != load.packages)
        std::printf("only %zu of %zu packages were installed\n", model.installed.names.Size(),
                    load.packages);
    if (seconds < times.install) {
        times.install = seconds;
        times.unpacking = unlha.seconds;
    }
}

void Measure(const Load& load) {
    GrowthWorld world;
    RemoveTree(world.files, TopFolder);
    world.files.MakeFolder(TopFolder);
    world.files.MakeFolder(TopFolder + L"\\packages");
    for (size_t package = 0; package < load.packages; ++package)
        world.files.Write(TopFolder + L"\\packages\\" + Character(package) + L".lzh",
                          PackedPackage(load, package));
    Times times;
    constexpr int rounds = 3;
    for (int round = 0; round < rounds; ++round) {
        times.bare = std::min(times.bare, Seconds([&] { InstallBare(load); }));
        InstallOnce(load, times);
        for (const wchar_t* folder : {L"\\from", L"\\bare", L"\\host"})
            RemoveTree(world.files, TopFolder + folder);
    }
    const double perFile = 1e6 / static_cast<double>(load.Files());
    std::printf("%-26s %7zu %10.1f %10.1f %10.1f %8.2f\n", load.name, load.Files(),
                times.bare * perFile, times.install * perFile, times.unpacking * perFile,
                times.install / times.bare);
    std::fflush(stdout);
    RemoveTree(world.files, TopFolder);
}

} // namespace
} // namespace tamblin

// With arguments: only packages of so many small files each; one, or so many.
int main(int argumentCount, char** arguments) {
    using namespace tamblin;
    const std::string small = lzh::RandomText(2800, 1);
    std::vector<Load> loads = {
        {"1 package", 1, 100, small},
        {"1 package", 1, 1000, small},
        {"1 package", 1, 5000, small},
        {"1 package", 1, 20'000, small},
        {"100 packages", 100, 50, small},
        {"1 package of 200 MB", 1, 50, lzh::RandomText(4 << 20, 2)},
    };
    if (argumentCount > 1) {
        const size_t packages = argumentCount > 2 ? std::stoul(arguments[2]) : 1;
        loads = {{"packages", packages, std::stoul(arguments[1]), small}};
    }
    try {
        std::printf("%-26s %7s %10s %10s %10s %8s\n", "(us per file)", "files", "bare", "install",
                    "unpacking", "ratio");
        for (const Load& load : loads)
            Measure(load);
    } catch (const RunTimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.Number()));
        return 1;
    }
    return 0;
}
