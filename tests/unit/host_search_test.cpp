// The walk over the fixed drives and the settling of what it found.
#include "setup/host_search.h"

#include <set>

#include "settings/host_folder_list.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

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
            if (StartsWith(line, L"List "))
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

// --- What is a find -------------------------------------------------------------------------

TEST(HostSearch, FolderIsStoredAsItIsSpelledBehindADriveLetterInCapitals) {
    for (const wchar_t* folder :
         {L"C:\\Program Files\\Vimora", L"C:\\", L"c:\\my Vimora\\表ソ能.obl"}) {
        SearchScene scene;
        AddHost(scene.files, folder);
        scene.Search();
        EXPECT_EQ(scene.state.HostFolders[1], L"C" + std::wstring(folder).substr(1));
        EXPECT_EQ(scene.search.Progress().FoundText(), L"1");
    }
}

struct FindRow {
    const wchar_t* program;
    const wchar_t* startUpFile;
    bool found;
};

TEST(HostSearch, FindNeedsBothFiles) {
    const FindRow rows[] = {
        {L"ombrel.exe", L"ombrel.rc", true},     {L"OMBREL.EXE", L"OMBREL.RC", true},
        {L"ombrel.exe", L"ombrel.txt", false},   {L"ombrel2.exe", L"ombrel.rc", false},
        {L"ｏmbrel.exe", L"ombrel.rc", false},   {L"ombrel.exe", L"ombrel.rc\\x", false},
        {L"ombrel.exe\\x", L"ombrel.rc", false},
    };
    for (const FindRow& row : rows) {
        SearchScene scene;
        scene.files.AddFile(L"C:\\a\\" + std::wstring(row.program));
        scene.files.AddFile(L"C:\\a\\" + std::wstring(row.startUpFile));
        scene.Search();
        EXPECT_EQ(scene.state.WorkingFolderCount, row.found ? 1 : 0)
            << row.program << " " << row.startUpFile;
    }
}

TEST_F(HostSearchTest, RegisteredFolderIsNotAddedAgain) {
    AddHost(files, L"C:\\VMR");
    Register(state, L"C:\\VMR");
    EXPECT_EQ(Search(), NextWindow::SetUpWizard);
    EXPECT_EQ(state.WorkingFolderCount, 1);
    EXPECT_EQ(search.Progress().FoundText(), L"");
}

TEST(HostSearch, OtherSpellingsOfARegisteredFolderAreAddedASecondTime) {
    for (const wchar_t* spelling : {L"c:\\VMR", L"C:\\vmr", L"C:\\VMR\\"}) {
        SearchScene scene;
        AddHost(scene.files, L"C:\\VMR");
        Register(scene.state, spelling);
        scene.Search();
        EXPECT_EQ(scene.state.HostFolderCount, 2) << spelling;
        EXPECT_EQ(scene.state.HostFolders[2], L"C:\\VMR");
    }
}

TEST_F(HostSearchTest, FindsOfTheSameSearchAreNotCompared) {
    struct DriveTwice : MemoryFileSystem {
        std::vector<Drive> Drives() override {
            return {{L"c:", DriveType::Fixed}, {L"c:", DriveType::Fixed}};
        }
    } twice;
    twice.AddDrive(L"C:");
    twice.AddFolder(L"C:\\Tamblin");
    AddHost(twice, L"C:\\VMR");
    Platform overTwice = PlatformOver(twice);
    HostSearch(overTwice, events, state).SearchAllDrives();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\VMR", L"C:\\VMR"));
}

TEST_F(HostSearchTest, HostsThatDifferOnlyInCaseAreTwoFinds) {
    files.AddDrive(L"D:");
    AddHost(files, L"C:\\Vmr");
    AddHost(files, L"D:\\vmr");
    Search();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\Vmr", L"D:\\vmr"));
}

// --- The walk -------------------------------------------------------------------------------

TEST_F(HostSearchTest, SubfoldersAreVisitedFromTheLastToTheFirstWithAYieldEach) {
    for (const wchar_t* folder : {L"C:\\a\\1", L"C:\\a\\2", L"C:\\b", L"C:\\c\\3"})
        files.AddFolder(folder);
    Search();
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"C:\\c", L"C:\\c\\3", L"C:\\b", L"C:\\a",
                                       L"C:\\a\\2", L"C:\\a\\1"));
    EXPECT_EQ(events.yields, 7U);
}

