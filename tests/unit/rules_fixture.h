// Scenes that the tests of the rules share: host folders, characters, packages, and a main window
// of which only the rules exist.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/main_screen.h"
#include "base/run_time_error.h"
#include "base/selection_list.h"
#include "base/text.h"
#include "install/install.h"
#include "settings/settings_file.h"
#include "support/commands.h"
#include "support/hosts.h"
#include "support/platform_fake.h"

namespace tamblin {

// What nearly every test of a rule speaks of.
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;

// Names the cases of a parameterised test by their `name` member.
inline constexpr auto CaseName = [](const auto& testCase) {
    return std::string(testCase.param.name);
};

inline std::vector<std::wstring> RegisteredFolders(const SettingsState& state) {
    const auto first = state.HostFolders.begin() + 1;
    return {first, first + state.HostFolderCount};
}

// Of folders that are called by one letter each.
inline std::wstring RegisteredLetters(const SettingsState& state) {
    std::wstring letters;
    for (const std::wstring& folder : RegisteredFolders(state))
        letters += folder;
    return letters;
}

// Selects exactly the entries named.
inline void Select(SelectionList& list, const std::vector<std::wstring>& names) {
    list.DeselectAll();
    for (const std::wstring& name : names) {
        size_t index = 0;
        while (index < list.Size() && list[index] != name)
            ++index;
        if (index == list.Size())
            throw std::logic_error("the list has no such entry");
        list.Select(index);
    }
}

inline std::vector<std::wstring> SelectedEntries(const SelectionList& list) {
    std::vector<std::wstring> names;
    for (size_t index = 0; index < list.Size(); ++index)
        if (list.IsSelected(index))
            names.push_back(list[index]);
    return names;
}

// The enabled commands among those that selections govern.
inline Commands EnabledButtons(const MainModel& model) {
    return CommandsWhere([&](Command command) {
        return model.enabled[command] && !NeedingNoSelection.contains(command);
    });
}

// Runs what may fail, and tells how: the error's number, or nothing.
inline std::optional<ErrorNumber> ErrorOf(const std::function<void()>& command) {
    try {
        command();
    } catch (const RunTimeError& error) {
        return error.Number();
    }
    return std::nullopt;
}

// Runs the command on fresh scenes, the power going during its first operation, then during its
// second, and so on; there are `atLeast` of them.
template <typename Scene, typename Command, typename Check>
void ForEachPowerCut(size_t atLeast, const Command& command, const Check& check) {
    size_t cuts = 0;
    for (bool cut = true; cut;) {
        Scene scene;
        scene.files.CutPower(cuts + 1);
        try {
            command(scene);
            cut = false;
        } catch (const MemoryFileSystem::PowerCut&) {
            scene.files.ReturnPower();
            SCOPED_TRACE(testing::Message() << "operation " << ++cuts);
            check(scene);
        }
    }
    EXPECT_GE(cuts, atLeast);
}

// The main window as the install sees it, and a user who answers the confirmation window.
class InstallScreenFake : public InstallScreen {
  public:
    bool enabled = true;
    std::optional<std::int16_t> answer = AnswerInstall; // none: closed by its frame
    std::vector<InstallConfirmation> confirmations;
    std::function<void()> onConfirmation;
    std::function<void()> onDisabled;
    bool open = true;

    int timesEnabled = 0;

    void SetMainWindowEnabled(bool on) override {
        enabled = on;
        timesEnabled += on ? 1 : 0;
        if (!on && onDisabled)
            onDisabled();
    }
    void ShowConfirmation(const InstallConfirmation& lists, std::int16_t& InstallAnswer) override {
        confirmations.push_back(lists);
        if (onConfirmation)
            onConfirmation();
        if (answer)
            InstallAnswer = *answer;
    }
    bool MainWindowIsOpen() const override { return open; }
    void* MainWindowHandle() override { return this; }
};

// What a package unpacks to; folders end in "\".
struct PackedFile {
    std::wstring path;
    std::string bytes = {};
    FileAttributes attributes = {.archive = true};
};

// A main window over the host folder C:\Host and packages in C:\Packs.
struct MainWindowScene {
    explicit MainWindowScene(std::wstring host = L"C:\\Host") : hostFolder(std::move(host)) {
        fake.unlha.onUnpack = [this](const std::wstring& archive) {
            return Unpack(archive);
        };
        fake.files.AddFolder(L"C:\\Packs");
        if (hostFolder.starts_with(L"D:"))
            fake.files.AddDrive(L"D:");
        AddHost(files, hostFolder);
        Register(state, hostFolder);
        state.DefaultFolder = hostFolder;
        state.ViewFolder = L"C:\\Packs";
    }

    void AddPackage(const std::wstring& name, std::vector<PackedFile> contents,
                    std::int16_t result = 0) {
        const std::wstring path = L"C:\\Packs\\" + name;
        files.AddFile(path, "archive");
        packages[path] = {std::move(contents), result};
    }

    void Open() {
        main.Load();
        files.ForgetOperations();
    }

    // Selects the files named in the browser and presses Install.
    void InstallFiles(const std::vector<std::wstring>& names) {
        Select(model.browser.Files(), names);
        main.SelectionChanged();
        files.ForgetOperations();
        Install(model, state, fake.platform, screen);
    }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    std::wstring hostFolder;
    SettingsState state;
    SettingsFile settings{fake.platform, state};
    MainScreen main{fake.platform, state, settings};
    MainModel& model = main.Model();
    InstallScreenFake screen;

  private:
    struct Package {
        std::vector<PackedFile> contents;
        std::int16_t result = 0;
    };

    std::int16_t Unpack(const std::wstring& archive) {
        const Package& package = packages.at(archive);
        for (const PackedFile& file : package.contents) {
            if (file.path.ends_with(L'\\'))
                files.AddFolder(file.path, file.attributes);
            else
                AddUnpacked(file);
        }
        return package.result;
    }

    // Nothing that has just been unpacked is on the disk for certain.
    void AddUnpacked(const PackedFile& file) {
        files.AddFile(file.path, file.bytes, file.attributes);
        files.LeaveUnflushed(file.path);
    }

    std::map<std::wstring, Package> packages;
};

} // namespace tamblin
