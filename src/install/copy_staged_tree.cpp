#include "install/copy_staged_tree.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "install/kavalet_definitions.h"
#include "install/package_staging.h"
#include "install/staged_file.h"
#include "install/staging_walk.h"

namespace tamblin {
namespace {

class CopyingVisitor : public StagingVisitor {
  public:
    CopyingVisitor(std::wstring staging, std::wstring host, const SettingsState& settings,
                   Platform& surroundings)
        : stagingFolder(std::move(staging)),
          hostFolder(std::move(host)),
          state(settings),
          platform(surroundings) {}

    void EnterFolder(const std::wstring& folder) override {
        platform.files.MakeFolder(WithoutBackslash(hostFolder + folder));
    }

    void TakeFile(const std::wstring& folder, const std::wstring& name) override {
        const bool atRoot = folder.empty();
        const std::wstring staged = stagingFolder + folder + name;
        const std::wstring target = hostFolder + folder + name;
        if (!atRoot || EndsWithIgnoringCase(name, L".obl"))
            Move(staged, target);
        else
            DeleteStagedFile(staged, platform.files);
        if (EndsWithIgnoringCase(name, L"-X.txt"))
            platform.starter.ShowMinimised(target);
        if (EqualIgnoringCase(name, L"KVA.DEF") && state.KvaOption == L"ON" && !atRoot)
            MergeKavaletDefinitions(name, target, hostFolder, platform);
    }

  private:
    // Both are on one drive, so nothing needs to be copied unless a file has to be replaced or the
    // host folder is a link to another drive.
    void Move(const std::wstring& staged, const std::wstring& target) {
        try {
            platform.files.Rename(staged, target);
        } catch (const RunTimeError&) {
            platform.files.Copy(staged, target);
            DeleteStagedFile(staged, platform.files);
        }
    }

    std::wstring stagingFolder;
    std::wstring hostFolder;
    const SettingsState& state;
    Platform& platform;
};

} // namespace

void CopyStagedTree(const std::wstring& hostFolder, const SettingsState& state,
                    Platform& platform) {
    const std::wstring stagingFolder = WithBackslash(StagingFolder(hostFolder));
    CopyingVisitor visitor(stagingFolder, WithBackslash(hostFolder), state, platform);
    WalkStagingFolder(stagingFolder, visitor, platform.files);
    platform.files.SetCurrentFolder(platform.programFolder);
}

} // namespace tamblin