TEST_F(HostSearchTest, FindsBelowAFolderComeBeforeTheFolderItself) {
    for (const wchar_t* host : {L"C:\\", L"C:\\a", L"C:\\a\\x", L"C:\\b"})
        AddHost(files, host);
    Search();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\b", L"C:\\a\\x", L"C:\\a", L"C:\\"));
}

TEST_F(HostSearchTest, OnlyFixedDrivesAreTouched) {
    const DriveType others[] = {DriveType::Unknown, DriveType::NoRoot, DriveType::Removable,
                                DriveType::Remote,  DriveType::CdRom,  DriveType::Ram};
    wchar_t letter = L'F';
    for (const DriveType type : others) {
        files.AddDrive({letter, L':'}, type);
        AddHost(files, {letter++, L':', L'\\', L'a'});
    }
    files.AddDrive(L"Z:", DriveType::Fixed);
    Search();
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"Z:\\"));
    EXPECT_EQ(state.WorkingFolderCount, 0);
    EXPECT_EQ(search.Progress().drive, L"Z:\\");
}

TEST_F(HostSearchTest, WithoutFixedDrivesNothingIsSaid) {
    files.RemoveDrive(L"C:");
    EXPECT_EQ(Search(), NextWindow::SetUpWizard);
    EXPECT_THAT(messages.shown, IsEmpty());
    EXPECT_EQ(events.yields, 0U);
}

TEST_F(HostSearchTest, ReadsTheDiskOnlyAndEndsInTheProgramFolder) {
    AddHost(files, L"C:\\a");
    const auto before = files.Snapshot();
    files.SetCurrentFolder(L"C:\\");
    Search();
    EXPECT_EQ(files.CurrentFolder(), L"P:\\Tamblin");
    EXPECT_EQ(files.Snapshot(), before);
}

TEST_F(HostSearchTest, HiddenFoldersAndThoseOfTheSystemAreSearched) {
    AddHost(files, L"C:\\a\\b");
    AddHost(files, L"C:\\c");
    files.AddFolder(L"C:\\a", {.hidden = true});
    files.AddFolder(L"C:\\c", {.system = true});
    Search();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\c", L"C:\\a\\b"));
}

// Else a host in the recycle bin, when it is the only one, would become the default.
TEST_F(HostSearchTest, WhatIsHiddenAsAPartOfTheSystemIsNotSearched) {
    AddHost(files, L"C:\\$Recycle.Bin\\S-1-5-21\\$RVIMORA");
    files.AddFolder(L"C:\\$Recycle.Bin", {.hidden = true, .system = true});
    EXPECT_EQ(Search(), NextWindow::SetUpWizard);
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\"));
    EXPECT_EQ(state.HostFolderCount, 0);
}

// As when a folder is registered by hand: what the two files' attributes are does not matter.
TEST_F(HostSearchTest, HiddenAndSystemFilesAreFindsAndNotCounted) {
    files.AddFile(L"C:\\a\\ombrel.exe", {}, {.hidden = true});
    files.AddFile(L"C:\\a\\ombrel.rc");
    files.AddFile(L"C:\\b\\ombrel.exe");
    files.AddFile(L"C:\\b\\ombrel.rc", {}, {.system = true});
    files.AddFile(L"C:\\c\\ombrel.exe", {}, {.hidden = true});
    files.AddFile(L"C:\\c\\ombrel.rc", {}, {.hidden = true});
    files.AddFile(L"C:\\d\\other", {}, {.hidden = true});
    Search();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\c", L"C:\\b", L"C:\\a"));
    EXPECT_EQ(search.Progress().files, 2U);
    EXPECT_EQ(search.Progress().folders, 2U);
}

TEST_F(HostSearchTest, LinksAreNotDescendedInto) {
    AddHost(files, L"C:\\real\\VMR");
    files.AddLink(L"C:\\real\\root", L"C:\\");
    files.AddLink(L"C:\\zlink", L"C:\\real");
    Search();
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"C:\\real", L"C:\\real\\VMR"));
    EXPECT_EQ(state.HostFolderCount, 1);
}

