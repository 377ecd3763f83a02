// The walk over the fixed drives and the settling of what it found.
#include "setup/host_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "settings/host_folder_list.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr wchar_t CancelledText[] = L"Vimoraフォルダの検出を中止しました。";
constexpr wchar_t NothingNewText[] = L"新しく、Vimoraを検出することができませんでした。";
constexpr wchar_t OutOfMemoryText[] = L"Vimoraフォルダ検索中にエラーが生じました。";

// Drives whose listings stand in the log; the program lies on a drive that is not searched.
struct SearchScene {
    SearchScene() {
        files.AddDrive(L"P:", DriveType::Ram);
        files.AddFolder(L"P:\\Tamblin");
        files.AddDrive(L"C:");
    }

    NextWindow Run() {
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
            if (StartsWith(line, L"List "))
                folders.push_back(line.substr(5));
        return folders;
    }

    MemoryFileSystem files;
    DesktopShellFake shell{files};
    ProgramStarterFake starter;
    MessageBoxesFake messages;
    EventLoopFake events;
    UnlhaFake unlha;
    NativeAnsiCodePage ansi;
    WorkProgressFake progress;
    Platform platform{files, shell, starter,  messages,      events,
                      unlha, ansi,  progress, L"P:\\Tamblin"};
    SettingsState state;
    HostSearch search{platform, state};
};

// --- What is a find -------------------------------------------------------------------------

TEST(HostSearch, FindsAFolderThatHoldsProgramAndStartUpFile) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\Program Files\\Vimora");
    scene.Run();
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\Program Files\\Vimora");
    EXPECT_EQ(scene.search.Progress().FoundText(), L"1");
}

struct FindRow {
    const char* name;
    const wchar_t* program;
    const wchar_t* startUpFile;
    bool found;
};

class Finds : public testing::TestWithParam<FindRow> {};

TEST_P(Finds, NeedBothFiles) {
    SearchScene scene;
    scene.files.AddFile(L"C:\\a\\" + std::wstring(GetParam().program));
    scene.files.AddFile(L"C:\\a\\" + std::wstring(GetParam().startUpFile));
    scene.Run();
    EXPECT_EQ(scene.state.WorkingFolderCount, GetParam().found ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    HostSearch, Finds,
    testing::Values(FindRow{"Both", L"ombrel.exe", L"ombrel.rc", true},
                    FindRow{"Capitals", L"OMBREL.EXE", L"OMBREL.RC", true},
                    FindRow{"ProgramAlone", L"ombrel.exe", L"ombrel.txt", false},
                    FindRow{"StartUpFileAlone", L"ombrel2.exe", L"ombrel.rc", false},
                    FindRow{"FullWidthProgram", L"ｏmbrel.exe", L"ombrel.rc", false},
                    FindRow{"StartUpFolder", L"ombrel.exe", L"ombrel.rc\\x", false},
                    FindRow{"ProgramFolder", L"ombrel.exe\\x", L"ombrel.rc", false}),
    CaseName);

TEST(HostSearch, HostInADriveRootIsFound) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\");
    scene.Run();
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\");
}

TEST(HostSearch, DriveLetterIsStoredInCapitalsAndTheRestAsSpelled) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    AddHost(scene.files, L"d:\\my Vimora\\表ソ能.obl");
    scene.Run();
    EXPECT_EQ(scene.state.HostFolders[1], L"D:\\my Vimora\\表ソ能.obl");
}

TEST(HostSearch, RegisteredFolderIsNotAddedAgain) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\VMR");
    Register(scene.state, L"C:\\VMR");
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_EQ(scene.state.WorkingFolderCount, 1);
    EXPECT_EQ(scene.search.Progress().FoundText(), L"");
}

class OtherSpellings : public testing::TestWithParam<const wchar_t*> {};

TEST_P(OtherSpellings, OfARegisteredFolderAreAddedASecondTime) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\VMR");
    Register(scene.state, GetParam());
    scene.Run();
    EXPECT_EQ(scene.state.HostFolderCount, 2);
    EXPECT_EQ(scene.state.HostFolders[2], L"C:\\VMR");
}

