#include "setup/host_search.h"

#include <algorithm>
#include <new>

#include "base/text.h"
#include "settings/host_folder_list.h"

namespace tamblin {
namespace {

constexpr wchar_t CancelledText[] = L"Vimoraフォルダの検出を中止しました。";
constexpr wchar_t NothingNewText[] = L"新しく、Vimoraを検出することができませんでした。";
constexpr wchar_t ErrorText[] = L"エラー：{}が発生しました。処理を中止します。";
constexpr wchar_t OutOfMemoryText[] = L"Vimoraフォルダ検索中にエラーが生じました。";

// The drive root in capitals, the rest as spelled on the disk.
std::wstring Normalised(const std::wstring& folder) {
    return UpperCase(folder.substr(0, 3)) + folder.substr(std::min<size_t>(3, folder.size()));
}

} // namespace

struct HostSearch::Visit {
    std::wstring folder;
    // Still to visit, from the last to the first.
    std::vector<std::wstring> subfolders = {};
    std::uint64_t files = 0;       // those that lists of files show
    bool holdsHostProgram = false; // whatever its attributes, as for the start-up file
    bool holdsStartUpFile = false;

    Visit NextSubfolder() {
        Visit next{WithBackslash(folder) + subfolders.back()};
        subfolders.pop_back();
        return next;
    }
    void TakeFile(const FolderEntry& file) {
        holdsHostProgram |= EqualIgnoringCase(file.name, HostProgramName);
        holdsStartUpFile |= EqualIgnoringCase(file.name, HostStartUpFileName);
        if (!file.attributes.hidden && !file.attributes.system)
            ++files;
    }
};

std::wstring SearchProgress::CounterText(std::uint64_t count) {
    return count == 0 ? std::wstring() : L" " + std::to_wstring(count);
}

std::wstring SearchProgress::FoundText() const {
    return found == 0 ? std::wstring() : std::to_wstring(found);
}

NextWindow HostSearch::SearchAllDrives() {
    progress = {};
    volumes.clear();
    stop = Stop::No;
    state.BeginSearch();
    state.SearchRunning = true;
    try {
        for (const Drive& drive : platform.files.Drives()) {
            if (drive.type == DriveType::Fixed)
                SearchDrive(drive.name.substr(0, 2) + L"\\");
            if (!MayGoOn())
                break;
        }
        if (stop == Stop::Abandoned)
            return NextWindow::Stay;
        platform.files.SetCurrentFolder(platform.programFolder);
    } catch (const RunTimeError& error) {
        Report(error);
        return NextWindow::Stay;
    }
    if (onSettling)
        onSettling();
    return Settle();
}

// A drive that is not available is passed over; any other failure to open it ends the search.
void HostSearch::SearchDrive(const std::wstring& root) {
    progress.drive = UpperCase(root);
    Visit visit{root};
    try {
        ListVisit(visit);
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::DeviceUnavailable)
            throw;
        return;
    }
    SearchFolderTree(std::move(visit));
}

// A search that stops before it has entered a subfolder leaves the folder above without a look at
// its files; the folders above that one still get theirs.
void HostSearch::SearchFolderTree(Visit root) {
    if (!YieldForVisit())
        return;
    std::vector<Visit> way{std::move(root)};
    while (!way.empty()) {
        if (!MayGoOn() || way.back().subfolders.empty()) {
            LookAtFiles(way.back());
            way.pop_back();
            continue;
        }
        Visit subfolder = way.back().NextSubfolder();
        switch (EnterSubfolder(subfolder)) {
            case Entered::Yes:
                way.push_back(std::move(subfolder));
                break;
            case Entered::PassedOver:
                break;
            case Entered::StoppedBefore:
                way.pop_back();
                break;
            case Entered::DriveIsOver:
                return;
        }
    }
}

// False when the search has been stopped meanwhile.
bool HostSearch::YieldForVisit() {
    state.SearchRunning = true;
    events.Yield();
    return MayGoOn();
}

HostSearch::Entered HostSearch::EnterSubfolder(Visit& subfolder) {
    if (!YieldForVisit())
        return Entered::StoppedBefore;
    try {
        ListVisit(subfolder);
        return Entered::Yes;
    } catch (const RunTimeError& error) {
        return GiveUpSubfolder(error);
    }
}