// A drive for which the system had no letter left.
struct MountedVolumeTest : HostSearchTest {
    MountedVolumeTest() {
        files.AddDrive(L"V:");
        files.HideLetter(L"V:");
        files.MountVolume(L"C:\\mount", L"V:");
        AddHost(files, L"V:\\VMR");
    }
};

TEST_F(MountedVolumeTest, IsSearchedOnceHoweverOftenItIsMounted) {
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(Search(), time == 0 ? NextWindow::MainWindow : NextWindow::SetUpWizard);
        EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"C:\\mount", L"C:\\mount\\VMR"));
        EXPECT_EQ(state.HostFolders[1], L"C:\\mount\\VMR");
        files.MountVolume(L"C:\\zagain", L"V:");
        files.MountVolume(L"V:\\itself", L"V:");
        files.MountVolume(L"V:\\back", L"C:");
    }
}

TEST_F(HostSearchTest, MountedVolumeThatIsNotFixedIsNotSearched) {
    files.AddDrive(L"V:", DriveType::Removable);
    files.MountVolume(L"C:\\mount", L"V:");
    Search();
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\"));
}

TEST_F(HostSearchTest, FolderIsListedOnceHoweverManyChildrenItHas) {
    for (int number = 0; number < 1000; ++number)
        files.AddFile(L"C:\\many\\" + std::to_wstring(number) + L"\\file");
    Search();
    EXPECT_EQ(files.CountLogged(L"List "), 1002U);
    const auto visited = Visited();
    EXPECT_EQ(std::set<std::wstring>(visited.begin(), visited.end()).size(), 1002U);
    EXPECT_EQ(files.OperationCount(), 1004U); // and the drives, and the way back
}

TEST_F(HostSearchTest, DeepPathsAreFollowedToTheirEnd) {
    std::wstring folder = L"C:";
    for (int depth = 0; depth < 300; ++depth)
        folder += L"\\f" + std::to_wstring(depth);
    AddHost(files, folder);
    EXPECT_EQ(Search(), NextWindow::MainWindow);
    EXPECT_EQ(state.HostFolders[1], folder);
}

// --- Counters -------------------------------------------------------------------------------

TEST(SearchProgress, CountersStandBehindABlankAndAreEmptyAtFirst) {
    EXPECT_EQ(SearchProgress::CounterText(0), L"");
    EXPECT_EQ(SearchProgress::CounterText(1), L" 1");
    EXPECT_EQ(SearchProgress::CounterText(300000), L" 300000");
}

TEST_F(SearchProgressTest, CountsFilesAndTheFoldersThatHoldSomeAnewInEachSearch) {
    for (const wchar_t* file : {L"C:\\1", L"C:\\a\\2", L"C:\\a\\3"})
        files.AddFile(file);
    files.AddFolder(L"C:\\empty");
    files.AddFolder(L"C:\\only\\folders");
    for (int time = 0; time < 2; ++time) {
        Search();
        EXPECT_EQ(search.Progress().files, 3U);
        EXPECT_EQ(search.Progress().folders, 2U);
        EXPECT_EQ(search.Progress().drive, L"C:\\");
    }
}

TEST_F(SearchProgressTest, FolderIsCountedAfterTheFoldersBelowIt) {
    files.AddFile(L"C:\\1");
    files.AddFile(L"C:\\a\\2");
    files.AddFile(L"C:\\b\\3");
    std::vector<std::uint64_t> counts;
    events.onYield = [&] {
        counts.push_back(search.Progress().folders);
    };
    Search();
    EXPECT_THAT(counts, ElementsAre(0U, 0U, 1U));
    EXPECT_EQ(search.Progress().folders, 3U);
}

TEST_F(SearchProgressTest, FoundCounterCountsTheNewFindsAlone) {
    for (const wchar_t* host : {L"C:\\a", L"C:\\b", L"C:\\known"})
        AddHost(files, host);
    Register(state, L"C:\\known");
    EXPECT_EQ(search.Progress().FoundText(), L"");
    Search();
    EXPECT_EQ(search.Progress().FoundText(), L"2");
}

// --- More than ten --------------------------------------------------------------------------