INSTANTIATE_TEST_SUITE_P(HostSearch, OtherSpellings,
                         testing::Values(L"c:\\VMR", L"C:\\vmr", L"C:\\VMR\\"));

// As a drive does that stands in the list twice.
TEST(HostSearch, FindsOfTheSameSearchAreNotCompared) {
    struct DriveTwice : MemoryFileSystem {
        std::vector<Drive> Drives() override {
            return {{L"c:", DriveType::Fixed}, {L"c:", DriveType::Fixed}};
        }
    } files;
    files.AddDrive(L"C:");
    AddHost(files, L"C:\\VMR");
    SearchScene scene;
    Platform& p = scene.platform;
    Platform platform{files,   p.shell, p.starter,  p.messages, p.events,
                      p.unlha, p.ansi,  p.progress, L"C:\\"};
    HostSearch(platform, scene.state).SearchAllDrives();
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\VMR", L"C:\\VMR"));
}

TEST(HostSearch, HostsThatDifferOnlyInCaseAreTwoFinds) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    AddHost(scene.files, L"C:\\Vmr");
    AddHost(scene.files, L"D:\\vmr");
    scene.Run();
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\Vmr", L"D:\\vmr"));
}

// --- The walk -------------------------------------------------------------------------------

TEST(HostSearch, SubfoldersAreVisitedFromTheLastToTheFirst) {
    SearchScene scene;
    for (const wchar_t* folder : {L"C:\\a\\1", L"C:\\a\\2", L"C:\\b", L"C:\\c\\3"})
        scene.files.AddFolder(folder);
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"C:\\c", L"C:\\c\\3", L"C:\\b", L"C:\\a",
                                             L"C:\\a\\2", L"C:\\a\\1"));
}

TEST(HostSearch, FindsBelowAFolderComeBeforeTheFolderItself) {
    SearchScene scene;
    for (const wchar_t* host : {L"C:\\", L"C:\\a", L"C:\\a\\x", L"C:\\b"})
        AddHost(scene.files, host);
    scene.Run();
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\b", L"C:\\a\\x", L"C:\\a", L"C:\\"));
}

TEST(HostSearch, YieldsOncePerFolder) {
    SearchScene scene;
    for (const wchar_t* folder : {L"C:\\a\\1", L"C:\\a\\2", L"C:\\b"})
        scene.files.AddFolder(folder);
    scene.Run();
    EXPECT_EQ(scene.events.yields, 5U);
}

TEST(HostSearch, OnlyFixedDrivesAreTouched) {
    SearchScene scene;
    const DriveType others[] = {DriveType::Unknown, DriveType::NoRoot, DriveType::Removable,
                                DriveType::Remote,  DriveType::CdRom,  DriveType::Ram};
    wchar_t letter = L'F';
    for (const DriveType type : others) {
        scene.files.AddDrive({letter, L':'}, type);
        AddHost(scene.files, {letter++, L':', L'\\', L'a'});
    }
    scene.files.AddDrive(L"Z:", DriveType::Fixed);
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"Z:\\"));
    EXPECT_EQ(scene.state.WorkingFolderCount, 0);
    EXPECT_EQ(scene.search.Progress().drive, L"Z:\\");
}

TEST(HostSearch, WithoutFixedDrivesNothingIsSaid) {
    SearchScene scene;
    scene.files.RemoveDrive(L"C:");
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
    EXPECT_EQ(scene.events.yields, 0U);
}

TEST(HostSearch, EndsInTheProgramFolder) {
    SearchScene scene;
    scene.files.SetCurrentFolder(L"C:\\");
    scene.Run();
    EXPECT_EQ(scene.files.CurrentFolder(), L"P:\\Tamblin");
}

