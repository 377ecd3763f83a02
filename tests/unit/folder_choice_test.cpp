// Choosing which of the found folders to register, and which is the default.
#include "setup/folder_choice.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

// Folders by one letter each: those registered before a search and those it has found.
struct ChoiceScene {
    ChoiceScene(const std::wstring& registered, const std::wstring& found) {
        for (const wchar_t letter : registered)
            Register(state, {letter});
        state.WorkingFolderCount = state.HostFolderCount;
        for (const wchar_t letter : found)
            state.HostFolders[static_cast<size_t>(++state.WorkingFolderCount)] = letter;
        choice.Load();
    }

    NextWindow OkWithTicks(const std::vector<bool>& ticks) {
        for (size_t line = 0; line < ticks.size(); ++line)
            choice.TickChanged(line, ticks[line]);
        return choice.OkPressed();
    }
    std::wstring Registered() const {
        std::wstring letters;
        for (size_t slot = 1; slot <= static_cast<size_t>(state.HostFolderCount); ++slot)
            letters += state.HostFolders[slot];
        return letters;
    }

    SettingsState state;
    FolderChoice choice{state};
};

TEST(FolderChoice, FirstStageTicksTheRegisteredFolders) {
    ChoiceScene scene(L"ab", L"cd");
    EXPECT_TRUE(scene.choice.InFirstStage());
    EXPECT_EQ(scene.choice.Question(),
              L"検出されたフォルダのうち、登録するフォルダにチェックをつけてください。");
    EXPECT_THAT(scene.choice.folders, ElementsAre(L"a", L"b", L"c", L"d"));
    EXPECT_THAT(scene.choice.ticks, ElementsAre(true, true, false, false));
    EXPECT_TRUE(scene.choice.okEnabled);
}

TEST(FolderChoice, OneRegisteredFolderIsTickedAsTheFirstLine) {
    ChoiceScene scene(L"a", L"bc");
    EXPECT_THAT(scene.choice.ticks, ElementsAre(true, false, false));
}

TEST(FolderChoice, OkFollowsTheTicks) {
    ChoiceScene scene(L"", L"ab");
    EXPECT_FALSE(scene.choice.okEnabled);
    scene.choice.TickChanged(1, true);
    EXPECT_TRUE(scene.choice.okEnabled);
    scene.choice.TickChanged(0, true);
    scene.choice.TickChanged(1, false);
    EXPECT_TRUE(scene.choice.okEnabled);
    scene.choice.TickChanged(0, false);
    EXPECT_FALSE(scene.choice.okEnabled);
}

struct TickRow {
    const char* name;
    const wchar_t* registered;
    const wchar_t* found;
    std::vector<bool> ticks;
    const wchar_t* registeredAfter;
    bool secondStage;
};

class Ticks : public testing::TestWithParam<TickRow> {};

