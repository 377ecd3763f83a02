#include "install/package_staging.h"

#include <unordered_set>

#include "base/name_index.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/staged_file.h"
#include "install/staging_walk.h"

namespace tamblin {
namespace {

constexpr wchar_t StagingName[] = L"TAMTMP";
constexpr wchar_t UndecidedMark[] = L" （判定不能）";

std::wstring DriveRoot(const std::wstring& hostFolder) {
    if (hostFolder.size() < 3)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return hostFolder.substr(0, 3);
}

std::wstring Line(const std::wstring& name, const std::wstring& archiveName) {
    return name + L" （" + archiveName + L"）";
}

class DeletingVisitor : public StagingVisitor {
  public:
    DeletingVisitor(std::wstring folder, FileSystem& fileSystem)
        : stagingFolder(std::move(folder)), files(fileSystem) {}

    void EnterFolder(const std::wstring&) override {}
    void TakeFile(const std::wstring& folder, const std::wstring& name) override {
        DeleteStagedFile(stagingFolder + folder + name, files);
    }

  private:
    std::wstring stagingFolder;
    FileSystem& files;
};

} // namespace

std::wstring StagingFolder(const std::wstring& hostFolder) {
    return DriveRoot(hostFolder) + StagingName;
}

void ClearStagingFolder(const std::wstring& hostFolder, Platform& platform) {
    const std::wstring folder = StagingFolder(hostFolder);
    const auto entry = platform.files.Find(folder);
    if (entry && entry->attributes.link) {
        // What a link points to is not ours to delete.
        platform.files.RemoveFolder(folder);
    } else {
        DeletingVisitor visitor(folder + L"\\", platform.files);
        WalkStagingFolder(folder + L"\\", visitor, platform.files);
    }
    platform.files.SetCurrentFolder(platform.programFolder);
}

void PrepareStagingFolder(const std::wstring& hostFolder, Platform& platform) {
    platform.files.SetCurrentFolder(DriveRoot(hostFolder));
    const std::wstring folder = StagingFolder(hostFolder);
    if (platform.files.Find(folder))
        ClearStagingFolder(hostFolder, platform);
    platform.files.MakeFolder(folder);
    platform.files.SetCurrentFolder(folder);
}

std::int16_t ExtractPackage(const std::wstring& archiveFolder, const std::wstring& archiveName,
                            const std::wstring& hostFolder, void* window, Platform& platform) {
    return platform.unlha.Run(window, L"x \"" + archiveFolder + archiveName + L"\"",
                              L"\"" + StagingFolder(hostFolder) + L"\"", 0);
}

PackageJudge::PackageJudge(const std::wstring& hostFolder, Platform& surroundings)
    : stagingFolder(StagingFolder(hostFolder)), platform(surroundings) {
    FolderListing listing = ListFolder(platform.files, stagingFolder);
    foldersBefore = std::move(listing.folders);
    filesBefore = listing.files.size();
}

void PackageJudge::JudgePackage(const std::wstring& archiveName,
                                const SelectionList& installedNames, InstallConfirmation& lists) {
    const FolderListing listing = ListFolder(platform.files, stagingFolder);
    if (listing.folders.size() > foldersBefore.size())
        JudgeNewFolders(archiveName, listing, installedNames, lists);
    else if (listing.files.size() > filesBefore)
        lists.cannotInstall.Add(archiveName);
    else
        lists.cannotInstall.Add(archiveName + UndecidedMark);
}

void PackageJudge::JudgeNewFolders(const std::wstring& archiveName, const FolderListing& listing,
                                   const SelectionList& installedNames,
                                   InstallConfirmation& lists) const {
    const std::unordered_set<std::wstring> known(foldersBefore.begin(), foldersBefore.end());
    const NameIndex files(listing.files);
    const NameIndex installed(installedNames.Entries());
    bool anyDefined = false;
    for (const std::wstring& folder : listing.folders) {
        if (known.contains(folder))
            continue;
        const std::wstring* file = files.Find(folder + L".obl");
        if (file == nullptr)
            continue;
        anyDefined = true;
        const std::wstring name(WithoutLast(*file, 4));
        if (const std::wstring* entry = installed.Find(name))
            lists.alreadyInstalled.Add(Line(*entry, archiveName));
        else
            lists.toInstall.Add(Line(name, archiveName));
    }
    if (!anyDefined)
        lists.cannotInstall.Add(archiveName);
}

} // namespace tamblin
