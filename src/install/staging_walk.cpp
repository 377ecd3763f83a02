#include "install/staging_walk.h"

#include "base/text.h"

namespace tamblin {
namespace {

constexpr FileAttributes PlainFolder{.folder = true};

// Windows cannot make a folder current whose path is longer. The walk then stays above it: every
// operation names its path in full.
constexpr size_t LongestCurrentFolder = 247;

void MoveTo(const std::wstring& folder, FileSystem& files) {
    if (folder.size() <= LongestCurrentFolder)
        files.SetCurrentFolder(folder);
}

// With its trailing "\".
std::wstring FolderAbove(const std::wstring& folder) {
    return folder.substr(0, folder.rfind(L'\\', folder.size() - 2) + 1);
}

// A folder on the way from the staging folder down to the current one.
struct Level {
    std::wstring folder; // counted from the staging folder, with a trailing "\"
    std::vector<std::wstring> subfolders;
    std::vector<std::wstring> files;
    size_t nextSubfolder = 0;
};

Level ListLevel(const std::wstring& stagingFolder, std::wstring folder, FileSystem& files) {
    Level level;
    level.folder = std::move(folder);
    for (FolderEntry& entry : files.List(stagingFolder + level.folder)) {
        const FileAttributes& attributes = entry.attributes;
        if (attributes == PlainFolder)
            level.subfolders.push_back(std::move(entry.name));
        else if (!attributes.folder && !attributes.hidden && !attributes.system)
            level.files.push_back(std::move(entry.name));
    }
    return level;
}

} // namespace

void WalkStagingFolder(const std::wstring& stagingFolder, StagingVisitor& visitor,
                       FileSystem& files) {
    MoveTo(stagingFolder, files);
    std::vector<Level> levels;
    levels.push_back(ListLevel(stagingFolder, L"", files));
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.nextSubfolder < level.subfolders.size()) {
            std::wstring below = level.folder + level.subfolders[level.nextSubfolder++] + L"\\";
            MoveTo(stagingFolder + below, files);
            visitor.EnterFolder(below);
            levels.push_back(ListLevel(stagingFolder, std::move(below), files));
            continue;
        }
        for (const std::wstring& name : level.files)
            visitor.TakeFile(level.folder, name);
        MoveTo(FolderAbove(stagingFolder + level.folder), files);
        files.RemoveFolder(WithoutBackslash(stagingFolder + level.folder));
        levels.pop_back();
    }
}

} // namespace tamblin
