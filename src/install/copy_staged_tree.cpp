#include "install/copy_staged_tree.h"

#include "base/character_files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/copy_check.h"
#include "install/kavalet_definitions.h"
#include "install/package_staging.h"
#include "install/staging_walk.h"

namespace tamblin {
namespace {

constexpr wchar_t CopyingText[] = L"ファイルをコピーしています...";

class CopyingVisitor : public StagingVisitor {
  public:
    CopyingVisitor(std::wstring staging, std::wstring host, const SettingsState& settings,
                   Platform& surroundings, std::set<std::wstring> filesAlreadyThere)
        : stagingFolder(std::move(staging)),
          hostFolder(std::move(host)),
          state(settings),
          platform(surroundings),
          alreadyThere(std::move(filesAlreadyThere)) {}

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
        const bool atRoot = folder.empty();
        const std::wstring staged = stagingFolder + folder + name;
        const std::wstring target = hostFolder + folder + name;
        const bool isCopied = !atRoot || IsDefinition(name);
        if (isCopied && !alreadyThere.contains(folder + name))
            platform.files.Replace(staged, target);
        else
            DeleteStagedFile(staged, platform.files);
        if (EndsWithIgnoringCase(name, L"-X.txt"))
            platform.starter.ShowMinimised(target);
        if (MergesDefinitions(folder, name, state))
            MergeKavaletDefinitions(name, target, hostFolder, platform);
    }

  private:
    std::wstring stagingFolder;
    std::wstring hostFolder;
    const SettingsState& state;
    Platform& platform;
    std::set<std::wstring> alreadyThere;
};

} // namespace

void CopyStagedTree(const std::wstring& hostFolder, const SettingsState& state,
                    Platform& platform) {
    const std::wstring stagingFolder = WithBackslash(StagingFolder(hostFolder));
    const std::wstring host = WithBackslash(hostFolder);
    WorkUnderWay work(platform.progress, CopyingText, WithoutBackslash(hostFolder));
    CopyingVisitor visitor(stagingFolder, host, state, platform,
                           CheckCopyPossible(stagingFolder, host, state, platform, work));
    WalkStagingFolder(stagingFolder, visitor, platform.files, work);
    platform.files.SetCurrentFolder(platform.programFolder);
}

} // namespace tamblin
