#include "maintenance/updates.h"

#include <optional>

#include "base/character_files.h"
#include "base/text.h"
#include "install/selection_rules.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t HostQuestion[] = L"Vimoraをアップデートします。よろしいですか？";
constexpr wchar_t HostDoneText[] = L"Vimoraのアップデートが完了しました。";
constexpr wchar_t DefinitionQuestion[] = L"{}をアップデートします。よろしいですか？";
constexpr wchar_t DefinitionDoneText[] = L"{}のアップデートが完了しました。";

std::optional<std::wstring> DefinitionSource(const MainModel& model) {
    const SelectionList& list =
        model.definitionUpdateReady ? model.installed.names : model.browser.Files();
    const auto selected = list.FirstSelected();
    if (!selected)
        return std::nullopt;
    if (model.definitionUpdateReady)
        return DeliveredDefinitionFile(model.combo.Text(), list[*selected]);
    return WithBackslash(model.browser.ShownFolder()) + list[*selected];
}

} // namespace

void UpdateHostProgram(MainModel& model, Platform& platform) {
    const std::wstring source = WithBackslash(model.browser.ShownFolder()) + HostProgramName;
    const auto file = FindNeededFile(platform.files, source);
    if (!file || !platform.messages.AskOkCancel(HostQuestion))
        return;
    platform.files.Copy(source, model.combo.Text() + L"\\" + file->name);
    platform.messages.Inform(HostDoneText);
    model.enabled[Command::UpdateHost] = false;
}

void UpdateDefinitionFile(MainModel& model, Platform& platform) {
    const auto source = DefinitionSource(model);
    const auto file = source ? FindNeededFile(platform.files, *source) : std::nullopt;
    if (!file)
        return;
    const std::wstring character = CharacterOf(file->name);
    if (!platform.messages.AskOkCancel(WithGapFilled(DefinitionQuestion, character)))
        return;
    platform.files.Copy(*source, WithBackslash(model.combo.Text()) + file->name);
    platform.messages.Inform(WithGapFilled(DefinitionDoneText, character));
    model.enabled[Command::UpdateDefinition] = false;
    platform.files.SetCurrentFolder(platform.programFolder);
}

} // namespace tamblin
