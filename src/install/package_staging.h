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

// What the user reads while the staging folder is emptied or thinned for long.
inline constexpr wchar_t TidyingText[] = L"作業用フォルダを整理しています...";

// Deletes the staging folder with all it holds and makes the program folder current. A folder with
// any attribute but "folder" is not entered, hidden and system files stay; either makes it fail.
void ClearStagingFolder(const std::wstring& hostFolder, Platform& platform);

// Deletes a file of the staging folder. Archives carry read-only files; that they are read-only
// protects the installed file, not its staged copy.
void DeleteStagedFile(const std::wstring& file, FileSystem& files);

// An empty staging folder, made current and held, in which files get the permissions that they
// would have in the host folder. False when another session has it; the user has then been told,
// and nothing of it is touched.
bool PrepareStagingFolder(const std::wstring& hostFolder, Platform& platform);

// Lets go of the staging folder and makes the program folder current, whatever state a command has
// left them in. Does not throw.
void LeaveStagingFolder(Platform& platform) noexcept;

// False when one of the folders is the staging folder or lies in it, which emptying it would
// delete; the user has then been told.
bool OutsideStagingFolder(const std::vector<std::wstring>& folders, const std::wstring& hostFolder,
                          Platform& platform);

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
