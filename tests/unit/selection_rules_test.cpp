// Which buttons the selections in the two lists enable.
#include "install/selection_rules.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

const std::vector<std::wstring> AllFiles = {L"abc.lzh",   L"ABC.OBL",    L"def.lzh", L"ombrel.exe",
                                            L"OTHER.EXE", L"readme.txt", L"xyz.obl", L"ア.obl"};
const std::vector<std::wstring> AllCharacters = {L"abc", L"Def", L"ア"};

class SelectionRulesTest : public testing::Test {
  protected:
    SelectionRulesTest() {
        state.DefaultFolder = L"C:\\Host";
        model.combo.entries = {L"C:\\Host"};
        model.combo.selected = 0;
        model.installed.folder = L"C:\\Host";
        model.installed.names.Assign(AllCharacters);
        model.browser.Files().Assign(AllFiles);
        SetGoverned(true);
    }
    void SetGoverned(bool on) {
        for (const Command command : CommandsWhere([](Command) { return true; }))
            model.enabled[command] = on || NeedingNoSelection.contains(command);
    }
    void Apply(const std::vector<std::wstring>& chosenFiles,
               const std::vector<std::wstring>& characters) {
        Select(model.browser.Files(), chosenFiles);
        Select(model.installed.names, characters);
        ApplySelectionRules(model, state, fake.platform);
    }

    PlatformFake fake;
    SettingsState state;
    MainModel model{fake.platform, state};
};

struct RuleCase {
    std::vector<std::wstring> files;
    std::vector<std::wstring> characters;
    Commands enabled;
};

TEST_F(SelectionRulesTest, EnableExactlyTheButtonsThatFitAndNoneWithoutAHostFolder) {
    const Commands both = ForPackages + ForOneCharacter;
    const Commands update{Command::UpdateDefinition};
    const RuleCase cases[] = {
        {{}, {}, {}},
        {{L"ombrel.exe"}, {}, ForAProgram},
        {{L"OTHER.EXE"}, {}, ForAProgram},
        {{L"abc.lzh"}, {}, ForPackages},
        {{L"ABC.OBL"}, {}, Commands{Command::DeselectFiles}},
        {{L"readme.txt"}, {}, Commands{Command::DeselectFiles}},
        {{}, {L"abc"}, ForOneCharacter},
        {{}, {L"abc", L"Def"}, ForCharacters},
        {{L"abc.lzh"}, {L"abc"}, both},
        {{L"abc.lzh"}, {L"ア"}, both},
        {{L"def.lzh"}, {L"Def"}, both},
        {{L"abc.lzh"}, {L"abc", L"Def"}, ForPackages + ForCharacters},
        {{L"ABC.OBL"}, {L"abc"}, both + update},
        {{L"ABC.OBL"}, {L"Def"}, both},
        // Only the last of several selected characters is compared.
        {{L"ア.obl"}, {L"abc", L"ア"}, ForPackages + ForCharacters + update},
        {{L"ABC.OBL"}, {L"abc", L"ア"}, ForPackages + ForCharacters},
        {{L"ombrel.exe"}, {L"abc"}, both},
        {{L"readme.txt"}, {L"abc"}, both},
        {{L"abc.lzh", L"def.lzh"}, {}, ForPackages},
        {{L"readme.txt", L"xyz.obl"}, {}, ForPackages},
        {{L"ombrel.exe", L"OTHER.EXE"}, {}, ForPackages},
        {{L"abc.lzh", L"ABC.OBL"}, {L"abc"}, both},
        {{L"abc.lzh", L"def.lzh"}, {L"abc", L"Def"}, ForPackages + ForCharacters}};
    for (const RuleCase& rule : cases) {
        SCOPED_TRACE(testing::PrintToString(rule.files) + testing::PrintToString(rule.characters));
        for (const bool before : {true, false}) {
            state.DefaultFolder = L"C:\\Host";
            SetGoverned(before);
            Apply(rule.files, rule.characters);
            EXPECT_EQ(EnabledButtons(model), rule.enabled);
            state.DefaultFolder.clear();
            SetGoverned(before);
            Apply(rule.files, rule.characters);
            EXPECT_THAT(EnabledButtons(model), IsEmpty());
        }
    }
}

TEST_F(SelectionRulesTest, LoneProgramStaysSelected) {
    Apply({L"ombrel.exe"}, {L"abc"});
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"ombrel.exe"));
}

TEST_F(SelectionRulesTest, OtherButtonsAreNotGoverned) {
    Apply({}, {});
    for (const Command command : NeedingNoSelection)
        EXPECT_TRUE(model.enabled[command]) << static_cast<int>(command);
}

// --- Updates that a character has delivered -----------------------------------------------------

class DeliveredUpdateTest : public SelectionRulesTest {
  protected:
    DeliveredUpdateTest() { fake.files.AddFile(L"C:\\Host\\abc\\dat\\obl\\abc.obl"); }
};

