#include "install/copy_staged_tree.h"

#include <cstdint>
#include <set>
#include <utility>

#include "base/character_files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/kavalet_definitions.h"
#include "install/package_staging.h"
#include "install/staging_walk.h"

namespace tamblin {
namespace {

constexpr wchar_t CopyingText[] = L"ファイルをコピーしています...";

// Folders and files count from the staging folder; a folder ends in "\".
class StagedCopy : public StagingVisitor {
  public:
    StagedCopy(const std::wstring& host, const SettingsState& settings, Platform& surroundings)
        : stagingFolder(WithBackslash(StagingFolder(host))),
          hostFolder(WithBackslash(host)),
          state(settings),
          platform(surroundings),
          work(platform.progress, CopyingText, WithoutBackslash(host)) {}

    void Run() {
        CheckFolder(L"", true);
        CheckRoom();
        WalkStagingFolder(stagingFolder, *this, platform.files, work);
        platform.files.SetCurrentFolder(platform.programFolder);
    }

    // An earlier install that broke off may have left the folder, and this one completes it.
    void EnterFolder(const std::wstring& folder) override {
        const std::wstring target = WithoutBackslash(hostFolder + folder);
        try {
            platform.files.MakeFolder(target);
        } catch (const RunTimeError&) {
            const auto present = platform.files.Find(target);
            if (!present || !present->attributes.folder)
                throw;
        }
    }

    void TakeFile(const std::wstring& folder, const std::wstring& name) override {
        const std::wstring staged = stagingFolder + folder + name;
        const std::wstring target = hostFolder + folder + name;
        if (IsCopied(folder, name) && !alreadyThere.contains(folder + name))
            platform.files.Replace(staged, target);
        else
            DeleteStagedFile(staged, platform.files);
        if (EndsWithIgnoringCase(name, L"-X.txt"))
            platform.starter.ShowMinimised(target);
        if (MergesDefinitions(folder, name, state))
            MergeKavaletDefinitions(name, target, hostFolder, platform);
    }

  private:
    static bool IsCopied(const std::wstring& folder, const std::wstring& name) {
        return !folder.empty() || IsDefinition(name);
    }

    // What can be known before the first file moves is checked then, so that as few installs as
    // possible end half way. Where the host has no such folder nothing is replaced.
    void CheckFolder(const std::wstring& folder, bool isInHost) {
        for (const FolderEntry& entry : platform.files.List(stagingFolder + folder)) {
            const std::wstring path = folder + entry.name;
            work.Advance(0);
            if (entry.attributes.link)
                continue;
            if (entry.attributes.folder) {
                const bool below = isInHost && platform.files.Find(hostFolder + path);
                CheckFolder(path + L"\\", below);
            } else if (IsCopied(folder, entry.name)) {
                CheckFile(folder, entry, isInHost);
            }
        }
    }

    void CheckFile(const std::wstring& folder, const FolderEntry& file, bool folderIsInHost) {
        bytes += file.size;
        if (folderIsInHost)
            CheckTarget(folder + file.name, file.size);
        if (MergesDefinitions(folder, file.name, state) && !std::exchange(definitionsChecked, true))
            CheckDefinitionsReplaceable(hostFolder, platform);
    }

    void CheckTarget(const std::wstring& file, std::uint64_t size) {
        const auto present = platform.files.Find(hostFolder + file);
        if (!present)
            return;
        if (present->attributes.readOnly && present->size == size && HaveSameContents(file))
            alreadyThere.insert(file);
        else
            platform.files.CheckReplaceable(hostFolder + file);
    }

    bool HaveSameContents(const std::wstring& file) {
        return platform.files.Read(stagingFolder + file) == platform.files.Read(hostFolder + file);
    }

    void CheckRoom() {
        if (!platform.files.OnOneDrive(stagingFolder, hostFolder) &&
            platform.files.FreeBytes(hostFolder) < bytes)
            throw RunTimeError(ErrorNumber::DiskFull, WithoutBackslash(hostFolder));
    }

    const std::wstring stagingFolder;
    const std::wstring hostFolder;
    const SettingsState& state;
    Platform& platform;
    WorkUnderWay work;
    std::uint64_t bytes = 0;
    bool definitionsChecked = false; // once, however many packages bring some
    // Need not be copied: an install that broke off has left the same ones read-only in the host.
    std::set<std::wstring> alreadyThere;
};

} // namespace

void CopyStagedTree(const std::wstring& hostFolder, const SettingsState& state,
                    Platform& platform) {
    StagedCopy(hostFolder, state, platform).Run();
}

} // namespace tamblin
