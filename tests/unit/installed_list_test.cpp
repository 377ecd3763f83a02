// Which characters of a host folder count as installed, and how they are named.
#include "install/installed_list.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

class InstalledListTest : public testing::Test {
  protected:
    InstalledListTest() { Choose(L"C:\\Host"); }
    void Choose(const std::wstring& folder) {
        if (!folder.empty())
            AddHost(files, folder);
        model.combo.entries = {folder};
        model.combo.selected = 0;
    }
    void AddFile(const std::wstring& name) { files.AddFile(L"C:\\Host\\" + name); }
    void AddFolder(const std::wstring& name) { files.AddFolder(L"C:\\Host\\" + name); }
    void Refresh() { RefreshInstalledList(model, state, fake.platform); }
    const std::vector<std::wstring>& Names() const { return model.installed.names.Entries(); }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    SettingsState state;
    MainModel model{fake.platform, state};
};

TEST_F(InstalledListTest, NeedsBothDefinitionFileAndFolder) {
    for (const wchar_t* file :
         {L"both.obl", L"file only.obl", L"file.txt", L"a.b.obl", L"c.obl.bak", L"e.obl"})
        AddFile(file);
    for (const wchar_t* folder :
         {L"both", L"folder only", L"file", L"a.b", L"a", L"c", L"d.obl", L"d", L"xe"})
        AddFolder(folder);
    Refresh();
    EXPECT_THAT(Names(), ElementsAre(L"a.b", L"both"));
}

TEST_F(InstalledListTest, NamesAreSpelledAsTheFolderIs) {
    for (const wchar_t* file : {L"mio.obl", L"SAKI.OBL", L"ａｂ.obl"})
        AddFile(file);
    for (const wchar_t* folder : {L"Mio", L"saki", L"ＡＢ"})
        AddFolder(folder);
    Refresh();
    EXPECT_THAT(Names(), ElementsAre(L"Mio", L"saki", L"ＡＢ"));
}

TEST_F(InstalledListTest, OrderIsThatOfTheDefinitionFiles) {
    for (const wchar_t* name : {L"b", L"C", L"a", L"ｱ", L"表ソ能"}) {
        AddFolder(name);
        AddFile(std::wstring(name) + L".obl");
    }
    Refresh();
    EXPECT_THAT(Names(), ElementsAre(L"a", L"b", L"C", L"表ソ能", L"ｱ"));
}

TEST_F(InstalledListTest, HiddenDefinitionFilesAreNotSeenButHiddenFoldersAre) {
    files.AddFile(L"C:\\Host\\a.obl", "", {.hidden = true});
    AddFolder(L"a");
    AddFile(L"b.obl");
    files.AddFolder(L"C:\\Host\\b", {.hidden = true, .system = true});
    Refresh();
    EXPECT_THAT(Names(), ElementsAre(L"b"));
}

TEST_F(InstalledListTest, RefreshSeesWhatHasChangedAndSelectsNothing) {
    state.DefaultFolder = L"C:\\Old";
    AddCharacter(files, L"C:\\Host", L"a");
    Refresh();
    EXPECT_EQ(state.DefaultFolder, L"C:\\Host");
    model.installed.names.Select(0);
    AddCharacter(files, L"C:\\Host", L"b");
    Refresh();
    EXPECT_THAT(Names(), ElementsAre(L"a", L"b"));
    EXPECT_THAT(SelectedEntries(model.installed.names), IsEmpty());
    model.combo.selected.reset();
    AddCharacter(files, files.CurrentFolder(), L"c"); // which is not a host for want of another
    Refresh();
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(state.DefaultFolder, L"");
}

TEST_F(InstalledListTest, AnotherFolderRunsTheSelectionRulesOfTheOneBefore) {
    state.DefaultFolder = L"C:\\Host";
    Refresh();
    model.browser.Files().Assign({L"a.lzh"});
    model.browser.Files().Select(0);
    model.enabled[Command::Uninstall] = true;
    Choose(L"C:\\Other");
    Refresh();
    EXPECT_EQ(EnabledButtons(model), ForPackages);
}

TEST_F(InstalledListTest, SameFolderLeavesTheButtonsAloneThatNeedNoCharacter) {
    Refresh();
    for (const Command command :
         ForPackages + Commands{Command::PrepareStaging, Command::UpdateHost, Command::ShowReadme})
        model.enabled[command] = true;
    Refresh();
    EXPECT_EQ(EnabledButtons(model),
              (ForPackages + Commands{Command::PrepareStaging, Command::UpdateHost}));
}

TEST_F(InstalledListTest, FolderThatIsGoneFailsWithAnEmptyList) {
    AddCharacter(files, L"C:\\Host", L"a");
    Refresh();
    Choose(L"C:\\Other");
    files.DeleteTree(L"C:\\Other");
    EXPECT_EQ(ErrorOf([&] { Refresh(); }), ErrorNumber::PathNotFound);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(model.installed.folder, L"C:\\Other");
    EXPECT_THAT(model.installed.subfolders, IsEmpty());
    EXPECT_THAT(model.installed.definitionFiles, IsEmpty());
    EXPECT_EQ(state.DefaultFolder, L"C:\\Other");
}

TEST_F(InstalledListTest, ListsTheHostFolderOnceHoweverManyCharacters) {
    for (int number = 0; number < 2'000; ++number)
        AddCharacter(files, L"C:\\Host", L"character" + std::to_wstring(number));
    Refresh();
    files.ForgetOperations();
    Refresh();
    EXPECT_EQ(Names().size(), 2'000U);
    EXPECT_EQ(files.CountLogged(L"List "), 1U);
    EXPECT_LE(files.OperationCount(), 2U);
}

} // namespace
} // namespace tamblin
