#include "maintenance/uninstall.h"

#include "base/character_files.h"
#include "base/text.h"
#include "install/installed_list.h"

namespace tamblin {
namespace {

constexpr wchar_t Question[] =
    L"現在選択されているオンブレルをアンインストールしてもよろしいですか？";
constexpr wchar_t UninstallDoneText[] = L"アンインストールが完了しました。";

} // namespace

void Uninstall(MainModel& model, SettingsState& state, Platform& platform) {
    if (!platform.messages.AskOkCancel(Question))
        return;
    const std::wstring base = WithBackslash(model.combo.Text());
    // Also when the deletion breaks off.
    model.installed.outdated = true;
    const SelectionList& names = model.installed.names;
    std::wstring lastFolder;
    for (size_t index = 0; index < names.Size(); ++index) {
        if (!names.IsSelected(index))
            continue;
        lastFolder = base + names[index];
        platform.shell.DeleteTree(lastFolder);
    }
    // The shell does not tell what it could not delete. A character that is still there keeps what
    // makes it one.
    if (lastFolder.empty() || !platform.files.Find(lastFolder))
        platform.files.Delete(DefinitionOf(lastFolder));
    platform.messages.Inform(UninstallDoneText);
    RefreshInstalledList(model, state, platform);
}

} // namespace tamblin
