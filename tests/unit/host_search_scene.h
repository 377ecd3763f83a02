// Drives to be searched, and what a search has done.
#pragma once

#include "settings/host_folder_list.h"
#include "setup/host_search.h"
#include "unit/rules_fixture.h"

namespace tamblin {

using testing::Contains;
using testing::Not;

constexpr wchar_t CancelledText[] = L"Vimoraフォルダの検出を中止しました。";
constexpr wchar_t NothingNewText[] = L"新しく、Vimoraを検出することができませんでした。";
constexpr wchar_t OutOfMemoryText[] = L"Vimoraフォルダ検索中にエラーが生じました。";

// Drives whose listings stand in the log; the program lies on a drive that is not searched.
struct SearchScene : PlatformFake {
    SearchScene() : PlatformFake(L"P:", DriveType::Ram) { files.AddDrive(L"C:"); }

    NextWindow Search() {
        files.ForgetOperations();
        return search.SearchAllDrives();
    }
    // Presses the cancel button at the n-th yield.
    void CancelAtYield(size_t n) {
        events.onYield = [this, n] {
            if (events.yields == n)
                search.Cancel();
        };
    }
    std::vector<std::wstring> Found() const {
        const auto first = state.HostFolders.begin() + 1;
        return {first + state.HostFolderCount, first + state.WorkingFolderCount};
    }
    // The folders listed, in order.
    std::vector<std::wstring> Visited() const {
        std::vector<std::wstring> folders;
        for (const std::wstring& line : files.Log())
            if (line.starts_with(L"List "))
                folders.push_back(line.substr(5));
        return folders;
    }

    SettingsState state;
    HostSearch search{platform, events, state};
};

struct HostSearchTest : testing::Test, SearchScene {};
using SearchProgressTest = HostSearchTest;
using HostSearchCancel = HostSearchTest;
using HostSearchFailure = HostSearchTest;

inline void AddHosts(MemoryFileSystem& files, int count) {
    for (int number = 0; number < count; ++number)
        AddHost(files, L"C:\\h" + std::to_wstring(10 + number));
}

inline void RegisterOthers(SettingsState& state, int count) {
    for (int number = 1; number <= count; ++number)
        Register(state, L"R:\\r" + std::to_wstring(number));
}

} // namespace tamblin
