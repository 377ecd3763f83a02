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
        for (const int command : {1, 2, 3, 4, 5, 7, 9, 11, 13, 14})
            model.buttons[static_cast<size_t>(command)] = true;
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
    const char* name;
    std::vector<std::wstring> files;
    std::vector<std::wstring> characters;
    std::vector<int> enabled;
};

class RuleTest : public SelectionRulesTest, public testing::WithParamInterface<RuleCase> {};

TEST_P(RuleTest, EnablesExactly) {
    for (const bool before : {true, false}) {
        for (const size_t command : {1U, 2U, 3U, 4U, 5U, 7U, 9U, 11U, 13U, 14U})
            model.buttons[command] = before;
        Apply(GetParam().files, GetParam().characters);
        EXPECT_THAT(EnabledButtons(model), ElementsAreArray(GetParam().enabled));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Selections, RuleTest,
    testing::Values(
        RuleCase{"Nothing", {}, {}, {}}, RuleCase{"Program", {L"ombrel.exe"}, {}, {3, 9}},
        RuleCase{"AnyProgram", {L"OTHER.EXE"}, {}, {3, 9}},
        RuleCase{"Archive", {L"abc.lzh"}, {}, {1, 9}},
        RuleCase{"Definition", {L"ABC.OBL"}, {}, {9}}, RuleCase{"Text", {L"readme.txt"}, {}, {9}},
        RuleCase{"OneCharacter", {}, {L"abc"}, {5, 7, 11, 13}},
        RuleCase{"TwoCharacters", {}, {L"abc", L"Def"}, {5, 7}},
        RuleCase{"ArchiveAndItsCharacter", {L"abc.lzh"}, {L"abc"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{"ArchiveAndAnother", {L"abc.lzh"}, {L"ア"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{"ArchiveAndItsCharacterInOtherCase", {L"def.lzh"}, {L"Def"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{"ArchiveAndTwo", {L"abc.lzh"}, {L"abc", L"Def"}, {1, 5, 7, 9}},
        RuleCase{"DefinitionAndItsCharacter", {L"ABC.OBL"}, {L"abc"}, {1, 4, 5, 7, 9, 11, 13}},
        RuleCase{"DefinitionAndAnother", {L"ABC.OBL"}, {L"Def"}, {1, 5, 7, 9, 11, 13}},
        // Only the last of several selected characters is compared.
        RuleCase{"DefinitionOfTheLast", {L"ア.obl"}, {L"abc", L"ア"}, {1, 4, 5, 7, 9}},
        RuleCase{"DefinitionOfTheFirst", {L"ABC.OBL"}, {L"abc", L"ア"}, {1, 5, 7, 9}},
        RuleCase{"ProgramAndCharacter", {L"ombrel.exe"}, {L"abc"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{"TextAndCharacter", {L"readme.txt"}, {L"abc"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{"TwoArchives", {L"abc.lzh", L"def.lzh"}, {}, {1, 9}},
        RuleCase{"TwoTexts", {L"readme.txt", L"xyz.obl"}, {}, {1, 9}},
        RuleCase{"TwoPrograms", {L"ombrel.exe", L"OTHER.EXE"}, {}, {1, 9}},
        RuleCase{"TwoFilesOneCharacter", {L"abc.lzh", L"ABC.OBL"}, {L"abc"}, {1, 5, 7, 9, 11, 13}},
        RuleCase{
            "TwoFilesTwoCharacters", {L"abc.lzh", L"def.lzh"}, {L"abc", L"Def"}, {1, 5, 7, 9}}),
    CaseName);

TEST_P(RuleTest, NothingWithoutAHostFolder) {
    state.DefaultFolder.clear();
    Apply(GetParam().files, GetParam().characters);
    EXPECT_THAT(EnabledButtons(model), IsEmpty());
}

TEST_F(SelectionRulesTest, ProgramsLeaveAMultipleSelection) {
    Apply({L"abc.lzh", L"ombrel.exe", L"OTHER.EXE"}, {});
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"abc.lzh"));
    EXPECT_THAT(EnabledButtons(model), ElementsAre(1, 9));
}

TEST_F(SelectionRulesTest, LoneProgramStaysSelected) {
    Apply({L"ombrel.exe"}, {L"abc"});
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"ombrel.exe"));
}

TEST_F(SelectionRulesTest, OtherButtonsAreNotGoverned) {
    Apply({}, {});
    for (const size_t command : {6U, 8U, 10U, 12U})
        EXPECT_TRUE(model.buttons[command]) << command;
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
        EXPECT_THAT(EnabledButtons(model), ElementsAre(4, 5, 7, 11, 13));
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
        EXPECT_FALSE(model.buttons[4]);
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
        EXPECT_THAT(EnabledButtons(model), ElementsAre(5, 7, 11, 13, 14)) << ending;
        for (const std::vector<std::wstring>& others :
             {std::vector<std::wstring>{L"abc", L"Def"}, {L"Def"}}) {
            Apply({}, others);
            EXPECT_FALSE(model.buttons[14]);
        }
        fake.files.DeleteTree(readme);
    }
}

TEST_F(SelectionRulesTest, OtherDocumentsAreNoReadme) {
    for (const wchar_t* name : {L"abc\\readme.txt", L"abc\\abc.doc", L"abc\\Def.txt", L"abc.txt"})
        fake.files.AddFile(std::wstring(L"C:\\Host\\") + name);
    Apply({}, {L"abc"});
    EXPECT_FALSE(model.buttons[14]);
}

TEST_F(SelectionRulesTest, ReadmeIsLookedForInTheListedFolder) {
    fake.files.AddFile(L"C:\\Listed\\abc\\abc.txt");
    fake.files.AddFile(L"C:\\Listed\\abc\\dat\\obl\\abc.obl");
    model.installed.folder = L"C:\\Listed\\";
    Apply({}, {L"abc"});
    EXPECT_TRUE(model.buttons[14]);
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

TEST_F(SelectionRulesTest, WithoutACharacterTheButtonsThatNeedOneAreDisabled) {
    model.definitionUpdateReady = true;
    DisableCharacterButtons(model);
    EXPECT_THAT(EnabledButtons(model), ElementsAre(1, 2, 3, 9));
    EXPECT_FALSE(model.definitionUpdateReady);
}

TEST_F(SelectionRulesTest, LongListsAreReadToTheirEndAndNoFurther) {
    std::vector<std::wstring> names(64, L"a.exe");
    names.back() = L"z.lzh";
    model.browser.Files().Assign(names);
    for (size_t index = 0; index < names.size(); ++index)
        model.browser.Files().Select(index);
    ApplySelectionRules(model, state, fake.platform);
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"z.lzh"));
}

} // namespace
} // namespace tamblin
