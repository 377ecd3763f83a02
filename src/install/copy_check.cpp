#include "install/copy_check.h"

#include <cstdint>

#include "base/character_files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/kavalet_definitions.h"

namespace tamblin {
namespace {

class CopyCheck {
  public:
    CopyCheck(std::wstring staging, std::wstring host, const SettingsState& settings,
              Platform& surroundings, WorkUnderWay& workUnderWay)
        : stagingFolder(std::move(staging)),
          hostFolder(std::move(host)),
          state(settings),
          platform(surroundings),
          work(workUnderWay) {}

    std::set<std::wstring> Run() {
        CheckFolder(L"", true);
        if (!platform.files.OnOneDrive(stagingFolder, hostFolder) &&
            platform.files.FreeBytes(hostFolder) < bytes)
            throw RunTimeError(ErrorNumber::DiskFull, WithoutBackslash(hostFolder));
        return std::move(alreadyThere);
    }

  private:
    // `folder` counts from the staging folder. Where the host has no such folder nothing is
    // replaced.
    void CheckFolder(const std::wstring& folder, bool isInHost) {
        for (const FolderEntry& entry : platform.files.List(stagingFolder + folder)) {
            const std::wstring path = folder + entry.name;
            work.Advance(0);
            if (entry.attributes.link)
                continue;
            if (entry.attributes.folder) {
                const bool below = isInHost && platform.files.Find(hostFolder + path);
                CheckFolder(path + L"\\", below);
            } else if (!folder.empty() || IsDefinition(path)) {
                CheckFile(folder, entry, isInHost);
            }
        }
    }

    void CheckFile(const std::wstring& folder, const FolderEntry& file, bool folderIsInHost) {
        bytes += file.size;
        if (folderIsInHost)
            CheckTarget(folder + file.name, file.size);
        if (MergesDefinitions(folder, file.name, state))
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

    std::wstring stagingFolder;
    std::wstring hostFolder;
    const SettingsState& state;
    Platform& platform;
    WorkUnderWay& work;
    std::uint64_t bytes = 0;
    std::set<std::wstring> alreadyThere;
};

} // namespace

std::set<std::wstring> CheckCopyPossible(const std::wstring& stagingFolder,
                                         const std::wstring& hostFolder, const SettingsState& state,
                                         Platform& platform, WorkUnderWay& work) {
    return CopyCheck(stagingFolder, hostFolder, state, platform, work).Run();
}

} // namespace tamblin
