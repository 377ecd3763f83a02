#include "install/staging_walk.h"

#include <vector>

#include "base/file_name.h"
#include "base/text.h"

namespace tamblin {
namespace {

constexpr FileAttributes PlainFolder{.folder = true};

// Stays above a folder that cannot be made current: every operation names its path in full.
void MoveTo(const std::wstring& folder, FileSystem& files) {
    if (folder.size() <= LongestFolder)
        files.SetCurrentFolder(folder);
}

// With its trailing "\".
std::wstring FolderAbove(const std::wstring& folder) {
    return folder.substr(0, folder.rfind(L'\\', folder.size() - 2) + 1);
}

// A folder takes as long as this many files, for want of better knowledge.
constexpr size_t FilesPerFolder = 20;

// The part of the whole work that a folder stands for, and what of that is done.
class Share {
  public:
    Share() = default;
    Share(double beginOfPart, double sizeOfPart) : begin(beginOfPart), size(sizeOfPart) {}

    void CountEntries(size_t folders, size_t files) { total = folders * FilesPerFolder + files; }
    double Done() const { return begin + size * OfWhole(done); }
    void FinishFile() { ++done; }
    // Hands the part of a subfolder on.
    Share TakeSubfolder() {
        const Share part(Done(), size * OfWhole(FilesPerFolder));
        done += FilesPerFolder;
        return part;
    }

  private:
    double OfWhole(size_t count) const {
        return total == 0 ? 1 : static_cast<double>(count) / static_cast<double>(total);
    }

    double begin = 0;
    double size = 1;
    size_t total = 0;
    size_t done = 0;
};

// A folder on the way from the staging folder down to the current one.
struct Level {
    std::wstring folder; // counted from the staging folder, with a trailing "\"
    std::vector<std::wstring> subfolders;
    std::vector<std::wstring> files;
    size_t nextSubfolder = 0;
    Share share;
};

Level ListLevel(const std::wstring& stagingFolder, std::wstring folder, Share share,
                FileSystem& files) {
    Level level;
    level.folder = std::move(folder);
    level.share = share;
    for (FolderEntry& entry : files.List(stagingFolder + level.folder)) {
        const FileAttributes& attributes = entry.attributes;
        if (attributes == PlainFolder)
            level.subfolders.push_back(std::move(entry.name));
        else if (!attributes.folder && !attributes.hidden && !attributes.system)
            level.files.push_back(std::move(entry.name));
    }
    level.share.CountEntries(level.subfolders.size(), level.files.size());
    return level;
}

} // namespace

void WalkStagingFolder(const std::wstring& stagingFolder, StagingVisitor& visitor,
                       FileSystem& files, WorkUnderWay& work) {
    MoveTo(stagingFolder, files);
    std::vector<Level> levels;
    levels.push_back(ListLevel(stagingFolder, L"", Share(), files));
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.nextSubfolder < level.subfolders.size()) {
            std::wstring below = level.folder + level.subfolders[level.nextSubfolder++] + L"\\";
            MoveTo(stagingFolder + below, files);
            visitor.EnterFolder(below);
            const Share share = level.share.TakeSubfolder();
            levels.push_back(ListLevel(stagingFolder, std::move(below), share, files));
            continue;
        }
        for (const std::wstring& name : level.files) {
            visitor.TakeFile(level.folder, name);
            level.share.FinishFile();
            work.Advance(level.share.Done());
        }
        MoveTo(FolderAbove(stagingFolder + level.folder), files);
        files.RemoveFolder(WithoutBackslash(stagingFolder + level.folder));
        work.Advance(level.share.Done());
        levels.pop_back();
    }
}

} // namespace tamblin