TEST_F(DeliveredUpdateTest, EnablesTheUpdateOfTheOneCharacter) {
    for (const wchar_t* host : {L"C:\\Host", L"C:\\Host\\"}) {
        model.combo.entries = {host};
        Apply({}, {L"abc"});
        EXPECT_EQ(EnabledButtons(model), ForOneCharacter + Commands{Command::UpdateDefinition});
        EXPECT_TRUE(model.definitionUpdateReady);
    }
    state.DefaultFolder.clear(); // then the flag stays
    Apply({}, {L"abc"});
    EXPECT_TRUE(model.definitionUpdateReady);
}

TEST_F(DeliveredUpdateTest, IsNotReadyForOthersNorForSeveralNorByAFolderOfThatName) {
    fake.files.AddFolder(L"C:\\Host\\Def\\dat\\obl\\Def.obl");
    for (const std::vector<std::wstring>& characters :
         {std::vector<std::wstring>{L"Def"}, {L"abc", L"Def"}, {L"Def", L"ア"}, {}}) {
        model.definitionUpdateReady = true;
        Apply({}, characters);
        EXPECT_FALSE(model.definitionUpdateReady);
        EXPECT_FALSE(model.enabled[Command::UpdateDefinition]);
    }
}

TEST(DeliveredDefinitionFile, LiesInTheCharactersFolder) {
    EXPECT_EQ(DeliveredDefinitionFile(L"C:\\Host", L"a"), L"C:\\Host\\a\\dat\\obl\\a.obl");
    EXPECT_EQ(DeliveredDefinitionFile(L"C:\\", L"a"), L"C:\\a\\dat\\obl\\a.obl");
}

// --- README -------------------------------------------------------------------------------------

TEST_F(SelectionRulesTest, EachKindOfReadmeEnablesTheViewOfTheOneCharacter) {
    for (const wchar_t* ending : {L".txt", L"-X.txt", L"-x.TXT", L".htm", L".html"}) {
        const std::wstring readme = std::wstring(L"C:\\Host\\abc\\abc") + ending;
        fake.files.AddFile(readme);
        Apply({}, {L"abc"});
        EXPECT_EQ(EnabledButtons(model), ForOneCharacter + Commands{Command::ShowReadme}) << ending;
        for (const std::vector<std::wstring>& others :
             {std::vector<std::wstring>{L"abc", L"Def"}, {L"Def"}}) {
            Apply({}, others);
            EXPECT_FALSE(model.enabled[Command::ShowReadme]);
        }
        fake.files.DeleteTree(readme);
    }
}

TEST_F(SelectionRulesTest, OtherDocumentsAreNoReadme) {
    for (const wchar_t* name : {L"abc\\readme.txt", L"abc\\abc.doc", L"abc\\Def.txt", L"abc.txt"})
        fake.files.AddFile(std::wstring(L"C:\\Host\\") + name);
    Apply({}, {L"abc"});
    EXPECT_FALSE(model.enabled[Command::ShowReadme]);
}

TEST_F(SelectionRulesTest, ReadmeIsLookedForInTheListedFolder) {
    fake.files.AddFile(L"C:\\Listed\\abc\\abc.txt");
    fake.files.AddFile(L"C:\\Listed\\abc\\dat\\obl\\abc.obl");
    model.installed.folder = L"C:\\Listed\\";
    Apply({}, {L"abc"});
    EXPECT_TRUE(model.enabled[Command::ShowReadme]);
    EXPECT_FALSE(model.definitionUpdateReady); // that one is looked for in the combo's folder
}

TEST(ReadmeCandidates, AreInTheOrderOfPreference) {
    EXPECT_THAT(ReadmeCandidates(L"C:\\H", L"a"),
                ElementsAre(L"C:\\H\\a\\a.txt", L"C:\\H\\a\\a-X.txt", L"C:\\H\\a\\a.htm",
                            L"C:\\H\\a\\a.html"));
}

TEST_F(SelectionRulesTest, ProgramFolderIsCurrentAfterwards) {
    fake.files.AddFolder(L"C:\\Else");
    fake.files.SetCurrentFolder(L"C:\\Else");
    Apply({}, {});
    EXPECT_EQ(fake.files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(SelectionRulesTest, CostDoesNotGrowWithTheLists) {
    std::vector<std::wstring> names;
    for (int number = 0; number < 10'000; ++number)
        names.push_back(L"c" + std::to_wstring(number));
    model.installed.names.Assign(names);
    model.browser.Files().Assign(names);
    fake.files.ForgetOperations();
    Apply({L"c9999"}, {L"c9999"});
    EXPECT_LE(fake.files.OperationCount(), 6U);
}

TEST_F(SelectionRulesTest, ProgramsLeaveAMultipleSelectionHoweverLong) {
    std::vector<std::wstring> names(64, L"a.exe");
    names[32] = L"z.lzh";
    model.browser.Files().Assign(names);
    for (size_t index = 0; index < names.size(); ++index)
        model.browser.Files().Select(index);
    ApplySelectionRules(model, state, fake.platform);
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"z.lzh"));
    EXPECT_EQ(EnabledButtons(model), ForPackages);
}

} // namespace
} // namespace tamblin
