#include "settings/host_folder_list.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "platform/file_lists.h"
#include "platform/path_form.h"

namespace tamblin {
namespace {

constexpr wchar_t HostNotFoundText[] = L"Vimora が見つかりませんでした。";
constexpr wchar_t NotChangedText[] = L"変更されませんでした。";
constexpr wchar_t AlreadyRegisteredText[] =
    L"このフォルダは、すでに登録されています。別のフォルダを指定してください。";

bool IsRegistered(const SettingsState& state, const std::wstring& folder) {
    const auto first = state.HostFolders.begin() + 1;
    const auto last = first + state.HostFolderCount;
    return std::find(first, last, folder) != last;
}

void Store(SettingsState& state, const std::wstring& folder) {
    if (!state.EditMode)
        ++state.HostFolderCount;
    const auto slot = static_cast<size_t>(state.EditMode ? state.EditIndex : state.HostFolderCount);
    if (slot >= state.HostFolders.size())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange).AsFatal();
    state.HostFolders[slot] = folder;
}

} // namespace

bool IsHostFolder(const std::wstring& prefix, FileSystem& files) {
    return IsFullPath(prefix) && ProbeFile(files, prefix + HostProgramName) &&
           ProbeFile(files, prefix + HostStartUpFileName);
}

Registration RegisterHostFolder(SettingsState& state, const std::wstring& folder,
                                Platform& platform) {
    const bool duplicate = IsRegistered(state, folder);
    if (!IsFullPath(folder) || !IsHostFolder(folder + L"\\", platform.files)) {
        platform.messages.Inform(HostNotFoundText);
        return Registration::HostMissing;
    }
    if (duplicate)
        platform.messages.Inform(state.EditMode ? NotChangedText : AlreadyRegisteredText);
    // A change to a folder that is already registered is said to be none, and is stored.
    if (!duplicate || state.EditMode)
        Store(state, folder);
    return duplicate ? Registration::Duplicate : Registration::Stored;
}

void FillHostFolderCombo(HostFolderCombo& combo, const SettingsState& state) {
    combo.entries.clear();
    combo.selected.reset();
    for (size_t slot = 1; slot <= static_cast<size_t>(state.HostFolderCount); ++slot) {
        const std::wstring& folder = state.HostFolders[slot];
        if (folder == state.DefaultFolder && !folder.empty())
            combo.selected = combo.entries.size();
        combo.entries.push_back(folder);
    }
}

} // namespace tamblin
