#include "settings/host_folder_list.h"

#include "platform/file_lists.h"
#include "platform/path_form.h"

namespace tamblin {
namespace {

constexpr wchar_t HostNotFoundText[] = L"Vimora が見つかりませんでした。";
constexpr wchar_t NotChangedText[] = L"変更されませんでした。";
constexpr wchar_t AlreadyRegisteredText[] =
    L"このフォルダは、すでに登録されています。別のフォルダを指定してください。";

} // namespace

bool IsHostFolder(const std::wstring& prefix, FileSystem& files) {
    return IsFullPath(prefix) && ProbeFile(files, prefix + HostProgramName) &&
           ProbeFile(files, prefix + HostStartUpFileName);
}

Registration RegisterHostFolder(SettingsState& state, const std::wstring& folder,
                                Platform& platform) {
    const bool duplicate = state.IsRegistered(folder);
    if (!IsFullPath(folder) || !IsHostFolder(folder + L"\\", platform.files)) {
        platform.messages.Inform(HostNotFoundText);
        return Registration::HostMissing;
    }
    if (duplicate)
        platform.messages.Inform(state.EditMode ? NotChangedText : AlreadyRegisteredText);
    // A change to a folder that is already registered is said to be none, and is stored.
    if (state.EditMode)
        state.Put(state.EditIndex, folder);
    else if (!duplicate)
        state.Register(folder);
    return duplicate ? Registration::Duplicate : Registration::Stored;
}

void FillHostFolderCombo(HostFolderCombo& combo, const SettingsState& state) {
    combo.entries.clear();
    combo.selected.reset();
    for (const std::wstring& folder : state.Registered()) {
        if (folder == state.DefaultFolder && !folder.empty())
            combo.selected = combo.entries.size();
        combo.entries.push_back(folder);
    }
}

} // namespace tamblin
