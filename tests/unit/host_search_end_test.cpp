// How a search ends: the settling of what it found, cancelling, failures.
#include <tuple>

#include "unit/host_search_scene.h"

namespace tamblin {
namespace {

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

// One new folder is counted, more are left to the choice; the first slot becomes the default only
// on a first run.
TEST_P(Settling, SaysAndShowsWhatComesNext) {
    std::vector<size_t> boxesBefore;
    std::wstring found;
    scene.search.onSettling = [&] {
        boxesBefore.push_back(scene.messages.shown.size());
        found = scene.search.Progress().FoundText();
    };
    scene.state.DefaultFolder = L"X:\\former";
    const bool oneNew = Row().next == NextWindow::MainWindow;
    EXPECT_EQ(scene.Search(),
              oneNew && FromManagement() ? NextWindow::FolderManagement : Row().next);
    if (*Row().message == 0)
        EXPECT_THAT(scene.messages.shown, IsEmpty());
    else
        EXPECT_THAT(scene.messages.shown, ElementsAre(Box{Kind::Inform, Row().message}));
    EXPECT_THAT(boxesBefore, ElementsAre(0U));
    EXPECT_EQ(found, scene.search.Progress().FoundText());
    EXPECT_EQ(scene.state.ChoiceStage, Row().next == NextWindow::FolderChoice ? 1 : 7);
    EXPECT_EQ(scene.state.HostFolderCount, Row().countAfter);
    EXPECT_EQ(scene.state.DefaultFolder,
              oneNew && !FromManagement() ? scene.state.HostFolders[1] : L"X:\\former");
    if (!Row().found.empty()) {
        const auto first = scene.state.HostFolders.begin() + 1 + Row().registered;
        EXPECT_EQ(std::vector(first, first + Row().hosts), Row().found);
    }
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
    files.AddDrive(L"D:");
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
    EXPECT_THAT(Visited(), Not(Contains(L"D:\\")));
    EXPECT_EQ(events.yields, 4U);
    EXPECT_EQ(search.Progress().folders, 2U);
    EXPECT_EQ(search.Progress().drive, L"C:\\");
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
// open, and 68 may come from a locked volume that is mounted there.
TEST(SearchFaults, FolderThatCannotBeListedIsGivenUpByItself) {
    for (const int error : {52, 53, 57, 67, 68, 70, 71, 75, 76}) {
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
    files.AddFile(L"C:\\b\\not looked at");
    files.ForgetOperations();
    files.FailOperation(5, ErrorNumber::OutOfMemory); // x
    EXPECT_EQ(Search(), NextWindow::MainWindow);
    EXPECT_THAT(messages.Texts(), ElementsAre(OutOfMemoryText));
    EXPECT_THAT(Visited(), ElementsAre(L"C:\\", L"C:\\c", L"C:\\b", L"C:\\b\\x"));
    EXPECT_EQ(state.HostFolders[1], L"C:\\c");
    EXPECT_EQ(search.Progress().files, 2U); // those of c
    EXPECT_TRUE(state.SearchRunning);       // only the user clears it
    EXPECT_EQ(files.CurrentFolder(), L"P:\\Tamblin");
    EXPECT_EQ(Search(), NextWindow::FolderChoice);
}

// Whoever runs out of it.
TEST_F(HostSearchFailure, MemoryThatTheSearchItselfLacksEndsItAlike) {
    struct NoMemoryForVolumes : MemoryFileSystem {
        std::optional<std::wstring> FixedVolumeAt(const std::wstring&) override {
            throw std::bad_alloc();
        }
    } lacking;
    lacking.AddDrive(L"C:");
    lacking.AddFolder(L"C:\\Tamblin");
    lacking.AddFolder(L"C:\\a\\target");
    lacking.AddLink(L"C:\\a\\link", L"C:\\a\\target");
    AddHost(lacking, L"C:\\b");
    Platform withoutMemory = PlatformOver(lacking);
    EXPECT_EQ(HostSearch(withoutMemory, events, state).SearchAllDrives(), NextWindow::MainWindow);
    EXPECT_THAT(messages.Texts(), ElementsAre(OutOfMemoryText));
}

TEST_F(HostSearchFailure, ProgramThatEndsWhileTheLackOfMemoryIsToldSettlesNothing) {
    AddHost(files, L"C:\\a");
    files.ForgetOperations();
    files.FailOperation(3, ErrorNumber::OutOfMemory); // a
    messages.onShow = [&](const Box&) {
        search.Abandon();
    };
    EXPECT_EQ(Search(), NextWindow::Stay);
    EXPECT_THAT(messages.Texts(), ElementsAre(OutOfMemoryText));
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

} // namespace
} // namespace tamblin
