#include "maintenance/character_menu.h"

#include "install/selection_rules.h"
#include "maintenance/launch.h"

namespace tamblin {
namespace {

bool HasReadmeToShow(const MainModel& model, Platform& platform) {
    const SelectionList& names = model.installed.names;
    return HasReadme(model.combo.Text(), names[*names.FirstSelected()], platform);
}

struct CharacterItem {
    MenuItem item = MenuItem::Separator;
    const wchar_t* text = L"";
    void (*act)(const MainModel&, Platform&) = nullptr;       // none: it only closes the menu
    bool (*isEnabled)(const MainModel&, Platform&) = nullptr; // none: it always is
};

constexpr CharacterItem Items[] = {
    {MenuItem::mnrun, L"オンブレルの起動", LaunchCharacter},
    {MenuItem::mnview, L"READMEの表示", ShowReadme, HasReadmeToShow},
    {},
    {MenuItem::mncancel, L"キャンセル"},
};

} // namespace

Menu CharacterMenu(const MainModel& model, Platform& platform) {
    Menu menu;
    if (model.installed.names.SelectedCount() == 1)
        for (const CharacterItem& row : Items)
            menu.push_back({row.item, row.text, !row.isEnabled || row.isEnabled(model, platform)});
    return menu;
}

void ChooseFromCharacterMenu(MenuItem item, const MainModel& model, Platform& platform) {
    for (const CharacterItem& row : Items)
        if (row.item == item && row.act)
            row.act(model, platform);
}

} // namespace tamblin
