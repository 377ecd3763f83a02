#include "install/package_staging.h"

#include <unordered_set>

#include "base/character_files.h"
#include "base/name_index.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/staging_walk.h"

namespace tamblin {
namespace {

constexpr wchar_t StagingName[] = L"TAMTMP";
constexpr wchar_t UndecidedLine[] = L"{} （判定不能）";
constexpr wchar_t HeldElsewhereText[] =
    L"{} は、ほかのユーザーまたは別の Tamblin が使用中です。終わってから、もう一度お試しください。";
constexpr wchar_t InStagingFolderText[] =
    L"{} は作業用フォルダです。中にあるものは削除されるため、別のフォルダへ移してからお試しください"
    L"。";

std::wstring DriveRoot(const std::wstring& hostFolder) {
    if (hostFolder.size() < 3)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return hostFolder.substr(0, 3);
}

std::wstring Line(const std::wstring& name, const std::wstring& archiveName) {
    return name + L" （" + archiveName + L"）";
}

bool HoldStagingFolder(const std::wstring& folder, Platform& platform) {
    if (platform.files.HoldFolder(folder))
        return true;
    platform.messages.Inform(WithGapFilled(HeldElsewhereText, folder));
    return false;
}

// "/" and a doubled "\" lead where a single "\" does.
std::wstring WithSingleBackslashes(const std::wstring& path) {
    std::wstring plain;
    for (const wchar_t letter : path) {
        const wchar_t next = letter == L'/' ? L'\\' : letter;
        if (next != L'\\' || !plain.ends_with(L'\\'))
            plain += next;
    }
    return plain;
}

bool IsOrLiesIn(const std::wstring& path, const std::wstring& folder) {
    const std::wstring start = WithSingleBackslashes(WithBackslash(folder));
    const std::wstring plain = WithSingleBackslashes(WithBackslash(path));
    return EqualIgnoringCase(plain.substr(0, start.size()), start);
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
        WorkUnderWay work(platform.progress, TidyingText, folder);
        WalkStagingFolder(folder + L"\\", visitor, platform.files, work);
    }
    platform.files.SetCurrentFolder(platform.programFolder);
}

void DeleteStagedFile(const std::wstring& file, FileSystem& files) {
    const auto entry = files.Find(file);
    if (entry && entry->attributes.readOnly)
        files.SetAttributes(file, {});
    files.Delete(file);
}

bool PrepareStagingFolder(const std::wstring& hostFolder, Platform& platform) {
    FileSystem& files = platform.files;
    files.SetCurrentFolder(DriveRoot(hostFolder));
    const std::wstring folder = StagingFolder(hostFolder);
    if (const auto present = files.Find(folder)) {
        if (!present->attributes.link && !HoldStagingFolder(folder, platform))
            return false;
        ClearStagingFolder(hostFolder, platform);
    }
    files.MakeFolderLike(folder, hostFolder);
    if (!HoldStagingFolder(folder, platform))
        return false;
    files.SetCurrentFolder(folder);
    return true;
}

void LeaveStagingFolder(Platform& platform) noexcept {
    platform.files.ReleaseFolder();
    try {
        platform.files.SetCurrentFolder(platform.programFolder);
    } catch (...) {
        // The command has failed for a reason of its own, which is the one to report.
    }
}

bool OutsideStagingFolder(const std::vector<std::wstring>& folders, const std::wstring& hostFolder,
                          Platform& platform) {
    const std::wstring staging = StagingFolder(hostFolder);
    // Of a link nothing but itself is deleted.
    const auto present = platform.files.Find(staging);
    const bool emptied = present && !present->attributes.link;
    const std::wstring realStaging = emptied ? platform.files.RealPath(staging) : staging;
    for (const std::wstring& folder : folders) {
        if (!IsOrLiesIn(folder, staging) &&
            !(emptied && IsOrLiesIn(platform.files.RealPath(folder), realStaging)))
            continue;
        platform.messages.Inform(WithGapFilled(InStagingFolderText, StagingName));
        return false;
    }
    return true;
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
        lists.cannotInstall.Add(WithGapFilled(UndecidedLine, archiveName));
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
        const std::wstring* file = files.Find(DefinitionOf(folder));
        if (file == nullptr)
            continue;
        anyDefined = true;
        const std::wstring name = CharacterOf(*file);
        if (const std::wstring* entry = installed.Find(name))
            lists.alreadyInstalled.Add(Line(*entry, archiveName));
        else
            lists.toInstall.Add(Line(name, archiveName));
    }
    if (!anyDefined)
        lists.cannotInstall.Add(archiveName);
}

} // namespace tamblin
