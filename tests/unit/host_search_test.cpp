// The walk over the fixed drives: what is a find, what is visited, what is counted.
#include "unit/host_search_scene.h"

namespace tamblin {
namespace {

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
    files.AddDrive(L"D:");
    for (const wchar_t* host : {L"C:\\", L"C:\\a", L"C:\\a\\x", L"C:\\b", L"D:\\A"})
        AddHost(files, host);
    Search();
    EXPECT_THAT(Found(), ElementsAre(L"C:\\b", L"C:\\a\\x", L"C:\\a", L"C:\\", L"D:\\A"));
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

TEST_F(HostSearchTest, LinksAndVolumesThatAreNotFixedAreNotDescendedInto) {
    AddHost(files, L"C:\\real\\VMR");
    files.AddLink(L"C:\\real\\root", L"C:\\");
    files.AddLink(L"C:\\zlink", L"C:\\real");
    files.AddDrive(L"V:", DriveType::Removable);
    files.MountVolume(L"C:\\mount", L"V:");
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

} // namespace
} // namespace tamblin
