// The scene of the maintenance tests: one host folder with its program and start-up file, some
// characters, and the main window's lists over it.
#pragma once

#include <string>
#include <vector>

#include "install/installed_list.h"
#include "install/main_model.h"
#include "support/platform_fake.h"
#include "unit/rules_fixture.h"

namespace tamblin {

struct MaintenanceScene : PlatformFake {
    // `hostFolder` as it is registered, with or without a "\" at its end.
    explicit MaintenanceScene(std::wstring hostFolder = L"C:\\VMR")
        : host(std::move(hostFolder)), base(WithBackslash(host)) {
        AddHost(files, host);
        files.AddFile(base + L"ombrel.rc", formerStartUp);
        Register(state, host);
        state.DefaultFolder = host;
        state.BrowseStartFolder = L"C:\\Browsed\\";
        files.AddFolder(L"C:\\Browsed");
    }

    void AddCharacter(const std::wstring& name) { tamblin::AddCharacter(files, host, name); }

    // The main window reads its lists; what a command does afterwards is logged from here on.
    void Show() {
        FillHostFolderCombo(model.combo, state);
        RefreshInstalledList(model, state, platform);
        model.browser.RebuildBrowser();
        files.ForgetOperations();
    }

    // Exactly these.
    void SelectCharacters(const std::vector<std::wstring>& names) {
        Select(model.installed.names, names);
    }
    void SelectFiles(const std::vector<std::wstring>& names) {
        Select(model.browser.Files(), names);
    }

    // A shown scene with one character, which is selected.
    void ShowSelected(const std::wstring& name) {
        AddCharacter(name);
        Show();
        SelectCharacters({name});
    }

    std::string StartUpFile() const { return files.Contents(base + L"ombrel.rc"); }
    std::wstring Backup() const { return base + L"ombrel_rc.bak"; }

    // Several lines, a byte that is no character, and no end of line.
    const std::string formerStartUp = "H001currentobl=other.obl\r\nX=1\n\xFF\\";
    const std::wstring host;
    const std::wstring base; // with a "\"
    SettingsState state;
    MainModel model{platform, state};
};

} // namespace tamblin
