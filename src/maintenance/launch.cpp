#include "maintenance/launch.h"

#include "base/text.h"
#include "install/selection_rules.h"
#include "maintenance/start_up_file.h"
#include "platform/file_lists.h"

namespace tamblin {

void LaunchCharacter(const MainModel& model, Platform& platform) {
    const InstalledList& installed = model.installed;
    const auto selected = installed.names.FirstSelected();
    // The listing behind the names may have been read anew, and have become shorter.
    if (!selected || *selected >= installed.definitionFiles.size())
        return;
    const std::wstring& definitionFile = installed.definitionFiles[*selected];
    const std::wstring hostFolder = WithBackslash(model.combo.Text());
    const std::wstring program = hostFolder + HostProgramName;
    for (const std::wstring& needed :
         {program, hostFolder + definitionFile, hostFolder + HostStartUpFileName})
        if (!FindNeededFile(platform.files, needed))
            return;

    platform.files.SetCurrentFolder(hostFolder);
    ReplaceStartUpFile(definitionFile, platform);
    platform.starter.StartMinimised(L"\"" + program + L"\" /n");
    RestoreStartUpFile(platform);
    platform.files.SetCurrentFolder(platform.programFolder);
}

void ShowReadme(const MainModel& model, Platform& platform) {
    const auto selected = model.installed.names.FirstSelected();
    if (!selected)
        return;
    const std::wstring hostFolder = model.combo.Text();
    const std::wstring& character = model.installed.names[*selected];
    const std::wstring characterFolder = WithBackslash(hostFolder) + character + L"\\";
    for (const std::wstring& readme : ReadmeCandidates(hostFolder, character))
        if (FindNeededFile(platform.files, readme))
            platform.shell.Open(readme, characterFolder);
}

} // namespace tamblin
