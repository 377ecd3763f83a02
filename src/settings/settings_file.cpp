#include "settings/settings_file.h"

#include <algorithm>

#include "base/byte_lines.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/version.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t FileName[] = L"tamb.ini";
constexpr wchar_t BackupName[] = L"tamb.bak";
constexpr std::string_view OwnVersion = "Ver." TAMBLIN_VERSION;
constexpr std::string_view AcceptedVersions[] = {"Ver.0.60 Beta-2", "Ver.0.60", "Ver.0.61",
                                                 OwnVersion};
constexpr std::string_view OnValues[] = {"ON", "on", "On"};

bool IsOneOf(std::string_view value, const auto& values) {
    return std::find(std::begin(values), std::end(values), value) != std::end(values);
}

// A folder as it stands before a file name in a probe: a drive root gets no second separator.
std::wstring ProbePrefix(const std::wstring& folder) {
    return folder.size() > 3 ? folder + L"\\" : folder;
}

// What a listing of `prefix` + "*.*" finds: a prefix without a "\" at its end is the beginning of
// the names. A folder that is not there, or cannot be, holds nothing. Only Find tells a drive that
// does not exist from one that is not ready.
bool HoldsPlainFiles(FileSystem& files, const std::wstring& prefix) {
    const size_t folderLength = prefix.find_last_of(L"\\/:") + 1; // 0 when there is none
    const std::wstring folder = prefix.substr(0, folderLength);
    const std::wstring nameStart = UpperCase(prefix.substr(folderLength));
    try {
        if (!files.Find(folder))
            return false;
        const auto names = ListFolder(files, folder).files;
        return std::any_of(names.begin(), names.end(), [&](const std::wstring& name) {
            return UpperCase(name).starts_with(nameStart);
        });
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::PathNotFound &&
            error.Number() != ErrorNumber::BadFileName)
            throw;
        return false;
    }
}

std::string_view KeyOf(std::string_view item) {
    const size_t equals = item.find('=');
    return equals == std::string_view::npos ? item : item.substr(0, equals + 1);
}

} // namespace

std::wstring SettingsFile::Path() const {
    return WithBackslash(platform.programFolder) + FileName;
}

bool SettingsFile::ReadSetting(std::string_view key) {
    bool opened = false;
    try {
        if (leftOpen || !FileExists(platform.files, Path()))
            return false;
        const std::string bytes = platform.files.Read(Path());
        opened = true;
        if (key != setting_keys::VmrFolder)
            return ReadKey(key, bytes);
        ReadFolders(bytes);
    } catch (const RunTimeError&) {
        leftOpen = opened;
    }
    // A failure does not take back the folders that have been read.
    return opened && key == setting_keys::VmrFolder && state.HostFolderCount > 0;
}

bool SettingsFile::ReadKey(std::string_view key, std::string_view bytes) {
    LineReader lines(bytes);
    while (const auto line = lines.Next())
        if (line->starts_with(key))
            return TakeValue(key, line->substr(key.size()));
    return false;
}

bool SettingsFile::TakeValue(std::string_view key, std::string_view value) {
    if (key == setting_keys::KvaOption) {
        state.KvaOption = IsOneOf(value, OnValues) ? L"ON" : L"OFF";
        return false;
    }
    if (key == setting_keys::Version) {
        state.VersionKnown = IsOneOf(value, AcceptedVersions);
        return state.VersionKnown;
    }
    const std::wstring folder = platform.ansi.Decode(value);
    const bool isDefault = key == setting_keys::Default;
    const bool valid = isDefault ? IsHostFolder(ProbePrefix(folder), platform.files)
                                 : HoldsPlainFiles(platform.files, ProbePrefix(folder));
    if (valid)
        (isDefault ? state.DefaultFolder : state.ViewFolder) = folder;
    return valid;
}

void SettingsFile::ReadFolders(std::string_view bytes) {
    state.HostFolderCount = 0;
    LineReader lines(bytes);
    while (!state.IsFull()) {
        const auto line = lines.Next();
        if (!line)
            break;
        if (!line->starts_with(setting_keys::VmrFolder))
            continue;
        const std::wstring folder =
            platform.ansi.Decode(line->substr(setting_keys::VmrFolder.size()));
        if (folder.size() <= 2 || !IsHostFolder(WithBackslash(folder), platform.files))
            continue;
        state.Register(folder);
    }
}

void SettingsFile::SaveSettings(const HostFolderCombo& combo, const std::wstring& browserFolder) {
    try {
        platform.files.SetCurrentFolder(platform.programFolder);
        const bool exists = FileExists(platform.files, FileName);
        // Not all of the former settings have been read: what would be written is less.
        if (exists && leftOpen)
            throw RunTimeError(ErrorNumber::FileAlreadyOpen, Path());
        const Values values = CurrentValues(combo, browserFolder);
        if (exists)
            RewriteSettings(values);
        else
            WriteDefaultSettings(values);
        DeleteBackup();
    } catch (const RunTimeError& error) {
        throw error.AsFatal();
    }
}

void SettingsFile::WriteDefaultSettings(const Values& values) {
    std::string text;
    AddLine(text, "# Tamblin");
    AddLine(text, "# Configuration File");
    AddLine(text, "");
    for (const std::string_view key :
         {setting_keys::Version, setting_keys::Default, setting_keys::KvaOption})
        AddLine(text, key, values.byKey.at(key));
    text += values.folderLines;
    AddLine(text, setting_keys::ViewFolder, values.byKey.at(setting_keys::ViewFolder));
    AddLine(text, "");
    platform.files.Write(FileName, text);
}

void SettingsFile::RewriteSettings(const Values& values) {
    platform.files.CheckReplaceable(FileName);
    DeleteBackup();
    platform.files.Copy(FileName, BackupName);

    const std::string former = platform.files.Read(BackupName);
    std::string text;
    bool foldersWritten = false;
    FieldReader fields(former);
    while (const auto item = fields.Next()) {
        const std::string_view key = KeyOf(*item);
        const auto value = values.byKey.find(key);
        if (value != values.byKey.end()) {
            AddLine(text, key, value->second);
        } else if (key != setting_keys::VmrFolder) {
            AddLine(text, *item);
        } else if (!foldersWritten) {
            text += values.folderLines;
            foldersWritten = true;
        }
    }
    if (!foldersWritten)
        text += values.folderLines;
    platform.files.Write(FileName, text);
}

// A save that failed may have left one, whichever way the next one takes.
void SettingsFile::DeleteBackup() {
    if (FileExists(platform.files, BackupName))
        platform.files.Delete(BackupName);
}

SettingsFile::Values SettingsFile::CurrentValues(const HostFolderCombo& combo,
                                                 const std::wstring& browserFolder) {
    Values values;
    values.byKey = {
        {setting_keys::Version, std::string(OwnVersion)},
        {setting_keys::Default, platform.ansi.EncodeName(combo.Text())},
        {setting_keys::KvaOption, platform.ansi.EncodeName(state.KvaOption)},
        {setting_keys::ViewFolder, platform.ansi.EncodeName(browserFolder)},
    };
    for (const std::wstring& folder : combo.entries)
        AddLine(values.folderLines, setting_keys::VmrFolder, platform.ansi.EncodeName(folder));
    return values;
}

} // namespace tamblin