TEST(HostSearch, HiddenFoldersAndThoseOfTheSystemAreSearched) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\a\\b");
    AddHost(scene.files, L"C:\\c");
    scene.files.AddFolder(L"C:\\a", {.hidden = true});
    scene.files.AddFolder(L"C:\\c", {.system = true});
    scene.Run();
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\c", L"C:\\a\\b"));
}

// Else a host in the recycle bin, when it is the only one, would become the default.
TEST(HostSearch, WhatIsHiddenAsAPartOfTheSystemIsNotSearched) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\$Recycle.Bin\\S-1-5-21\\$RVIMORA");
    scene.files.AddFolder(L"C:\\$Recycle.Bin", {.hidden = true, .system = true});
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\"));
    EXPECT_EQ(scene.state.HostFolderCount, 0);
}

// As when a folder is registered by hand: what the two files' attributes are does not matter.
TEST(HostSearch, HiddenAndSystemFilesAreFindsAndNotCounted) {
    SearchScene scene;
    scene.files.AddFile(L"C:\\a\\ombrel.exe", {}, {.hidden = true});
    scene.files.AddFile(L"C:\\a\\ombrel.rc");
    scene.files.AddFile(L"C:\\b\\ombrel.exe");
    scene.files.AddFile(L"C:\\b\\ombrel.rc", {}, {.system = true});
    scene.files.AddFile(L"C:\\c\\ombrel.exe", {}, {.hidden = true});
    scene.files.AddFile(L"C:\\c\\ombrel.rc", {}, {.hidden = true});
    scene.files.AddFile(L"C:\\d\\other", {}, {.hidden = true});
    scene.Run();
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\c", L"C:\\b", L"C:\\a"));
    EXPECT_EQ(scene.search.Progress().files, 2U);
    EXPECT_EQ(scene.search.Progress().folders, 2U);
}

TEST(HostSearch, LinksAreNotDescendedInto) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\real\\VMR");
    scene.files.AddLink(L"C:\\real\\root", L"C:\\");
    scene.files.AddLink(L"C:\\zlink", L"C:\\real");
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"C:\\real", L"C:\\real\\VMR"));
    EXPECT_EQ(scene.state.HostFolderCount, 1);
}

// A drive for which the system had no letter left.
struct VolumeScene : SearchScene {
    VolumeScene() {
        files.AddDrive(L"V:");
        files.HideLetter(L"V:");
        files.MountVolume(L"C:\\mount", L"V:");
        AddHost(files, L"V:\\VMR");
    }
};

TEST(HostSearch, VolumeMountedInAFolderIsSearched) {
    VolumeScene scene;
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"C:\\mount", L"C:\\mount\\VMR"));
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\mount\\VMR");
}

TEST(HostSearch, VolumeIsSearchedOnceHoweverOftenItIsMounted) {
    VolumeScene scene;
    scene.files.MountVolume(L"C:\\zagain", L"V:");
    scene.files.MountVolume(L"V:\\itself", L"V:");
    scene.files.MountVolume(L"V:\\back", L"C:");
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"C:\\mount", L"C:\\mount\\VMR"));
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard); // found again, and known by now
    EXPECT_EQ(scene.Visited().size(), 3U);
}

TEST(HostSearch, MountedVolumeThatIsNotFixedIsNotSearched) {
    SearchScene scene;
    scene.files.AddDrive(L"V:", DriveType::Removable);
    scene.files.MountVolume(L"C:\\mount", L"V:");
    scene.Run();
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\"));
}

TEST(HostSearch, FolderIsListedOnceHoweverManyChildrenItHas) {
    SearchScene scene;
    for (int number = 0; number < 1000; ++number)
        scene.files.AddFile(L"C:\\many\\" + std::to_wstring(number) + L"\\file");
    scene.Run();
    EXPECT_EQ(scene.files.CountLogged(L"List "), 1002U);
    const auto visited = scene.Visited();
    EXPECT_EQ(std::set<std::wstring>(visited.begin(), visited.end()).size(), 1002U);
    EXPECT_EQ(scene.files.OperationCount(), 1004U); // and the drives, and the way back
}

