// Finding host folders by walking every fixed drive, folder by folder.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/next_window.h"
#include "base/run_time_error.h"
#include "platform/platform.h"
#include "settings/settings_state.h"

namespace tamblin {

// What the progress window shows. The search counts, the window paints when it gets the time.
struct SearchProgress {
    std::wstring drive; // "C:\"
    std::uint64_t files = 0;
    std::uint64_t folders = 0; // folders finished that hold files
    std::uint64_t found = 0;   // goes on counting where a find takes the place of the one before

    // Counters stand with a leading blank, and are empty until they have counted.
    static std::wstring CounterText(std::uint64_t count);
    // Without the blank.
    std::wstring FoundText() const;
};

class HostSearch {
  public:
    HostSearch(Platform& surroundings, SettingsState& settings)
        : platform(surroundings), state(settings) {}

    // Walks all fixed drives, yielding once per folder, and settles the result: where to go next,
    // or Stay when a failure has ended the search and left the windows as they are. What was found
    // and is to be chosen from stands in the slots behind the registered folders.
    NextWindow SearchAllDrives();

    // The cancel button: the next folder visit ends the search.
    void Cancel() { state.SearchRunning = false; }
    // The program ends: the search does too, at the next folder visit, without another word.
    void Abandon() { abandoned = true; }

    // Called when the walk is over and nothing has been said of its result yet.
    std::function<void()> onSettling;

    const SearchProgress& Progress() const { return progress; }

  private:
    struct Abandoned {};
    struct Visit; // a folder on the way from the drive's root down to the current one

    void SearchDrive(const std::wstring& root);
    void SearchFolderTree(Visit root);
    bool YieldForVisit();
    bool MayGoOn() const { return state.SearchRunning && !outOfMemory; }
    void EnterSubfolder(std::vector<Visit>& visits);
    void GiveUpSubfolder(const RunTimeError& error, std::vector<Visit>& visits);
    bool IsThere(const std::wstring& root);
    void LookAtFiles(const Visit& visit);
    void TakeFound(const std::wstring& folder);
    // A lack of memory is a RunTimeError like others here, with a message of its own.
    Visit ListVisit(const std::wstring& folder);
    Visit ListVisitUnguarded(const std::wstring& folder);
    bool IsToBeSearched(const std::wstring& folder, const FileAttributes& attributes);
    bool IsVolumeYetToBeSearched(const std::wstring& folder);
    NextWindow Settle();
    void Report(const RunTimeError& error);

    Platform& platform;
    SettingsState& state;
    SearchProgress progress;
    std::set<std::wstring> volumes; // that stand for themselves; filled when the first mounted
                                    // one is met
    bool outOfMemory = false;
    bool abandoned = false;
};

} // namespace tamblin