void AddHosts(MemoryFileSystem& files, int count) {
    for (int number = 0; number < count; ++number)
        AddHost(files, L"C:\\h" + std::to_wstring(10 + number));
}

void RegisterOthers(SettingsState& state, int count) {
    for (int number = 1; number <= count; ++number)
        Register(state, L"R:\\r" + std::to_wstring(number));
}

TEST_F(HostSearchTest, EleventhAndTwelfthFindTakeTheTenthSlot) {
    AddHosts(files, 12); // found from h21 down to h10
    EXPECT_EQ(Search(), NextWindow::FolderChoice);
    EXPECT_EQ(state.WorkingFolderCount, 10);
    EXPECT_EQ(state.HostFolders[9], L"C:\\h13");
    EXPECT_EQ(state.HostFolders[10], L"C:\\h10");
    EXPECT_EQ(state.HostFolders[11], L"");
    EXPECT_EQ(search.Progress().FoundText(), L"12");
}

TEST_F(HostSearchTest, WithTenRegisteredEachFindTakesTheTenthSlotAndIsCounted) {
    RegisterOthers(state, 10);
    AddHosts(files, 3);
    EXPECT_EQ(Search(), NextWindow::SetUpWizard);
    EXPECT_EQ(state.HostFolderCount, 10);
    EXPECT_EQ(state.HostFolders[9], L"R:\\r9");
    EXPECT_EQ(state.HostFolders[10], L"C:\\h10");
    EXPECT_EQ(state.WorkingFolderCount, 10);
    EXPECT_EQ(search.Progress().FoundText(), L"3");
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
        AddHosts(scene.files, Row().hosts);
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
    EXPECT_EQ(scene.Search(),
              oneNew && FromManagement() ? NextWindow::FolderManagement : Row().next);
    if (*Row().message == 0)
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    else
        EXPECT_THAT(scene.messages.shown,
                    ElementsAre(Box{MessageBoxesFake::Kind::Inform, Row().message}));
    EXPECT_EQ(scene.state.ChoiceStage, Row().next == NextWindow::FolderChoice ? 1 : 7);
}

TEST_P(Settling, CountsOneNewFolderAndLeavesMoreToTheChoice) {
    scene.Search();
    EXPECT_EQ(scene.state.HostFolderCount, Row().countAfter);
    if (!Row().found.empty()) {
        const auto first = scene.state.HostFolders.begin() + 1 + Row().registered;
        EXPECT_EQ(std::vector(first, first + Row().hosts), Row().found);
    }
}

TEST_P(Settling, FirstSlotBecomesTheDefaultOnlyOnAFirstRun) {
    scene.state.DefaultFolder = L"X:\\former";
    const bool becomesDefault = scene.Search() == NextWindow::MainWindow;
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
    scene.Search();
    EXPECT_THAT(boxesBefore, ElementsAre(0U));
    EXPECT_EQ(found, scene.search.Progress().FoundText());
}

// Cancelled at the last folder, when all else has been found.
TEST_P(Settling, CancelledItForgetsTheFindsAndReturnsToTheWizard) {
    scene.files.AddDrive(L"D:");
    const auto registered = scene.state.HostFolders;
    scene.CancelAtYield(static_cast<size_t>(Row().hosts) + 2);
    EXPECT_EQ(scene.Search(), NextWindow::SetUpWizard);
    EXPECT_THAT(scene.messages.Texts(), ElementsAre(CancelledText));
    EXPECT_EQ(scene.state.HostFolderCount, Row().registered);
    for (size_t slot = 1; slot <= 11; ++slot) {
        const bool overwritten = Row().registered == 10 && Row().hosts > 0 && slot == 10;
        EXPECT_EQ(scene.state.HostFolders[slot], overwritten ? L"C:\\h10" : registered[slot]);
    }
}

// --- Cancelling -----------------------------------------------------------------------------

TEST_F(HostSearchCancel, FolderAboveIsLeftWithoutALookAndThoseAboveItGetTheirs) {
    for (const wchar_t* host : {L"C:\\", L"C:\\b", L"C:\\b\\c", L"C:\\b\\c\\d", L"C:\\a"})
        AddHost(files, host);
    CancelAtYield(4); // the visit of d
    std::vector<std::wstring> found;
    messages.onShow = [&](const Box&) {
        found = Found();
    };
    EXPECT_EQ(Search(), NextWindow::SetUpWizard);
    EXPECT_THAT(found, ElementsAre(L"C:\\b", L"C:\\"));
    EXPECT_THAT(Visited(), Not(Contains(L"C:\\a")));
    EXPECT_EQ(events.yields, 4U);
    EXPECT_EQ(search.Progress().folders, 2U);
}

