// Registering host folders and showing them in the combo.
#include "settings/host_folder_list.h"

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t NotFound[] = L"Vimora が見つかりませんでした。";
constexpr wchar_t NotChanged[] = L"変更されませんでした。";
constexpr wchar_t AlreadyThere[] =
    L"このフォルダは、すでに登録されています。別のフォルダを指定してください。";

class HostFolderListTest : public testing::Test {
  protected:
    HostFolderListTest() {
        AddHost(fake.files, L"C:\\A");
        AddHost(fake.files, L"C:\\B");
        Register(state, L"C:\\A");
    }
    Registration RegisterFolder(const std::wstring& folder) {
        return RegisterHostFolder(state, folder, fake.platform);
    }
    void EditSlot(std::int16_t slot) {
        state.EditMode = true;
        state.EditIndex = slot;
    }

    PlatformFake fake;
    SettingsState state;
};

// What no file can be called is not found either.
TEST_F(HostFolderListTest, FolderThatCannotExistIsNotFound) {
    for (const wchar_t* folder : {L"Q:\\Vimora", L"C:\\a?b", L"C:\\a|b"}) {
        EXPECT_EQ(RegisterFolder(folder), Registration::HostMissing);
        EXPECT_EQ(fake.messages.shown.back().text, NotFound);
    }
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A"));
}

// A host stands in each of the folders that the path can mean.
TEST_F(HostFolderListTest, PathThatIsNotFullIsNotFound) {
    for (const wchar_t* host : {L"C:\\", L"C:\\H", L"C:\\Tamblin", L"C:\\Tamblin\\H"})
        AddHost(fake.files, host);
    fake.files.SetCurrentFolder(L"C:\\Tamblin");
    for (const wchar_t* folder : {L"C:", L"C:H", L"H", L"\\H", L".", L""}) {
        ASSERT_EQ(RegisterFolder(folder), Registration::HostMissing) << folder;
        EXPECT_EQ(fake.messages.shown.back().text, NotFound);
    }
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A"));
}

TEST_F(HostFolderListTest, NewFolderTakesTheNextSlot) {
    EXPECT_EQ(RegisterFolder(L"C:\\B"), Registration::Stored);
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A", L"C:\\B"));
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(HostFolderListTest, HalfAHostIsReportedOnceAndNotStored) {
    const std::vector<std::wstring> halves[] = {
        {}, {L"ombrel.exe"}, {L"ombrel.rc"}, {L"ombrel.exe\\x", L"ombrel.rc"}};
    for (const auto& half : halves)
        for (const bool edit : {false, true}) {
            fake.files.DeleteTree(L"C:\\Half");
            fake.files.AddFolder(L"C:\\Half");
            for (const std::wstring& name : half)
                fake.files.AddFile(L"C:\\Half\\" + name);
            state.EditMode = edit;
            state.EditIndex = 1;
            fake.messages.shown.clear();
            EXPECT_EQ(RegisterFolder(L"C:\\Half"), Registration::HostMissing);
            EXPECT_THAT(fake.messages.shown, ElementsAre(Box{Kind::Inform, NotFound}));
            EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A"));
        }
}

TEST_F(HostFolderListTest, RegisteredFolderIsNotAddedAgain) {
    EXPECT_EQ(RegisterFolder(L"C:\\A"), Registration::Duplicate);
    EXPECT_THAT(fake.messages.shown,
                ElementsAre(Box{MessageBoxesFake::Kind::Inform, AlreadyThere}));
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A"));
}

// A registered folder that is no host any more is missing first of all.
TEST_F(HostFolderListTest, RegisteredFolderWithoutHostIsReportedAsMissing) {
    Register(state, L"C:\\Gone");
    EXPECT_EQ(RegisterFolder(L"C:\\Gone"), Registration::HostMissing);
    EXPECT_THAT(fake.messages.shown, ElementsAre(Box{MessageBoxesFake::Kind::Inform, NotFound}));
}

TEST_F(HostFolderListTest, OtherSpellingIsAnotherFolderAndADriveRootOneToo) {
    AddHost(fake.files, L"C:\\");
    for (const wchar_t* folder : {L"C:\\A\\", L"c:\\a", L"C:\\"})
        EXPECT_EQ(RegisterFolder(folder), Registration::Stored);
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A", L"C:\\A\\", L"c:\\a", L"C:\\"));
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(HostFolderListTest, EditReplacesTheSlot) {
    Register(state, L"C:\\Old");
    EditSlot(2);
    EXPECT_EQ(RegisterFolder(L"C:\\B"), Registration::Stored);
    EXPECT_THAT(RegisteredFolders(state), ElementsAre(L"C:\\A", L"C:\\B"));
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(HostFolderListTest, EditToARegisteredFolderIsSaidToBeNoChangeAndStored) {
    Register(state, L"C:\\Old");
    for (const std::int16_t slot : {std::int16_t{1}, std::int16_t{2}}) {
        EditSlot(slot);
        fake.messages.shown.clear();
        EXPECT_EQ(RegisterFolder(L"C:\\A"), Registration::Duplicate);
        EXPECT_THAT(fake.messages.shown, ElementsAre(Box{Kind::Inform, NotChanged}));
        EXPECT_THAT(RegisteredFolders(state),
                    ElementsAre(L"C:\\A", slot == 1 ? L"C:\\Old" : L"C:\\A"));
    }
}

TEST_F(HostFolderListTest, SpareSlotIsTheLastOne) {
    while (state.HostFolderCount < HostFolderLimit)
        Register(state, L"C:\\x" + std::to_wstring(state.HostFolderCount));
    EXPECT_EQ(RegisterFolder(L"C:\\B"), Registration::Stored);
    EXPECT_EQ(state.HostFolders[11], L"C:\\B");
    AddHost(fake.files, L"C:\\D");
    try {
        RegisterFolder(L"C:\\D");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        EXPECT_TRUE(error.IsFatal());
    }
}

class HostFolderComboTest : public testing::Test {
  protected:
    HostFolderComboTest() {
        Register(state, L"C:\\B");
        Register(state, L"C:\\A");
        combo.entries = {L"stale"};
        combo.selected = 0;
    }
    void Fill(const std::wstring& defaultFolder) {
        state.DefaultFolder = defaultFolder;
        FillHostFolderCombo(combo, state);
    }

    SettingsState state;
    HostFolderCombo combo;
};

TEST_F(HostFolderComboTest, ShowsTheFoldersInTheirOrderAndSelectsTheCurrentOne) {
    Fill(L"C:\\A");
    EXPECT_THAT(combo.entries, ElementsAre(L"C:\\B", L"C:\\A"));
    EXPECT_EQ(combo.selected, 1U);
    EXPECT_EQ(combo.Text(), L"C:\\A");
}

TEST_F(HostFolderComboTest, OtherLetterCaseSelectsNothing) {
    for (const wchar_t* folder : {L"c:\\a", L"C:\\A\\", L"C:\\C"}) {
        Fill(folder);
        EXPECT_FALSE(combo.selected);
        EXPECT_EQ(combo.Text(), L"");
    }
}

TEST_F(HostFolderComboTest, EmptyEntryIsNotSelectedByAnEmptyDefaultNorAnyWithoutFolders) {
    Register(state, L"");
    Fill(L"");
    EXPECT_EQ(combo.entries.size(), 3U);
    EXPECT_FALSE(combo.selected);
    state.HostFolderCount = 0;
    Fill(L"C:\\A");
    EXPECT_THAT(combo.entries, IsEmpty());
    EXPECT_FALSE(combo.selected);
}

} // namespace
} // namespace tamblin
