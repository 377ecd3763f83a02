#include "maintenance/start_up_file.h"

#include "base/byte_lines.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t BackupName[] = L"ombrel_rc.bak";
constexpr wchar_t CharacterKey[] = L"H001currentobl=";

} // namespace

void WriteStartUpLine(const std::wstring& startUpFile, const std::wstring& definitionFile,
                      Platform& platform) {
    std::string line = platform.ansi.Encode(CharacterKey + definitionFile);
    platform.files.Write(startUpFile, line.append(LineEnd));
}

void SetStartUpCharacter(const MainModel& model, Platform& platform) {
    const auto selected = model.installed.names.FirstSelected();
    if (!selected)
        return;
    const std::wstring& character = model.installed.names[*selected];
    const std::wstring startUpFile = model.combo.Text() + L"\\" + HostStartUpFileName;
    if (FileExists(platform.files, startUpFile))
        platform.files.Delete(startUpFile);
    WriteStartUpLine(startUpFile, character + L".obl", platform);
    platform.messages.Inform(character + L"が起動するようにombrel.rcを書き換えました。");
}

void ReplaceStartUpFile(const std::wstring& definitionFile, Platform& platform) {
    platform.files.Rename(HostStartUpFileName, BackupName);
    WriteStartUpLine(HostStartUpFileName, definitionFile, platform);
}

void RestoreStartUpFile(Platform& platform) {
    platform.files.Delete(HostStartUpFileName);
    platform.files.Rename(BackupName, HostStartUpFileName);
}

} // namespace tamblin
