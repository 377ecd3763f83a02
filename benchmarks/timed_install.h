// What the benchmarks that install packages share: a clock, a session with one host folder, a
// screen that agrees to the install, and clearing up.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "growth_world.h"
#include "install/install.h"
#include "install/installed_list.h"

namespace tamblin {

inline double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class ConfirmingScreen : public InstallScreen {
  public:
    void SetMainWindowEnabled(bool) override {}
    void ShowConfirmation(const InstallConfirmation&, std::int16_t& InstallAnswer) override {
        InstallAnswer = AnswerInstall;
    }
    bool MainWindowIsOpen() const override { return true; }
    void* MainWindowHandle() override { return nullptr; }
};

struct Session {
    Session(Platform& platform, const std::wstring& host) : model(platform, state) {
        state.HostFolderCount = 1;
        state.HostFolders[1] = state.DefaultFolder = host;
        FillHostFolderCombo(model.combo, state);
    }
    SettingsState state;
    MainModel model;
};

inline void MakeEmptyHost(FileSystem& files, const std::wstring& host) {
    files.MakeFolder(host);
    files.Write(host + L"\\ombrel.exe", "");
    files.Write(host + L"\\ombrel.rc", "");
}

// File by file: the shell takes its time over large folders, which is not what is measured here.
inline void RemoveTree(FileSystem& files, const std::wstring& folder) {
    if (!files.Find(folder))
        return;
    for (const FolderEntry& entry : files.List(folder)) {
        const std::wstring path = folder + L"\\" + entry.name;
        if (entry.attributes.folder)
            RemoveTree(files, path);
        else
            files.Delete(path);
    }
    files.RemoveFolder(folder);
}

} // namespace tamblin
