// tamb.ini in the program folder: read key by key at start-up, rewritten when the user leaves.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "settings/host_folder_list.h"
#include "settings/settings_state.h"

namespace tamblin {

namespace setting_keys {
inline constexpr std::string_view Version = "VERSION=";
inline constexpr std::string_view VmrFolder = "VMRFOLDER=";
inline constexpr std::string_view Default = "DEFAULT=";
inline constexpr std::string_view ViewFolder = "VIEWFOLDER=";
inline constexpr std::string_view KvaOption = "KVAOPTION=";
} // namespace setting_keys

class SettingsFile {
  public:
    SettingsFile(Platform& surroundings, SettingsState& settings)
        : platform(surroundings), state(settings) {}

    // Reads what belongs to one of the keys into the state. True when a valid value was stored;
    // KVAOPTION= stores its value and answers false all the same. Never throws.
    bool ReadSetting(std::string_view key);

    // Rewrites the file, or creates it: the folders and the default are the combo's, the view
    // folder is the browser's. Leaves the program folder current. Every failure is a fatal
    // RunTimeError; the former settings are then in tamb.ini or in tamb.bak. Among the failures are
    // a name that the code page cannot hold (52) and a file that a read has left open (55); they
    // leave tamb.ini as it was.
    void SaveSettings(const HostFolderCombo& combo, const std::wstring& browserFolder);

  private:
    std::wstring Path() const;
    bool ReadKey(std::string_view key, std::string_view bytes);
    void ReadFolders(std::string_view bytes);
    bool TakeValue(std::string_view key, std::string_view value);

    struct Values { // what is to be written, in the code page
        std::map<std::string_view, std::string> byKey;
        std::string folderLines;
    };
    Values CurrentValues(const HostFolderCombo& combo, const std::wstring& browserFolder);
    void WriteDefaultSettings(const Values& values);
    void RewriteSettings(const Values& values);
    void DeleteBackup();

    Platform& platform;
    SettingsState& state;
    bool leftOpen = false; // an aborted read has left the file open; later reads fail
};

} // namespace tamblin
