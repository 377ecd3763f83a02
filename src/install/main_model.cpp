#include "install/main_model.h"

#include <algorithm>

#include "base/character_files.h"
#include "base/text.h"

namespace tamblin {
namespace {

bool IsRegisteredHost(const HostFolderCombo& combo, const std::wstring& folder) {
    return std::any_of(combo.entries.begin(), combo.entries.end(), [&](const std::wstring& entry) {
        return EqualIgnoringCase(WithoutBackslash(entry), folder);
    });
}

// Archives are always offered; definition files and the host program only outside the registered
// host folders, where they belong to the host.
bool IsOfferedForInstall(const std::wstring& name, const std::wstring& folder,
                         const HostFolderCombo& combo) {
    if (IsArchive(name))
        return true;
    if (!IsDefinition(name) && !EqualIgnoringCase(name, HostProgramName))
        return false;
    return !IsRegisteredHost(combo, folder);
}

} // namespace

MainModel::MainModel(Platform& platform, SettingsState& state)
    : browser(platform, state.BrowseStartFolder,
              [this](const std::wstring& name, const std::wstring& folder) {
                  return IsOfferedForInstall(name, folder, combo);
              }) {}

} // namespace tamblin