TEST(HostSearch, DeepPathsAreFollowedToTheirEnd) {
    SearchScene scene;
    std::wstring folder = L"C:";
    for (int depth = 0; depth < 300; ++depth)
        folder += L"\\f" + std::to_wstring(depth);
    AddHost(scene.files, folder);
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolders[1], folder);
}

TEST(HostSearch, DiskIsOnlyRead) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\a");
    const auto before = scene.files.Snapshot();
    scene.Run();
    EXPECT_EQ(scene.files.Snapshot(), before);
}

// --- Counters -------------------------------------------------------------------------------

TEST(SearchProgress, CountersStandBehindABlankAndAreEmptyAtFirst) {
    EXPECT_EQ(SearchProgress::CounterText(0), L"");
    EXPECT_EQ(SearchProgress::CounterText(1), L" 1");
    EXPECT_EQ(SearchProgress::CounterText(300000), L" 300000");
}

TEST(SearchProgress, CountsFilesAndTheFoldersThatHoldSome) {
    SearchScene scene;
    for (const wchar_t* file : {L"C:\\1", L"C:\\a\\2", L"C:\\a\\3"})
        scene.files.AddFile(file);
    scene.files.AddFolder(L"C:\\empty");
    scene.files.AddFolder(L"C:\\only\\folders");
    scene.Run();
    EXPECT_EQ(scene.search.Progress().files, 3U);
    EXPECT_EQ(scene.search.Progress().folders, 2U);
    EXPECT_EQ(scene.search.Progress().drive, L"C:\\");
}

TEST(SearchProgress, FolderIsCountedAfterTheFoldersBelowIt) {
    SearchScene scene;
    scene.files.AddFile(L"C:\\1");
    scene.files.AddFile(L"C:\\a\\2");
    scene.files.AddFile(L"C:\\b\\3");
    std::vector<std::uint64_t> counts;
    scene.events.onYield = [&] {
        counts.push_back(scene.search.Progress().folders);
    };
    scene.Run();
    EXPECT_THAT(counts, ElementsAre(0U, 0U, 1U));
    EXPECT_EQ(scene.search.Progress().folders, 3U);
}

TEST(SearchProgress, FoundCounterCountsTheNewFindsAlone) {
    SearchScene scene;
    for (const wchar_t* host : {L"C:\\a", L"C:\\b", L"C:\\known"})
        AddHost(scene.files, host);
    Register(scene.state, L"C:\\known");
    EXPECT_EQ(scene.search.Progress().FoundText(), L"");
    scene.Run();
    EXPECT_EQ(scene.search.Progress().FoundText(), L"2");
}

TEST(SearchProgress, StartsAnewWithEachSearch) {
    SearchScene scene;
    scene.files.AddFile(L"C:\\1");
    scene.Run();
    scene.Run();
    EXPECT_EQ(scene.search.Progress().files, 1U);
    EXPECT_EQ(scene.search.Progress().folders, 1U);
}

// --- More than ten --------------------------------------------------------------------------

void AddHosts(SearchScene& scene, int count) {
    for (int number = 0; number < count; ++number)
        AddHost(scene.files, L"C:\\h" + std::to_wstring(10 + number));
}

void RegisterOthers(SettingsState& state, int count) {
    for (int number = 1; number <= count; ++number)
        Register(state, L"R:\\r" + std::to_wstring(number));
}

TEST(HostSearch, EleventhAndTwelfthFindTakeTheTenthSlot) {
    SearchScene scene;
    AddHosts(scene, 12); // found from h21 down to h10
    EXPECT_EQ(scene.Run(), NextWindow::FolderChoice);
    EXPECT_EQ(scene.state.WorkingFolderCount, 10);
    EXPECT_EQ(scene.state.HostFolders[9], L"C:\\h13");
    EXPECT_EQ(scene.state.HostFolders[10], L"C:\\h10");
    EXPECT_EQ(scene.state.HostFolders[11], L"");
    EXPECT_EQ(scene.search.Progress().FoundText(), L"12");
}

