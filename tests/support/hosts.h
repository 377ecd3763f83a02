// Host folders with characters, as they stand on the disk and in the settings.
#pragma once

#include "base/text.h"
#include "settings/settings_state.h"
#include "support/memory_file_system.h"

namespace tamblin {

inline void AddHost(MemoryFileSystem& files, const std::wstring& folder) {
    files.AddFile(WithBackslash(folder) + L"ombrel.exe", "host");
    files.AddFile(WithBackslash(folder) + L"ombrel.rc", "H001currentobl=abc.obl\r\n");
}

// An installed character: its definition file and its folder with one file.
inline void AddCharacter(MemoryFileSystem& files, const std::wstring& host,
                         const std::wstring& name) {
    files.AddFile(WithBackslash(host) + name + L".obl", "definition");
    files.AddFile(WithBackslash(host) + name + L"\\face.bmp", "picture");
}

// Registers a folder as the settings file would have.
inline void Register(SettingsState& state, const std::wstring& folder) {
    ++state.HostFolderCount;
    state.HostFolders[static_cast<size_t>(state.HostFolderCount)] = folder;
}

} // namespace tamblin
