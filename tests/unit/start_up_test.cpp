// From the splash to the first working window, tick by tick.
#include "app/start_up.h"

#include "base/version.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

class StartUpTest : public testing::Test {
  protected:
    StartUpTest() {
        AddHost(files, L"C:\\Host");
        files.AddFile(L"C:\\Packs\\a.lzh");
    }
    void Given(std::string_view ini) { files.AddFile(L"C:\\Tamblin\\tamb.ini", ini); }
    // Runs the whole splash; a window before tick 12 is a failure.
    NextWindow Run() {
        for (int tick = 1; tick < 12; ++tick)
            EXPECT_EQ(startUp.Tick(), NextWindow::Stay) << tick;
        return startUp.Tick();
    }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    SettingsState state;
    SettingsFile file{fake.platform, state};
    EarlierCopyFake earlier;
    StartUp startUp{fake.platform, state, file, earlier};
};

TEST_F(StartUpTest, SecondCopyIsToldAndReadsNothing) {
    Given("VERSION=Ver.0.60\r\n");
    files.SetCurrentFolder(L"C:\\Host");
    files.ForgetOperations();
    earlier.running = true;
    fake.messages.onShow = [&](const auto&) {
        EXPECT_EQ(earlier.timesInFront, 0);
    };
    EXPECT_FALSE(startUp.Load());
    EXPECT_EQ(earlier.timesInFront, 1);
    EXPECT_THAT(fake.messages.shown, ElementsAre(Box{Kind::Inform, L"すでに起動されています。"}));
    EXPECT_EQ(files.OperationCount(), 0U);
}

TEST_F(StartUpTest, FirstCopyMakesTheProgramFolderCurrentAndTicksFiveTimesASecond) {
    files.SetCurrentFolder(L"C:\\Host");
    EXPECT_TRUE(startUp.Load());
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
    EXPECT_THAT(fake.messages.shown, IsEmpty());
    EXPECT_EQ(StartUpTickMilliseconds, 200U);
}

// Without its own folder the program can do nothing, and must not stay without a window.
TEST_F(StartUpTest, ProgramFolderThatCannotBeEnteredEndsTheProgram) {
    files.SetReady(L"C:", false);
    try {
        startUp.Load();
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.IsFatal());
    }
}

TEST_F(StartUpTest, ProgressLineIsSeenFromTickThreeToTickEleven) {
    std::vector<int> visible;
    for (int tick = 1; tick <= 12; ++tick) {
        startUp.Tick();
        if (startUp.ProgressLineVisible())
            visible.push_back(tick);
    }
    EXPECT_THAT(visible, ElementsAre(3, 4, 5, 6, 7, 8, 9, 10));
}

// The ticks at which the settings file is read.
std::vector<int> ReadingTicks(StartUp& startUp, MemoryFileSystem& files) {
    std::vector<int> ticks;
    for (int tick = 1; tick <= 12; ++tick) {
        files.ForgetOperations();
        startUp.Tick();
        for (size_t reads = files.CountLogged(L"Read "); reads > 0; --reads)
            ticks.push_back(tick);
    }
    return ticks;
}

TEST_F(StartUpTest, ReadsOneKeyPerStep) {
    Given("VERSION=Ver." TAMBLIN_VERSION "\r\n");
    EXPECT_THAT(ReadingTicks(startUp, files), ElementsAre(4, 5, 7, 9, 12));
}

TEST_F(StartUpTest, UnknownVersionSkipsAllButTheKavaletOption) {
    Given("VERSION=Ver.0.7\r\nVMRFOLDER=C:\\Host\r\nKVAOPTION=ON\r\n");
    EXPECT_THAT(ReadingTicks(startUp, files), ElementsAre(4, 12));
    EXPECT_EQ(state.KvaOption, L"ON");
    EXPECT_EQ(state.HostFolderCount, 0);
}