TEST_F(HostSearchCancel, FirstFolderOfADriveIsNotLookedAtAndTheNextSearchNotCancelled) {
    AddHost(files, L"C:\\");
    files.SetCurrentFolder(L"C:\\");
    CancelAtYield(1);
    Search();
    EXPECT_EQ(search.Progress().files, 0U);
    EXPECT_THAT(messages.Texts(), ElementsAre(CancelledText));
    EXPECT_EQ(files.CurrentFolder(), L"P:\\Tamblin");
    EXPECT_EQ(Search(), NextWindow::MainWindow);
    EXPECT_EQ(state.HostFolderCount, 1);
}

TEST_F(HostSearchCancel, NoFurtherDriveIsSearched) {
    files.AddDrive(L"D:");
    files.AddFolder(L"C:\\a");
    CancelAtYield(2);
    Search();
    EXPECT_EQ(search.Progress().drive, L"C:\\");
    EXPECT_THAT(Visited(), Not(Contains(L"D:\\")));
}

// --- Failures -------------------------------------------------------------------------------

std::wstring ErrorText(int number) {
    return L"エラー： " + std::to_wstring(number) + L"が発生しました。処理を中止します。";
}

TEST(HostSearch, DriveThatIsNotReadyIsPassedOver) {
    for (const auto& [lost, host] : {std::pair{L"C:", L"D:\\a"}, std::pair{L"D:", L"C:\\a"}}) {
        SearchScene scene;
        scene.files.AddDrive(L"D:");
        scene.files.SetReady(lost, false);
        AddHost(scene.files, host);
        EXPECT_EQ(scene.Search(), NextWindow::MainWindow);
        EXPECT_EQ(scene.state.HostFolders[1], host);
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    }
}

TEST_F(HostSearchFailure, FolderDeletedMeanwhileIsPassedOverAndItsSiblingsAreSearched) {
    AddHost(files, L"C:\\a");
    files.AddFolder(L"C:\\b");
    events.onYield = [&] {
        if (events.yields == 2)
            files.DeleteTree(L"C:\\b");
    };
    EXPECT_EQ(Search(), NextWindow::MainWindow);
    EXPECT_THAT(messages.shown, IsEmpty());
    EXPECT_EQ(state.HostFolders[1], L"C:\\a");
}

// It is locked, say; the drive that it is mounted in is not touched by that.
TEST_F(HostSearchFailure, MountedVolumeThatIsNotAvailableIsPassedOver) {
    AddHost(files, L"C:\\a");
    AddHost(files, L"C:\\c");
    files.AddFolder(L"C:\\b");
    files.ForgetOperations();
    files.FailOperation(4, ErrorNumber::DeviceUnavailable); // b
    EXPECT_EQ(search.SearchAllDrives(), NextWindow::FolderChoice);
    EXPECT_THAT(Found(), ElementsAre(L"C:\\c", L"C:\\a"));
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(HostSearchFailure, DriveThatGoesAwayIsReportedOnceAndLeavesTheFindsAndTheOtherDrives) {
    files.AddDrive(L"D:");
    for (const wchar_t* host : {L"C:\\z", L"C:\\a", L"D:\\d"})
        AddHost(files, host);
    for (const wchar_t* folder : {L"C:\\b", L"C:\\c"})
        files.AddFolder(folder);
    events.onYield = [&] {
        if (events.yields == 3)
            files.RemoveDrive(L"C:");
    };
    EXPECT_EQ(Search(), NextWindow::FolderChoice);
    EXPECT_THAT(Found(), ElementsAre(L"C:\\z", L"D:\\d"));
    EXPECT_THAT(messages.Texts(), ElementsAre(ErrorText(68)));
}

// One host in each of three folders; the n-th operation of the search fails.
struct FailingSearch : SearchScene {
    enum Operation : size_t { ListDrives = 1, ListRoot = 2, ListB = 4, GoBack = 7 };

    FailingSearch(Operation n, int error) {
        for (const wchar_t* host : {L"C:\\a", L"C:\\b", L"C:\\c"})
            AddHost(files, host);
        files.AddDrive(L"D:");
        files.ForgetOperations();
        files.FailOperation(n, static_cast<ErrorNumber>(error));
        next = search.SearchAllDrives();
    }
    NextWindow next;
};

// A word is said of failing devices alone. Every Windows drive has many folders that a user may not
// open.
TEST(SearchFaults, FolderThatCannotBeListedIsGivenUpByItself) {
    for (const int error : {52, 53, 57, 67, 70, 71, 75, 76}) {
        const FailingSearch scene(FailingSearch::ListB, error);
        EXPECT_EQ(scene.next, NextWindow::FolderChoice);
        if (error == 57 || error == 71)
            EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(error)));
        else
            EXPECT_THAT(scene.messages.shown, IsEmpty());
        EXPECT_THAT(scene.Found(), ElementsAre(L"C:\\c", L"C:\\a"));
    }
}