TEST(HostSearch, WithTenRegisteredEachFindTakesTheTenthSlot) {
    SearchScene scene;
    RegisterOthers(scene.state, 10);
    AddHosts(scene, 2);
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_EQ(scene.state.HostFolderCount, 10);
    EXPECT_EQ(scene.state.HostFolders[9], L"R:\\r9");
    EXPECT_EQ(scene.state.HostFolders[10], L"C:\\h10");
    EXPECT_EQ(scene.state.WorkingFolderCount, 10);
    EXPECT_EQ(scene.search.Progress().FoundText(), L"2");
}

TEST(HostSearch, FoundCounterGoesOnWhereFindsTakeTheTenthSlot) {
    SearchScene scene;
    RegisterOthers(scene.state, 10);
    AddHosts(scene, 3);
    scene.Run();
    EXPECT_EQ(scene.search.Progress().FoundText(), L"3");
}

// --- Settling -------------------------------------------------------------------------------

struct SettleRow {
    int registered;
    int hosts; // on the drive, none of them registered
    const wchar_t* message;
    NextWindow next;
    int countAfter; // HostFolderCount
    std::vector<std::wstring> found;
};

class Settling : public testing::TestWithParam<std::tuple<SettleRow, bool>> {
  protected:
    void SetUp() override {
        RegisterOthers(scene.state, Row().registered);
        AddHosts(scene, Row().hosts);
        scene.state.WizardFromManagement = FromManagement();
        scene.state.ChoiceStage = 7;
    }
    static const SettleRow& Row() { return std::get<0>(GetParam()); }
    static bool FromManagement() { return std::get<1>(GetParam()); }

    SearchScene scene;
};

const std::vector<SettleRow>& SettleRows() {
    static const std::vector<SettleRow> rows = {
        {0, 0, L"", NextWindow::SetUpWizard, 0, {}},
        {0, 1, L"", NextWindow::MainWindow, 1, {L"C:\\h10"}},
        {0, 2, L"", NextWindow::FolderChoice, 0, {L"C:\\h11", L"C:\\h10"}},
        {0, 10, L"", NextWindow::FolderChoice, 0, {}},
        {0, 11, L"", NextWindow::FolderChoice, 0, {}},
        {1, 0, NothingNewText, NextWindow::SetUpWizard, 1, {}},
        {1, 1, L"", NextWindow::MainWindow, 2, {L"C:\\h10"}},
        {1, 2, L"", NextWindow::FolderChoice, 1, {L"C:\\h11", L"C:\\h10"}},
        {1, 8, L"", NextWindow::FolderChoice, 1, {}},
        {1, 9, L"", NextWindow::SetUpWizard, 1, {}}, // 1 + 10 folders: too many to count twice
        {2, 6, L"", NextWindow::FolderChoice, 2, {}},
        {2, 7, L"", NextWindow::SetUpWizard, 2, {}},
        {4, 1, L"", NextWindow::MainWindow, 5, {L"C:\\h10"}},
        {4, 2, L"", NextWindow::FolderChoice, 4, {L"C:\\h11", L"C:\\h10"}},
        {4, 3, L"", NextWindow::SetUpWizard, 4, {L"C:\\h12", L"C:\\h11", L"C:\\h10"}},
        {5, 0, NothingNewText, NextWindow::SetUpWizard, 5, {}},
        {5, 1, L"", NextWindow::SetUpWizard, 5, {L"C:\\h10"}},
        {9, 1, L"", NextWindow::SetUpWizard, 9, {L"C:\\h10"}},
        {10, 0, NothingNewText, NextWindow::SetUpWizard, 10, {}},
        {10, 1, NothingNewText, NextWindow::SetUpWizard, 10, {}},
    };
    return rows;
}

std::string SettleName(const testing::TestParamInfo<std::tuple<SettleRow, bool>>& instance) {
    const auto& [row, fromManagement] = instance.param;
    return std::to_string(row.registered) + "Registered" + std::to_string(row.hosts) + "Found" +
           (fromManagement ? "FromManagement" : "OnFirstRun");
}

