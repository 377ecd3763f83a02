// The scratch folder TAMTMP at the root of the host folder's drive: where packages are unpacked and
// judged before anything reaches a host folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/selection_list.h"
#include "install/install.h"
#include "platform/file_lists.h"
#include "platform/platform.h"

namespace tamblin {

// "C:\TAMTMP" for a host folder on drive C:. Throws RunTimeError 76 for what names no drive root.
std::wstring StagingFolder(const std::wstring& hostFolder);

// Deletes the staging folder with all it holds and makes the program folder current. A folder with
// any attribute but "folder" is not entered, hidden and system files stay; either makes it fail.
void ClearStagingFolder(const std::wstring& hostFolder, Platform& platform);

// An empty staging folder, made current.
void PrepareStagingFolder(const std::wstring& hostFolder, Platform& platform);

// Unpacks one archive into the current folder. `archiveFolder` ends in "\". Returns 0 or the
// library's failure code.
std::int16_t ExtractPackage(const std::wstring& archiveFolder, const std::wstring& archiveName,
                            const std::wstring& hostFolder, void* window, Platform& platform);

// Tells what one archive has brought into the staging folder. Made before the archive is unpacked.
class PackageJudge {
  public:
    PackageJudge(const std::wstring& hostFolder, Platform& surroundings);

    // Adds the archive's lines to the confirmation lists.
    void JudgePackage(const std::wstring& archiveName, const SelectionList& installedNames,
                      InstallConfirmation& lists);

  private:
    void JudgeNewFolders(const std::wstring& archiveName, const FolderListing& listing,
                         const SelectionList& installedNames, InstallConfirmation& lists) const;

    std::wstring stagingFolder;
    Platform& platform;
    std::vector<std::wstring> foldersBefore;
    size_t filesBefore = 0;
};

} // namespace tamblin
