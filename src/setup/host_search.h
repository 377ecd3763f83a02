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
    HostSearch(Platform& surroundings, EventLoop& betweenFolders, SettingsState& settings)
        : platform(surroundings), events(betweenFolders), state(settings) {}

    // Walks all fixed drives, yielding to `betweenFolders` once per folder, and settles the result:
    // where to go next, or Stay when a failure has ended the search and left the windows as they
    // are. What was found and is to be chosen from stands in the slots behind the registered
    // folders.
    NextWindow SearchAllDrives();

    // The cancel button: the next folder visit ends the search.
    void Cancel() { state.SearchRunning = false; }
    // The program ends: the search does too, at the next folder visit, without another word.
    void Abandon() { stop = Stop::Abandoned; }

    // Called when the walk is over and nothing has been said of its result yet.
    std::function<void()> onSettling;

    const SearchProgress& Progress() const { return progress; }

  private:
    struct Visit; // a folder on the way from the drive's root down to the current one
    // What ends the search beside the user, who clears SearchRunning.
    enum class Stop { No, OutOfMemory, Abandoned };
    enum class Entered { Yes, PassedOver, StoppedBefore, DriveIsOver };

    void SearchDrive(const std::wstring& root);
    void SearchFolderTree(Visit root);
    bool YieldForVisit();
    bool MayGoOn() const { return state.SearchRunning && stop == Stop::No; }
    Entered EnterSubfolder(Visit& subfolder);
    Entered GiveUpSubfolder(const RunTimeError& error);
    bool IsThere(const std::wstring& root);
    void LookAtFiles(const Visit& visit);
    void TakeFound(const std::wstring& folder);
    void ListVisit(Visit& visit);
    bool IsToBeSearched(const std::wstring& folder, const FileAttributes& attributes);
    bool IsVolumeYetToBeSearched(const std::wstring& folder);
    NextWindow Settle();
    void Report(const RunTimeError& error);

    Platform& platform;
    EventLoop& events;
    SettingsState& state;
    SearchProgress progress;
    std::set<std::wstring> volumes; // that stand for themselves; filled when the first mounted
                                    // one is met
    Stop stop = Stop::No;
};

} // namespace tamblin