INSTANTIATE_TEST_SUITE_P(HostSearch, Settling,
                         testing::Combine(testing::ValuesIn(SettleRows()), testing::Bool()),
                         SettleName);

TEST_P(Settling, SaysAndShowsWhatComesNext) {
    const bool oneNew = Row().next == NextWindow::MainWindow;
    EXPECT_EQ(scene.Run(), oneNew && FromManagement() ? NextWindow::FolderManagement : Row().next);
    if (*Row().message == 0)
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    else
        EXPECT_THAT(scene.messages.shown, ElementsAre(MessageBoxesFake::Box{
                                              MessageBoxesFake::Kind::Inform, Row().message}));
    EXPECT_EQ(scene.state.ChoiceStage, Row().next == NextWindow::FolderChoice ? 1 : 7);
}

TEST_P(Settling, CountsOneNewFolderAndLeavesMoreToTheChoice) {
    scene.Run();
    EXPECT_EQ(scene.state.HostFolderCount, Row().countAfter);
    if (!Row().found.empty()) {
        const auto first = scene.state.HostFolders.begin() + 1 + Row().registered;
        EXPECT_EQ(std::vector(first, first + Row().hosts), Row().found);
    }
}

TEST_P(Settling, FirstSlotBecomesTheDefaultOnlyOnAFirstRun) {
    scene.state.DefaultFolder = L"X:\\former";
    const bool becomesDefault = scene.Run() == NextWindow::MainWindow;
    EXPECT_EQ(becomesDefault, !FromManagement() && Row().next == NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder,
              becomesDefault ? scene.state.HostFolders[1] : L"X:\\former");
}

TEST_P(Settling, CallsBeforeItsFirstBoxWithAllCounted) {
    std::vector<size_t> boxesBefore;
    std::wstring found;
    scene.search.onSettling = [&] {
        boxesBefore.push_back(scene.messages.shown.size());
        found = scene.search.Progress().FoundText();
    };
    scene.Run();
    EXPECT_THAT(boxesBefore, ElementsAre(0U));
    EXPECT_EQ(found, scene.search.Progress().FoundText());
}

// Cancelled at the last folder, when all else has been found.
TEST_P(Settling, CancelledItForgetsTheFindsAndReturnsToTheWizard) {
    scene.files.AddDrive(L"D:");
    const auto registered = scene.state.HostFolders;
    scene.CancelAtYield(static_cast<size_t>(Row().hosts) + 2);
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(CancelledText));
    EXPECT_EQ(scene.state.HostFolderCount, Row().registered);
    for (size_t slot = 1; slot <= 11; ++slot) {
        const bool overwritten = Row().registered == 10 && Row().hosts > 0 && slot == 10;
        EXPECT_EQ(scene.state.HostFolders[slot], overwritten ? L"C:\\h10" : registered[slot]);
    }
}

// --- Cancelling -----------------------------------------------------------------------------

TEST(HostSearchCancel, FolderAboveIsLeftWithoutALookAndThoseAboveItGetTheirs) {
    SearchScene scene;
    for (const wchar_t* host : {L"C:\\", L"C:\\b", L"C:\\b\\c", L"C:\\b\\c\\d", L"C:\\a"})
        AddHost(scene.files, host);
    scene.CancelAtYield(4); // the visit of d
    std::vector<std::wstring> found;
    scene.messages.onShow = [&](const MessageBoxesFake::Box&) {
        found = scene.Found();
    };
    EXPECT_EQ(scene.Run(), NextWindow::SetUpWizard);
    EXPECT_THAT(found, ElementsAre(L"C:\\b", L"C:\\"));
    EXPECT_THAT(scene.Visited(), Not(Contains(L"C:\\a")));
    EXPECT_EQ(scene.events.yields, 4U);
    EXPECT_EQ(scene.search.Progress().folders, 2U);
}

