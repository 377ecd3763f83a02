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

    NextWindow OkWithTicks(const std::string& ticks) {
        for (size_t line = 0; line < ticks.size(); ++line)
            choice.TickChanged(line, ticks[line] == '1');
        return choice.OkPressed();
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
    EXPECT_THAT(ChoiceScene(L"a", L"bc").choice.ticks, ElementsAre(true, false, false));
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
    const wchar_t* registered;
    const wchar_t* found;
    std::string ticks; // a "1" for each line with one
    const wchar_t* registeredAfter;
    bool secondStage;
};

TEST(FolderChoice, TicksDecideWhatIsRegistered) {
    const TickRow rows[] = {
        {L"", L"abc", "111", L"abc", true},
        {L"", L"abc", "010", L"b", false},
        {L"", L"abc", "101", L"ac", true},
        {L"ab", L"cd", "1101", L"abd", true},
        {L"ab", L"cd", "1100", L"ab", true},
        {L"a", L"bc", "100", L"a", false},
        // The comparison runs one slot low: the last registered folder is never dropped.
        {L"ab", L"cd", "1000", L"ab", true},
        {L"a", L"bc", "010", L"ab", true},
        // The count ends at the slot that was dropped, what stood behind it having moved down.
        {L"abcd", L"ef", "101100", L"acd", true},
        {L"abcd", L"ef", "011100", L"bcd", true},
        {L"abcd", L"ef", "100010", L"ace", true},
        {L"ab", L"cd", "0100", L"b", false},
        {L"ab", L"cd", "0011", L"bcd", true},
    };
    for (const TickRow& row : rows) {
        SCOPED_TRACE(row.ticks);
        ChoiceScene scene(row.registered, row.found);
        const NextWindow next = scene.OkWithTicks(row.ticks);
        EXPECT_EQ(RegisteredLetters(scene.state), row.registeredAfter);
        EXPECT_EQ(next, row.secondStage ? NextWindow::Stay : NextWindow::MainWindow);
        EXPECT_EQ(scene.choice.InFirstStage(), !row.secondStage);
        EXPECT_EQ(scene.state.ChoiceStage, row.secondStage ? 2 : 1);
    }
}

TEST(FolderChoice, ClearedTickInTheMiddleDropsTheFoldersBehindItFromTheCount) {
    ChoiceScene scene(L"abcd", L"ef");
    for (const size_t line : {2U, 3U})
        scene.choice.TickChanged(line, false);
    scene.choice.TickChanged(1, false);
    scene.choice.OkPressed();
    EXPECT_EQ(scene.state.HostFolderCount, 2);
}

TEST(FolderChoice, SecondStageOffersTheRegisteredFoldersAndTheChosenBecomesTheDefault) {
    ChoiceScene scene(L"", L"abc");
    EXPECT_EQ(scene.OkWithTicks("101"), NextWindow::Stay);
    EXPECT_EQ(scene.choice.Question(), L"デフォルトに設定するフォルダを選択してください。");
    EXPECT_THAT(scene.choice.folders, ElementsAre(L"a", L"c"));
    EXPECT_FALSE(scene.choice.chosen.has_value());
    EXPECT_FALSE(scene.choice.okEnabled);
    scene.choice.DefaultChosen(0);
    EXPECT_EQ(scene.state.DefaultFolder, L"a");
    EXPECT_TRUE(scene.choice.okEnabled);
    scene.choice.DefaultChosen(1);
    EXPECT_EQ(scene.state.DefaultFolder, L"c");
    EXPECT_EQ(scene.choice.OkPressed(), NextWindow::MainWindow);
    EXPECT_EQ(RegisteredLetters(scene.state), L"ac");
}

TEST(FolderChoice, SecondStageAloneOffersWhatIsRegistered) {
    SettingsState state;
    Register(state, L"a");
    state.WorkingFolderCount = 9;
    state.ChoiceStage = 2;
    FolderChoice choiceOfOne(state);
    choiceOfOne.Load();
    EXPECT_EQ(choiceOfOne.chosen, 0U);
    EXPECT_EQ(state.DefaultFolder, L"a");
    EXPECT_TRUE(choiceOfOne.okEnabled);
    Register(state, L"");
    FolderChoice choice(state);
    choice.Load();
    EXPECT_FALSE(choice.InFirstStage());
    EXPECT_THAT(choice.folders, ElementsAre(L"a", L""));
    choice.DefaultChosen(1); // which is none
    EXPECT_EQ(state.DefaultFolder, L"a");
    EXPECT_FALSE(choice.okEnabled);
}

TEST(FolderChoice, OneFolderOfAFirstRunIsItsDefault) {
    ChoiceScene scene(L"", L"ab");
    EXPECT_EQ(scene.OkWithTicks("01"), NextWindow::MainWindow);
    EXPECT_EQ(scene.state.DefaultFolder, L"b");
    ChoiceScene chosenBefore(L"", L"ab");
    chosenBefore.state.DefaultFolder = L"former";
    EXPECT_EQ(chosenBefore.OkWithTicks("01"), NextWindow::MainWindow);
    EXPECT_EQ(chosenBefore.state.DefaultFolder, L"former");
}

TEST(FolderChoice, OpenedFromManagementBothStagesEndThere) {
    ChoiceScene one(L"", L"ab");
    one.state.WizardFromManagement = true;
    EXPECT_EQ(one.OkWithTicks("10"), NextWindow::FolderManagement);
    EXPECT_EQ(one.state.DefaultFolder, L"");
    ChoiceScene two(L"", L"ab");
    two.state.WizardFromManagement = true;
    EXPECT_EQ(two.OkWithTicks("11"), NextWindow::Stay);
    two.choice.DefaultChosen(0);
    EXPECT_EQ(two.choice.OkPressed(), NextWindow::FolderManagement);
}

TEST(FolderChoice, ClosingTheFirstStageRegistersNothing) {
    ChoiceScene scene(L"a", L"bc");
    scene.choice.TickChanged(1, true);
    EXPECT_EQ(scene.choice.Closed(), NextWindow::SetUpWizard);
    EXPECT_EQ(RegisteredLetters(scene.state), L"a");
}

TEST(FolderChoice, ClosingTheSecondStageKeepsTheDefault) {
    for (const bool fromManagement : {false, true}) {
        ChoiceScene scene(L"", L"ab");
        scene.state.DefaultFolder = L"former";
        scene.state.WizardFromManagement = fromManagement;
        scene.OkWithTicks("11");
        EXPECT_EQ(scene.choice.Closed(),
                  fromManagement ? NextWindow::FolderManagement : NextWindow::MainWindow);
        EXPECT_EQ(scene.state.DefaultFolder, L"former");
    }
}

TEST(FolderChoice, TenFoldersCanBeRegistered) {
    ChoiceScene scene(L"", L"abcdefghij");
    EXPECT_EQ(scene.OkWithTicks(std::string(10, '1')), NextWindow::Stay);
    EXPECT_EQ(RegisteredLetters(scene.state), L"abcdefghij");
}

} // namespace
} // namespace tamblin