TEST_F(StartUpTest, StepsReadTheirKeysInOrder) {
    Given("VERSION=Ver." TAMBLIN_VERSION
          "\r\nVMRFOLDER=C:\\Host\r\nDEFAULT=C:\\Host\r\n"
          "VIEWFOLDER=C:\\Packs\\\r\nKVAOPTION=ON\r\n");
    for (int tick = 1; tick <= 12; ++tick) {
        SCOPED_TRACE(tick);
        startUp.Tick();
        EXPECT_EQ(state.VersionKnown, tick >= 4);
        EXPECT_EQ(state.HostFolderCount, tick >= 5 ? 1 : 0);
        EXPECT_EQ(state.DefaultFolder, tick >= 7 ? L"C:\\Host" : L"");
        EXPECT_EQ(state.ViewFolder, tick >= 9 ? L"C:\\Packs\\" : L"");
        EXPECT_EQ(state.KvaOption, tick >= 12 ? L"ON" : L"");
    }
}

struct DecisionCase {
    const char* name;
    const char* ini; // null: no file
    NextWindow window;
};

class DecisionTest : public StartUpTest, public testing::WithParamInterface<DecisionCase> {};

TEST_P(DecisionTest, OpensTheWindow) {
    if (GetParam().ini)
        Given(GetParam().ini);
    EXPECT_TRUE(startUp.Load());
    const auto before = files.Snapshot();
    EXPECT_EQ(Run(), GetParam().window);
    EXPECT_EQ(state.BrowseStartFolder,
              GetParam().window == NextWindow::SetUpWizard ? L"C:\\Tamblin" : L"");
    EXPECT_EQ(files.Snapshot(), before); // nothing is written during start-up
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

constexpr auto Main = NextWindow::MainWindow;
constexpr auto Wizard = NextWindow::SetUpWizard;

INSTANTIATE_TEST_SUITE_P(
    Decisions, DecisionTest,
    testing::Values(
        DecisionCase{"NoFile", nullptr, Wizard}, DecisionCase{"EmptyFile", "", Wizard},
        DecisionCase{"FormerVersion", "VERSION=Ver.0.60\r\nVMRFOLDER=C:\\Host\r\n", Main},
        DecisionCase{"BetaVersion", "VERSION=Ver.0.60 Beta-2\r\nVMRFOLDER=C:\\Host\r\n", Main},
        DecisionCase{"UnknownVersion", "VERSION=Ver.0.5\r\nVMRFOLDER=C:\\Host\r\n", Wizard},
        DecisionCase{"NoVersion", "VMRFOLDER=C:\\Host\r\nDEFAULT=C:\\Host\r\n", Wizard},
        DecisionCase{"OnlyDefault", "VERSION=Ver." TAMBLIN_VERSION "\r\nDEFAULT=C:\\Host\r\n",
                     Main},
        DecisionCase{"OnlyView", "VERSION=Ver." TAMBLIN_VERSION "\r\nVIEWFOLDER=C:\\Packs\\\r\n",
                     Main},
        DecisionCase{"DefaultAndView",
                     "VERSION=Ver." TAMBLIN_VERSION
                     "\r\nDEFAULT=C:\\Host\r\nVIEWFOLDER=C:\\Packs\\\r\n",
                     Main},
        DecisionCase{"LostHost",
                     "VERSION=Ver." TAMBLIN_VERSION
                     "\r\nVMRFOLDER=C:\\x\r\nDEFAULT=C:\\x\r\nVIEWFOLDER=C:\\Packs\\\r\n",
                     Main},
        // The version alone is no reason: its result is replaced by that of the folders.
        DecisionCase{"OnlyVersion", "VERSION=Ver." TAMBLIN_VERSION "\r\n", Wizard},
        DecisionCase{"AllGone",
                     "VERSION=Ver." TAMBLIN_VERSION
                     "\r\nVMRFOLDER=C:\\x\r\nDEFAULT=C:\\x\r\nVIEWFOLDER=C:\\x\\\r\n"
                     "KVAOPTION=ON\r\n",
                     Wizard}),
    CaseName);

} // namespace
} // namespace tamblin