TEST(HostSearchCancel, FirstFolderOfADriveIsNotLookedAt) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\");
    scene.CancelAtYield(1);
    scene.Run();
    EXPECT_EQ(scene.search.Progress().files, 0U);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(CancelledText));
}

TEST(HostSearchCancel, NoFurtherDriveIsSearched) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    scene.files.AddFolder(L"C:\\a");
    scene.CancelAtYield(2);
    scene.Run();
    EXPECT_EQ(scene.search.Progress().drive, L"C:\\");
    EXPECT_THAT(scene.Visited(), Not(Contains(L"D:\\")));
}

TEST(HostSearchCancel, EndsInTheProgramFolder) {
    SearchScene scene;
    scene.files.SetCurrentFolder(L"C:\\");
    scene.CancelAtYield(1);
    scene.Run();
    EXPECT_EQ(scene.files.CurrentFolder(), L"P:\\Tamblin");
}

TEST(HostSearchCancel, NextSearchIsNotCancelled) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\a");
    scene.CancelAtYield(1);
    scene.Run();
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolderCount, 1);
}

// --- Failures -------------------------------------------------------------------------------

std::wstring ErrorText(int number) {
    return L"エラー： " + std::to_wstring(number) + L"が発生しました。処理を中止します。";
}

TEST(HostSearchFailure, DriveThatIsNotReadyIsPassedOver) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    scene.files.SetReady(L"C:", false);
    AddHost(scene.files, L"D:\\a");
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.HostFolders[1], L"D:\\a");
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(HostSearchFailure, LastDriveThatIsNotReadyEndsTheSearchInPeace) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    scene.files.SetReady(L"D:", false);
    AddHost(scene.files, L"C:\\a");
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(HostSearchFailure, FolderDeletedMeanwhileIsPassedOverAndItsSiblingsAreSearched) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\a");
    scene.files.AddFolder(L"C:\\b");
    scene.events.onYield = [&] {
        if (scene.events.yields == 2)
            scene.files.DeleteTree(L"C:\\b");
    };
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_THAT(scene.messages.shown, IsEmpty());
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\a");
}

// It is locked, say; the drive that it is mounted in is not touched by that.
TEST(HostSearchFailure, MountedVolumeThatIsNotAvailableIsPassedOver) {
    SearchScene scene;
    AddHost(scene.files, L"C:\\a");
    AddHost(scene.files, L"C:\\c");
    scene.files.AddFolder(L"C:\\b");
    scene.files.ForgetOperations();
    scene.files.FailOperation(4, ErrorNumber::DeviceUnavailable); // b
    EXPECT_EQ(scene.search.SearchAllDrives(), NextWindow::FolderChoice);
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\c", L"C:\\a"));
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(HostSearchFailure, DriveThatGoesAwayIsReportedOnceAndLeavesTheFindsAndTheOtherDrives) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    for (const wchar_t* host : {L"C:\\z", L"C:\\a", L"D:\\d"})
        AddHost(scene.files, host);
    for (const wchar_t* folder : {L"C:\\b", L"C:\\c"})
        scene.files.AddFolder(folder);
    scene.events.onYield = [&] {
        if (scene.events.yields == 3)
            scene.files.RemoveDrive(L"C:");
    };
    EXPECT_EQ(scene.Run(), NextWindow::FolderChoice);
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\z", L"D:\\d"));
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(68)));
}

class SearchFaults : public testing::TestWithParam<int> {
  protected:
    // One host in each of three folders; the n-th operation of the search fails.
    void Fail(size_t n) {
        for (const wchar_t* host : {L"C:\\a", L"C:\\b", L"C:\\c"})
            AddHost(scene.files, host);
        scene.files.ForgetOperations();
        scene.files.FailOperation(n, static_cast<ErrorNumber>(GetParam()));
    }
    SearchScene scene;
    static constexpr size_t ListDrives = 1, ListRoot = 2, ListB = 4, GoBack = 6;
};

INSTANTIATE_TEST_SUITE_P(Numbers, SearchFaults, testing::Values(52, 53, 57, 67, 70, 71, 75, 76));