TEST_P(Ticks, DecideWhatIsRegistered) {
    ChoiceScene scene(GetParam().registered, GetParam().found);
    const NextWindow next = scene.OkWithTicks(GetParam().ticks);
    EXPECT_EQ(scene.Registered(), GetParam().registeredAfter);
    EXPECT_EQ(next, GetParam().secondStage ? NextWindow::Stay : NextWindow::MainWindow);
    EXPECT_EQ(scene.choice.InFirstStage(), !GetParam().secondStage);
    EXPECT_EQ(scene.state.ChoiceStage, GetParam().secondStage ? 2 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    FolderChoice, Ticks,
    testing::Values(
        TickRow{"AllFound", L"", L"abc", {true, true, true}, L"abc", true},
        TickRow{"OneOfTheFound", L"", L"abc", {false, true, false}, L"b", false},
        TickRow{"FirstAndLastOfTheFound", L"", L"abc", {true, false, true}, L"ac", true},
        TickRow{"FoundBehindRegistered", L"ab", L"cd", {true, true, false, true}, L"abd", true},
        TickRow{"NothingNew", L"ab", L"cd", {true, true, false, false}, L"ab", true},
        TickRow{"NothingNewBesideOne", L"a", L"bc", {true, false, false}, L"a", false},
        // The comparison runs one slot low: the last registered folder is never dropped.
        TickRow{"LastRegisteredStays", L"ab", L"cd", {true, false, false, false}, L"ab", true},
        TickRow{"OnlyRegisteredStays", L"a", L"bc", {false, true, false}, L"ab", true},
        // The count ends at the slot that was dropped, what stood behind it having moved down.
        TickRow{
            "MiddleCleared", L"abcd", L"ef", {true, false, true, true, false, false}, L"acd", true},
        TickRow{"FirstOfFourCleared",
                L"abcd",
                L"ef",
                {false, true, true, true, false, false},
                L"bcd",
                true},
        TickRow{"MiddleClearedOnly",
                L"abcd",
                L"ef",
                {true, false, false, false, true, false},
                L"ace",
                true},
        TickRow{"FirstOfTwoCleared", L"ab", L"cd", {false, true, false, false}, L"b", false},
        TickRow{"OnlyNewOnesTicked", L"ab", L"cd", {false, false, true, true}, L"bcd", true}),
    CaseName);

TEST(FolderChoice, ClearedTickInTheMiddleDropsTheFoldersBehindItFromTheCount) {
    ChoiceScene scene(L"abcd", L"ef");
    for (const size_t line : {2U, 3U})
        scene.choice.TickChanged(line, false);
    scene.choice.TickChanged(1, false);
    scene.choice.OkPressed();
    EXPECT_EQ(scene.state.HostFolderCount, 2);
}

TEST(FolderChoice, SecondStageOffersTheRegisteredFolders) {
    ChoiceScene scene(L"", L"abc");
    EXPECT_EQ(scene.OkWithTicks({true, false, true}), NextWindow::Stay);
    EXPECT_EQ(scene.choice.Question(), L"デフォルトに設定するフォルダを選択してください。");
    EXPECT_THAT(scene.choice.folders, ElementsAre(L"a", L"c"));
    EXPECT_FALSE(scene.choice.chosen.has_value());
    EXPECT_FALSE(scene.choice.okEnabled);
}

TEST(FolderChoice, ChosenFolderBecomesTheDefaultAndEnablesOk) {
    ChoiceScene scene(L"", L"abc");
    scene.OkWithTicks({true, true, true});
    scene.choice.DefaultChosen(1);
    EXPECT_EQ(scene.state.DefaultFolder, L"b");
    EXPECT_TRUE(scene.choice.okEnabled);
    scene.choice.DefaultChosen(2);
    EXPECT_EQ(scene.state.DefaultFolder, L"c");
    EXPECT_EQ(scene.choice.OkPressed(), NextWindow::MainWindow);
    EXPECT_EQ(scene.Registered(), L"abc");
}

TEST(FolderChoice, EmptyFolderIsNoChoice) {
    SettingsState state;
    for (const wchar_t* folder : {L"a", L""})
        Register(state, folder);
    state.DefaultFolder = L"a";
    state.ChoiceStage = 2;
    FolderChoice choice(state);
    choice.Load();
    choice.DefaultChosen(1);
    EXPECT_EQ(state.DefaultFolder, L"a");
    EXPECT_FALSE(choice.okEnabled);
}

TEST(FolderChoice, SecondStageAloneOffersWhatIsRegistered) {
    SettingsState state;
    Register(state, L"a");
    Register(state, L"b");
    state.WorkingFolderCount = 9;
    state.ChoiceStage = 2;
    FolderChoice choice(state);
    choice.Load();
    EXPECT_FALSE(choice.InFirstStage());
    EXPECT_THAT(choice.folders, ElementsAre(L"a", L"b"));
}

TEST(FolderChoice, OneFolderIsPreselectedInTheSecondStage) {
    SettingsState state;
    Register(state, L"a");
    state.ChoiceStage = 2;
    FolderChoice choice(state);
    choice.Load();
    EXPECT_EQ(choice.chosen, 0U);
    EXPECT_EQ(state.DefaultFolder, L"a");
    EXPECT_TRUE(choice.okEnabled);
}

TEST(FolderChoice, OneFolderOfAFirstRunIsItsDefault) {
    ChoiceScene scene(L"", L"ab");
    EXPECT_EQ(scene.OkWithTicks({false, true}), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder, L"b");
}

TEST(FolderChoice, OpenedFromManagementBothStagesEndThere) {
    ChoiceScene one(L"", L"ab");
    one.state.WizardFromManagement = true;
    EXPECT_EQ(one.OkWithTicks({true, false}), NextWindow::FolderManagement);
    EXPECT_EQ(one.state.DefaultFolder, L"");
    ChoiceScene two(L"", L"ab");
    two.state.WizardFromManagement = true;
    EXPECT_EQ(two.OkWithTicks({true, true}), NextWindow::Stay);
    two.choice.DefaultChosen(0);
    EXPECT_EQ(two.choice.OkPressed(), NextWindow::FolderManagement);
}

TEST(FolderChoice, ClosingTheFirstStageRegistersNothing) {
    ChoiceScene scene(L"a", L"bc");
    scene.choice.TickChanged(1, true);
    EXPECT_EQ(scene.choice.Closed(), NextWindow::SetUpWizard);
    EXPECT_EQ(scene.Registered(), L"a");
}

TEST(FolderChoice, ClosingTheSecondStageKeepsTheDefault) {
    for (const bool fromManagement : {false, true}) {
        ChoiceScene scene(L"", L"ab");
        scene.state.DefaultFolder = L"former";
        scene.state.WizardFromManagement = fromManagement;
        scene.OkWithTicks({true, true});
        EXPECT_EQ(scene.choice.Closed(),
                  fromManagement ? NextWindow::FolderManagement : NextWindow::MainWindow);
        EXPECT_EQ(scene.state.DefaultFolder, L"former");
    }
}

TEST(FolderChoice, TenFoldersCanBeRegistered) {
    ChoiceScene scene(L"", L"abcdefghij");
    EXPECT_EQ(scene.OkWithTicks(std::vector<bool>(10, true)), NextWindow::Stay);
    EXPECT_EQ(scene.Registered(), L"abcdefghij");
}

} // namespace
} // namespace tamblin
