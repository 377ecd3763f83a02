#include "maintenance/start_up_file.h"

#include "base/byte_lines.h"
#include "base/character_files.h"
#include "base/text.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t BackupName[] = L"ombrel_rc.bak";
constexpr wchar_t EditDoneText[] = L"{}が起動するようにombrel.rcを書き換えました。";
constexpr char CharacterKey[] = "H001currentobl=";

// Made before the former file is touched: a name that the code page cannot hold ends the command.
std::string StartUpLine(const std::wstring& definitionFile, Platform& platform) {
    return CharacterKey + platform.ansi.EncodeName(definitionFile).append(LineEnd);
}

} // namespace

void SetStartUpCharacter(const MainModel& model, Platform& platform) {
    const auto selected = model.installed.names.FirstSelected();
    if (!selected)
        return;
    const std::wstring& character = model.installed.names[*selected];
    const std::string line = StartUpLine(DefinitionOf(character), platform);
    const std::wstring startUpFile = model.combo.Text() + L"\\" + HostStartUpFileName;
    if (FileExists(platform.files, startUpFile))
        platform.files.Delete(startUpFile);
    platform.files.Write(startUpFile, line);
    platform.messages.Inform(WithGapFilled(EditDoneText, character));
}

void ReplaceStartUpFile(const std::wstring& definitionFile, Platform& platform) {
    const std::string line = StartUpLine(definitionFile, platform);
    platform.files.Rename(HostStartUpFileName, BackupName);
    platform.files.Write(HostStartUpFileName, line);
}

void RestoreStartUpFile(Platform& platform) {
    platform.files.Delete(HostStartUpFileName);
    platform.files.Rename(BackupName, HostStartUpFileName);
}

} // namespace tamblin
