// The main window over two hosts, with a character in each and one package.
#pragma once

#include "app/main_screen.h"
#include "base/version.h"
#include "maintenance/uninstall.h"
#include "unit/rules_fixture.h"

namespace tamblin {

constexpr wchar_t SavedSettings[] = L"C:\\Tamblin\\tamb.ini";

inline auto OffersReadme() {
    return testing::Contains(testing::AllOf(testing::Field(&MenuRow::item, MenuItem::mnview),
                                            testing::Field(&MenuRow::enabled, true)));
}

class MainScreenTest : public testing::Test {
  protected:
    MainScreenTest() {
        AddCharacter(files, L"C:\\Host", L"abc");
        AddHost(files, L"C:\\Second");
        AddCharacter(files, L"C:\\Second", L"xyz");
        Register(scene.state, L"C:\\Second");
        scene.AddPackage(L"mio.lzh", {});
    }
    const std::vector<std::wstring>& Installed() const { return model.installed.names.Entries(); }
    void SelectBoth() {
        Select(model.installed.names, {L"abc"});
        Select(model.browser.Files(), {L"mio.lzh"});
        main.SelectionChanged();
    }
    void ExpectMissing(const std::function<void()>& command) {
        EXPECT_EQ(ErrorOf(command), ErrorNumber::PathNotFound);
    }

    MainWindowScene scene;
    MemoryFileSystem& files = scene.files;
    PlatformFake& fake = scene.fake;
    MainScreen& main = scene.main;
    MainModel& model = scene.model;
    SettingsState& state = scene.state;
};

} // namespace tamblin