// A word is said of failing devices alone. Every Windows drive has many folders that a user may not
// open.
TEST_P(SearchFaults, FolderThatCannotBeListedIsGivenUpByItself) {
    Fail(ListB);
    EXPECT_EQ(scene.Run(), NextWindow::FolderChoice);
    if (GetParam() == 57 || GetParam() == 71)
        EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(GetParam())));
    else
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\c", L"C:\\a"));
}

// All but 68, with which a drive is passed over.
class RootFaults : public SearchFaults {};

INSTANTIATE_TEST_SUITE_P(Numbers, RootFaults, testing::Values(7, 52, 53, 57, 70, 71, 75, 76));

TEST_P(RootFaults, EndTheDriverAtOnce) {
    Fail(ListRoot);
    scene.files.AddDrive(L"D:");
    EXPECT_EQ(scene.Run(), NextWindow::Stay);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(GetParam())));
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\"));
}

class DriverFaults : public SearchFaults {};

INSTANTIATE_TEST_SUITE_P(Numbers, DriverFaults, testing::Values(7, 52, 53, 57, 68, 70, 71, 75, 76));

TEST_P(DriverFaults, AreTrappedAtItsFirstAndItsLastStepToo) {
    for (const size_t step : {ListDrives, GoBack}) {
        SCOPED_TRACE(step);
        Fail(step);
        scene.messages.shown.clear();
        EXPECT_EQ(scene.Run(), NextWindow::Stay);
        EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(GetParam())));
        EXPECT_EQ(scene.state.HostFolderCount, 0);
    }
}

TEST(HostSearchFailure, OutOfMemoryStopsTheWholeSearchAndWhatWasFoundIsSettled) {
    SearchScene scene;
    scene.files.AddDrive(L"D:");
    for (const wchar_t* host : {L"C:\\a", L"C:\\b\\x", L"C:\\c", L"D:\\d"})
        AddHost(scene.files, host);
    scene.files.ForgetOperations();
    scene.files.FailOperation(5, ErrorNumber::OutOfMemory); // x
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(OutOfMemoryText));
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\", L"C:\\c", L"C:\\b", L"C:\\b\\x"));
    EXPECT_EQ(scene.state.HostFolders[1], L"C:\\c");
    EXPECT_TRUE(scene.state.SearchRunning); // only the user clears it
    EXPECT_EQ(scene.files.CurrentFolder(), L"P:\\Tamblin");
}

TEST(HostSearchFailure, SearchAfterOneThatRanOutOfMemoryGoesToTheEnd) {
    SearchScene scene;
    scene.files.AddFolder(L"C:\\a");
    AddHost(scene.files, L"C:\\b\\x");
    scene.files.FailOperation(4, ErrorNumber::OutOfMemory);
    scene.search.SearchAllDrives();
    EXPECT_EQ(scene.Run(), NextWindow::MainWindow);
}

// The program ends: nothing more is listed, settled or said.
TEST(HostSearchCancel, AbandonedSearchEndsAtOnceAndSilently) {
    SearchScene scene;
    for (const wchar_t* host : {L"C:\\a", L"C:\\b\\x"})
        AddHost(scene.files, host);
    scene.events.onYield = [&] {
        if (scene.events.yields == 2)
            scene.search.Abandon();
    };
    EXPECT_EQ(scene.Run(), NextWindow::Stay);
    EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\"));
    EXPECT_THAT(scene.messages.shown, IsEmpty());
}

TEST(HostSearchFailure, OutOfMemoryLeavesTheFolderAboveWithoutALook) {
    SearchScene scene;
    for (const wchar_t* file : {L"C:\\1", L"C:\\b\\2", L"C:\\b\\x\\3"})
        scene.files.AddFile(file);
    scene.files.ForgetOperations();
    scene.files.FailOperation(4, ErrorNumber::OutOfMemory); // x
    scene.Run();
    EXPECT_EQ(scene.search.Progress().files, 1U);
}

} // namespace
} // namespace tamblin