// But for 68 at a drive's root, with which the drive is passed over.

TEST(SearchFaults, FirstStepRootOfADriveAndLastStepEndTheSearchAtOnce) {
    for (const int error : {7, 52, 53, 57, 68, 70, 71, 75, 76})
        for (const auto step :
             {FailingSearch::ListDrives, FailingSearch::ListRoot, FailingSearch::GoBack}) {
            if (error == 68 && step == FailingSearch::ListRoot)
                continue;
            const FailingSearch scene(step, error);
            EXPECT_EQ(scene.next, NextWindow::Stay) << step;
            EXPECT_THAT(scene.messages.Texts(), ElementsAre(ErrorText(error)));
            EXPECT_EQ(scene.state.HostFolderCount, 0);
            if (step == FailingSearch::ListRoot) {
                EXPECT_THAT(scene.Visited(), ElementsAre(L"C:\\"));
            }
        }
}

TEST_F(HostSearchFailure, OutOfMemoryStopsTheWholeSearchAndWhatWasFoundIsSettled) {
    files.AddDrive(L"D:");
    for (const wchar_t* host : {L"C:\\a", L"C:\\b\\x", L"C:\\c", L"D:\\d"})
        AddHost(files, host);
    files.ForgetOperations();
    files.FailOperation(5, ErrorNumber::OutOfMemory); // x
    EXPECT_EQ(Search(), NextWindow::MainWindow);
    EXPECT_THAT(messages.Texts(), ElementsAre(OutOfMemoryText));
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"C:\\c", L"C:\\b", L"C:\\b\\x"));
    EXPECT_EQ(state.HostFolders[1], L"C:\\c");
    EXPECT_TRUE(state.SearchRunning); // only the user clears it
    EXPECT_EQ(files.CurrentFolder(), L"P:\\Tamblin");
}

TEST_F(HostSearchFailure, SearchAfterOneThatRanOutOfMemoryGoesToTheEnd) {
    files.AddFolder(L"C:\\a");
    AddHost(files, L"C:\\b\\x");
    files.FailOperation(4, ErrorNumber::OutOfMemory);
    search.SearchAllDrives();
    EXPECT_EQ(Search(), NextWindow::MainWindow);
}

// The program ends: nothing more is listed, settled or said.
TEST_F(HostSearchCancel, AbandonedSearchEndsAtOnceAndSilently) {
    for (const wchar_t* host : {L"C:\\a", L"C:\\b\\x"})
        AddHost(files, host);
    events.onYield = [&] {
        if (events.yields == 2)
            search.Abandon();
    };
    EXPECT_EQ(Search(), NextWindow::Stay);
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\"));
    EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(HostSearchFailure, OutOfMemoryLeavesTheFolderAboveWithoutALook) {
    for (const wchar_t* file : {L"C:\\1", L"C:\\b\\2", L"C:\\b\\x\\3"})
        files.AddFile(file);
    files.ForgetOperations();
    files.FailOperation(4, ErrorNumber::OutOfMemory); // x
    Search();
    EXPECT_EQ(search.Progress().files, 1U);
}

} // namespace
} // namespace tamblin
