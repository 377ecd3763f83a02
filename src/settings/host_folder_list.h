// The registered host folders: which folder counts as one, how one is registered, and how the
// main window's combo shows them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

inline constexpr wchar_t HostProgramName[] = L"ombrel.exe";
inline constexpr wchar_t HostStartUpFileName[] = L"ombrel.rc";

// True when the host program and its start-up file stand behind `prefix`, a folder with whatever
// separator the caller's own rule gives it. A path that is not full is none: it would mean another
// folder as soon as the current one has changed.
bool IsHostFolder(const std::wstring& prefix, FileSystem& files);

// What became of a folder that the user has entered. But for the first, the user has been told.
enum class Registration { Stored, Duplicate, HostMissing };

// Checks a folder that the user has entered and stores it: in add mode in a new slot, in edit mode
// in slot EditIndex, even when it is a duplicate. Throws a fatal RunTimeError 9 when there
// is no slot left.
Registration RegisterHostFolder(SettingsState& state, const std::wstring& folder,
                                Platform& platform);

// The main window's host folder combo.
struct HostFolderCombo {
    std::vector<std::wstring> entries;
    std::optional<size_t> selected;

    std::wstring Text() const { return selected ? entries[*selected] : std::wstring(); }
};

void FillHostFolderCombo(HostFolderCombo& combo, const SettingsState& state);

} // namespace tamblin