// A folder that the user may not open, or that has vanished since it was listed, is an empty one.
// Every drive of Windows holds dozens of the first kind.
HostSearch::Entered HostSearch::GiveUpSubfolder(const RunTimeError& error) {
    switch (error.Number()) {
        case ErrorNumber::OutOfMemory:
            stop = Stop::OutOfMemory; // first: the program may end while the message is shown
            platform.messages.Inform(OutOfMemoryText);
            return Entered::StoppedBefore;
        case ErrorNumber::DeviceUnavailable:
            // What is mounted in the folder is not available: passed over, as a drive would be.
            if (IsThere(progress.drive))
                return Entered::PassedOver;
            Report(error);
            return Entered::DriveIsOver; // each of its folders would fail
        case ErrorNumber::DeviceIo:
        case ErrorNumber::DiskNotReady:
            Report(error);
            return Entered::PassedOver;
        default:
            return Entered::PassedOver;
    }
}

bool HostSearch::IsThere(const std::wstring& root) {
    try {
        return platform.files.Find(root).has_value();
    } catch (const RunTimeError&) {
        return false;
    }
}

void HostSearch::ListVisit(Visit& visit) try {
    for (FolderEntry& entry : platform.files.List(visit.folder)) {
        const FileAttributes& attributes = entry.attributes;
        if (!attributes.folder)
            visit.TakeFile(entry);
        else if (IsToBeSearched(WithBackslash(visit.folder) + entry.name, attributes))
            visit.subfolders.push_back(std::move(entry.name));
    }
} catch (const std::bad_alloc&) {
    throw RunTimeError(ErrorNumber::OutOfMemory);
}

// What is hidden as a part of the system (the recycle bin, restore points) is no place for a host.
// Links lead to what is searched anyway, or round in circles.
bool HostSearch::IsToBeSearched(const std::wstring& folder, const FileAttributes& attributes) {
    if (attributes.hidden && attributes.system)
        return false;
    return !attributes.link || IsVolumeYetToBeSearched(folder);
}

// A volume may be mounted in several folders, also in one of its own, and have a drive besides.
bool HostSearch::IsVolumeYetToBeSearched(const std::wstring& folder) {
    const auto volume = platform.files.FixedVolumeAt(folder);
    if (!volume)
        return false;
    if (volumes.empty())
        for (const Drive& drive : platform.files.Drives())
            if (const auto own = platform.files.FixedVolumeAt(drive.name + L"\\"))
                volumes.insert(*own);
    return volumes.insert(*volume).second;
}

void HostSearch::LookAtFiles(const Visit& visit) {
    if (visit.holdsHostProgram && visit.holdsStartUpFile)
        TakeFound(Normalised(visit.folder));
    progress.files += visit.files;
    if (visit.files > 0)
        ++progress.folders;
}

// Only the folders registered before the search are compared.
void HostSearch::TakeFound(const std::wstring& folder) {
    if (state.IsRegistered(folder))
        return;
    state.AddFound(folder);
    ++progress.found;
}

NextWindow HostSearch::Settle() {
    const int before = state.HostFolderCount;
    const int after = state.WorkingFolderCount;
    if (!state.SearchRunning) {
        platform.messages.Inform(CancelledText);
        state.ForgetFound();
        return NextWindow::SetUpWizard;
    }
    if (after == before && before > 0)
        platform.messages.Inform(NothingNewText);
    // The sum counts the registered folders twice.
    if (before + after > HostFolderLimit || after <= before)
        return NextWindow::SetUpWizard;
    if (after > before + 1) {
        state.ChoiceStage = 1;
        return NextWindow::FolderChoice;
    }
    state.HostFolderCount = state.WorkingFolderCount;
    if (state.WizardFromManagement)
        return NextWindow::FolderManagement;
    state.DefaultFolder = state.HostFolders[1];
    return NextWindow::MainWindow;
}

void HostSearch::Report(const RunTimeError& error) {
    const auto number = static_cast<std::uint64_t>(error.Number());
    platform.messages.Inform(WithGapFilled(ErrorText, SearchProgress::CounterText(number)));
}

} // namespace tamblin
