// An install from the pressed button to the refreshed list: what is asked, said, copied and left.
#include "install/install.h"

#include <algorithm>

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t Failed[] = L"パッケージの解凍に失敗しました。";
constexpr wchar_t Cancelled[] = L"インストールを中止しました。";
constexpr wchar_t Done[] = L"インストールが完了しました。";
constexpr wchar_t None[] = L"（なし）";

std::vector<PackedFile> Ombrel(const std::wstring& name) {
    return {{name + L".obl", "definition of " + std::string(1, static_cast<char>(name[0]))},
            {name + L"\\face.bmp", "picture"},
            {name + L"\\dat\\voice.wav", "sound"}};
}

std::vector<PackedFile> Both(std::vector<PackedFile> one, const std::vector<PackedFile>& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

class InstallTest : public testing::Test {
  protected:
    explicit InstallTest(const std::wstring& host = L"C:\\Host") : scene(host) {}

    void Install(const std::vector<std::wstring>& names) {
        scene.Open();
        hostBefore = files.Snapshot(scene.hostFolder);
        scene.InstallFiles(names);
    }
    // An install of the package mio.lzh alone, with the character mio.
    void InstallMio() {
        scene.AddPackage(L"mio.lzh", Ombrel(L"mio"));
        Install({L"mio.lzh"});
    }
    // Nothing is unpacked or deleted, and one message begins so.
    void ExpectRefused(const std::wstring& message) {
        EXPECT_THAT(fake.unlha.calls, IsEmpty());
        ASSERT_EQ(fake.messages.shown.size(), 1U);
        EXPECT_TRUE(StartsWith(fake.messages.shown[0].text, message));
        EXPECT_TRUE(scene.screen.enabled);
        fake.messages.shown.clear();
    }
    const InstallConfirmation& Asked() const { return scene.screen.confirmations.at(0); }
    void ExpectLists(const std::vector<std::wstring>& toInstall,
                     const std::vector<std::wstring>& cannotInstall,
                     const std::vector<std::wstring>& alreadyInstalled) const {
        EXPECT_THAT(Asked().toInstall.Entries(), ElementsAreArray(toInstall));
        EXPECT_THAT(Asked().cannotInstall.Entries(), ElementsAreArray(cannotInstall));
        EXPECT_THAT(Asked().alreadyInstalled.Entries(), ElementsAreArray(alreadyInstalled));
    }
    void ExpectHostUntouched() const { EXPECT_EQ(files.Snapshot(scene.hostFolder), hostBefore); }
    bool InHost(const std::wstring& path) const {
        return files.Exists(WithBackslash(scene.hostFolder) + path);
    }
    // What is staged while the confirmation window is open.
    MemoryFileSystem::Tree StagedWhenAsked(const std::vector<std::wstring>& names) {
        MemoryFileSystem::Tree staged;
        scene.screen.onConfirmation = [&] {
            staged = files.Snapshot(L"C:\\TAMTMP");
        };
        Install(names);
        return staged;
    }

    MainWindowScene scene;
    MemoryFileSystem& files = scene.files;
    PlatformFake& fake = scene.fake;
    MainModel& model = scene.model;
    MemoryFileSystem::Tree hostBefore;
};

// --- The road to the end ------------------------------------------------------------------------

TEST_F(InstallTest, PutsTheCharacterIntoTheHostFolderAndTheList) {
    AddCharacter(files, L"C:\\Host", L"abc");
    files.AddFile(L"C:\\TAMTMP\\old.obl"); // left over
    files.AddFile(L"C:\\TAMTMP\\old\\x");
    InstallMio();
    ExpectLists({L"mio （mio.lzh）"}, {None}, {None});
    EXPECT_TRUE(Asked().installNowEnabled);
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio.obl"), "definition of m");
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio\\dat\\voice.wav"), "sound");
    EXPECT_FALSE(InHost(L"old.obl"));
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    EXPECT_TRUE(files.Exists(L"C:\\Packs\\mio.lzh"));
    EXPECT_THAT(fake.messages.shown,
                ElementsAre(Box{Kind::Inform, Done, MessageIcon::Information}));
    EXPECT_THAT(model.installed.names.Entries(), ElementsAre(L"abc", L"mio"));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
    EXPECT_THAT(SelectedEntries(model.browser.Files()), IsEmpty());
    EXPECT_EQ(EnabledButtons(model), Commands{Command::Install});
}

TEST_F(InstallTest, MainWindowIsDisabledAndTheSelectionStaysUntilTheUserHasSeenTheEnd) {
    for (const std::int16_t answer : {AnswerCancel, AnswerInstall}) {
        scene.screen.answer = answer;
        scene.screen.onConfirmation = [&] {
            EXPECT_FALSE(scene.screen.enabled);
            EXPECT_FALSE(model.enabled[Command::Install]);
            EXPECT_EQ(files.HeldFolder(), L"C:\\TAMTMP");
        };
        fake.messages.onShow = [&](const Box&) {
            EXPECT_FALSE(scene.screen.enabled);
            EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"mio.lzh"));
            EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
        };
        InstallMio();
        EXPECT_TRUE(scene.screen.enabled);
        EXPECT_EQ(files.HeldFolder(), L"");
    }
    EXPECT_THAT(fake.messages.Texts(), ElementsAre(Cancelled, Done));
    EXPECT_EQ(scene.screen.timesEnabled, 2); // once each
}

TEST_F(InstallTest, EveryCharacterIsInstalledWhateverTheCaseOfTheExtensions) {
    scene.AddPackage(L"a.lzh", Ombrel(L"aa"));
    scene.AddPackage(L"B.LZH", Ombrel(L"bb"));
    scene.AddPackage(L"c.Lzh", Both(Ombrel(L"表ソ能"), Ombrel(L"ｶﾅ")));
    Install({L"a.lzh", L"B.LZH", L"c.Lzh"});
    ExpectLists({L"aa （a.lzh）", L"bb （B.LZH）", L"表ソ能 （c.Lzh）", L"ｶﾅ （c.Lzh）"}, {None},
                {None});
    EXPECT_TRUE(InHost(L"aa\\face.bmp") && InHost(L"bb\\face.bmp") && InHost(L"ｶﾅ\\face.bmp"));
    EXPECT_THAT(model.installed.names.Entries(), ElementsAre(L"aa", L"bb", L"表ソ能", L"ｶﾅ"));
}

TEST_F(InstallTest, ArchiveIsUnpackedIntoTheStagingFolderAlsoFromADriveRoot) {
    scene.AddPackage(L"mio.lzh", {});
    files.AddFile(L"C:\\root.lzh");
    std::wstring folder;
    fake.unlha.onUnpack = [&](const std::wstring&) {
        folder = files.CurrentFolder();
        return std::int16_t{0};
    };
    Install({L"mio.lzh"});
    EXPECT_EQ(folder, L"C:\\TAMTMP");
    EXPECT_THAT(fake.unlha.calls,
                ElementsAre(UnlhaFake::Call{&scene.screen, L"x \"C:\\Packs\\mio.lzh\"",
                                            L"\"C:\\TAMTMP\"", 0}));
    model.browser.ShowFolder(L"C:\\");
    scene.InstallFiles({L"root.lzh"});
    EXPECT_EQ(fake.unlha.calls.at(1).command, L"x \"C:\\root.lzh\"");
}

class InstallOnAnotherDriveTest : public InstallTest {
  protected:
    InstallOnAnotherDriveTest() : InstallTest(L"D:\\Prog\\Host") {}
};

TEST_F(InstallOnAnotherDriveTest, StagesAtTheRootOfTheHostFoldersDrive) {
    bool staged = false;
    scene.screen.onConfirmation = [&] {
        staged = files.Exists(L"D:\\TAMTMP\\mio\\face.bmp");
    };
    InstallMio();
    EXPECT_TRUE(staged);
    EXPECT_TRUE(InHost(L"mio\\face.bmp"));
    EXPECT_FALSE(files.Exists(L"D:\\TAMTMP"));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

// --- Lists and thinning -------------------------------------------------------------------------

TEST_F(InstallTest, SameCharacterInTwoArchivesIsUndecidedTheSecondTime) {
    scene.AddPackage(L"a.lzh", Ombrel(L"mio"));
    scene.AddPackage(L"b.lzh", Ombrel(L"mio"));
    Install({L"a.lzh", L"b.lzh"});
    ExpectLists({L"mio （a.lzh）"}, {L"b.lzh （判定不能）"}, {None});
    EXPECT_TRUE(InHost(L"mio\\face.bmp"));
}

TEST_F(InstallTest, LooseDefinitionFileCannotBeInstalled) {
    files.AddFile(L"C:\\Packs\\abc.obl");
    files.AddFile(L"C:\\Packs\\abc\\x");
    scene.screen.answer = AnswerCancel;
    Install({L"abc.obl"});
    ExpectLists({None}, {L"abc.obl"}, {None});
    EXPECT_FALSE(Asked().installNowEnabled);
    EXPECT_THAT(fake.unlha.calls, IsEmpty());
    ExpectHostUntouched();
}

TEST_F(InstallTest, InstalledCharacterIsListedAndNotInstalledAgain) {
    AddCharacter(files, L"C:\\Host", L"ABC");
    scene.AddPackage(L"p.lzh",
                     Both(Both(Ombrel(L"abc"), Ombrel(L"mio")), {{L"lone.obl", "alone"}}));
    const auto staged = StagedWhenAsked({L"p.lzh"});
    ExpectLists({L"mio （p.lzh）"}, {None}, {L"ABC （p.lzh）"});
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\abc\\"), 0U);
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\abc.obl"), 0U);
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\mio\\face.bmp"), 1U);
    EXPECT_EQ(files.Contents(L"C:\\Host\\ABC.obl"), "definition");
    EXPECT_FALSE(InHost(L"ABC\\dat\\voice.wav"));
    EXPECT_TRUE(InHost(L"mio\\face.bmp"));
    EXPECT_EQ(files.Contents(L"C:\\Host\\lone.obl"), "alone"); // goes with the others
    EXPECT_THAT(model.installed.names.Entries(), ElementsAre(L"ABC", L"mio"));
}

TEST_F(InstallTest, OnlyInstalledCharactersLeaveNothingToInstall) {
    AddCharacter(files, L"C:\\Host", L"abc");
    scene.AddPackage(L"p.lzh", Ombrel(L"abc"));
    scene.screen.answer = AnswerCancel;
    Install({L"p.lzh"});
    ExpectLists({None}, {None}, {L"abc （p.lzh）"});
    EXPECT_FALSE(Asked().installNowEnabled);
    ExpectHostUntouched();
}

TEST_F(InstallTest, StagedAreOnlyCharactersWhenTheUserIsAsked) {
    scene.AddPackage(L"p.lzh", Both(Ombrel(L"mio"), {{L"xyz\\1"},
                                                     {L"readme.txt"},
                                                     {L"KVA.DEF", "a,b,1"},
                                                     {L"ro.txt", "", {.readOnly = true}}}));
    const auto staged = StagedWhenAsked({L"p.lzh"});
    ExpectLists({L"mio （p.lzh）"}, {None}, {None});
    std::vector<std::wstring> paths;
    for (const auto& [path, bytes] : staged)
        paths.push_back(path);
    EXPECT_THAT(paths,
                ElementsAre(L"C:\\TAMTMP\\mio.obl", L"C:\\TAMTMP\\mio\\", L"C:\\TAMTMP\\mio\\dat\\",
                            L"C:\\TAMTMP\\mio\\dat\\voice.wav", L"C:\\TAMTMP\\mio\\face.bmp"));
    EXPECT_FALSE(InHost(L"xyz"));
    EXPECT_FALSE(InHost(L"readme.txt"));
}

TEST_F(InstallTest, FolderThatTheHostHasIsCompletedAndALoneDefinitionOverwritten) {
    files.AddFile(L"C:\\Host\\mio.obl", "old");
    InstallMio();
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio.obl"), "definition of m");
    EXPECT_THAT(fake.messages.Texts(), ElementsAre(Done));
    files.DeleteTree(L"C:\\Host\\mio.obl");
    files.DeleteTree(L"C:\\Host\\mio");
    files.AddFile(L"C:\\Host\\mio\\mine", "mine");
    InstallMio();
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio\\mine"), "mine");
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio\\face.bmp"), "picture");
    EXPECT_TRUE(InHost(L"mio.obl"));
}

TEST_F(InstallTest, WhatIsNoPackageIsListedInTheOrderOfTheFiles) {
    scene.AddPackage(L"a.lzh", {{L"readme.txt"}});
    files.AddFile(L"C:\\Packs\\b.obl");
    scene.AddPackage(L"c.lzh", {{L"folder\\x"}});
    scene.AddPackage(L"d.lzh", {});
    scene.AddPackage(L"unselected.lzh", Ombrel(L"no"));
    scene.screen.answer = AnswerCancel;
    Install({L"a.lzh", L"b.obl", L"c.lzh", L"d.lzh"});
    ExpectLists({None}, {L"a.lzh", L"b.obl", L"c.lzh", L"d.lzh （判定不能）"}, {None});
}

TEST_F(InstallTest, LongListsAreReadToTheirEndAndNoFurther) {
    std::vector<std::wstring> names;
    for (int number = 100; number < 164; ++number) {
        names.push_back(L"x" + std::to_wstring(number) + L".obl");
        files.AddFile(L"C:\\Packs\\" + names.back());
    }
    scene.screen.answer = AnswerCancel;
    Install(names);
    EXPECT_EQ(model.browser.Files().Size(), 64U);
    ExpectLists({None}, names, {None});
}

TEST(InstallConfirmation, NoteIsSeenOnlyWhenSomethingCannotBeInstalled) {
    EXPECT_EQ(InstallConfirmation::Note(),
              L"tambに対応した形式ではありませんでした。\r\n"
              L"これらをインストールする場合は手動で行ってください。");
    InstallConfirmation lists;
    lists.cannotInstall.Assign({None});
    EXPECT_FALSE(lists.NoteVisible());
    lists.cannotInstall.Assign({L"a.lzh"});
    EXPECT_TRUE(lists.NoteVisible());
}

// --- Notes and launcher definitions -------------------------------------------------------------

TEST_F(InstallTest, NoteOfThePackageIsShown) {
    scene.AddPackage(L"p.lzh", Both(Ombrel(L"mio"), {{L"mio\\Read-x.txt", "note"}}));
    Install({L"p.lzh"});
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio\\Read-x.txt"), "note");
    EXPECT_THAT(fake.starter.shown, ElementsAre(L"C:\\Host\\mio\\Read-x.txt"));
}

TEST_F(InstallTest, LauncherEntriesAreMergedOnlyWhenAllowed) {
    files.AddFile(L"C:\\Host\\kva.def", "#mine\r\na,b,1\r\n");
    scene.AddPackage(L"p.lzh", Both(Ombrel(L"mio"), {{L"mio\\KVA.DEF", "a,b,2\r\nc,d,3\r\n"},
                                                     {L"KVA.DEF", "a,b,7\r\n"}}));
    scene.state.KvaOption = L"OFF";
    Install({L"p.lzh"});
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.def"), "#mine\r\na,b,1\r\n");
    EXPECT_EQ(files.Contents(L"C:\\Host\\mio\\KVA.DEF"), "a,b,2\r\nc,d,3\r\n");
    files.DeleteTree(L"C:\\Host\\mio.obl");
    scene.state.KvaOption = L"ON";
    Install({L"p.lzh"});
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.def"), "#mine\r\na,b,2\r\nc,d,3\r\n");
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.tmp"), "#mine\r\na,b,1\r\n");
}

// --- Other ends ---------------------------------------------------------------------------------

TEST_F(InstallTest, CancelLeavesTheHostAndTheSelectionAlone) {
    scene.screen.answer = AnswerCancel;
    InstallMio();
    ExpectHostUntouched();
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    EXPECT_THAT(fake.messages.shown, ElementsAre(Box{MessageBoxesFake::Kind::Inform, Cancelled,
                                                     MessageIcon::Information}));
    EXPECT_TRUE(scene.screen.enabled);
    EXPECT_THAT(SelectedEntries(model.browser.Files()), ElementsAre(L"mio.lzh"));
    EXPECT_EQ(EnabledButtons(model), ForPackages); // the rules have run again
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(InstallTest, FolderMayBeSpelledUnlikeItsDefinitionFile) {
    scene.AddPackage(L"mio.lzh", {{L"mio.obl"}, {L"MIO\\face.bmp"}});
    Install({L"mio.lzh"});
    EXPECT_TRUE(InHost(L"MIO\\face.bmp"));
    EXPECT_TRUE(InHost(L"mio.obl"));
    EXPECT_THAT(model.installed.names.Entries(), ElementsAre(L"MIO"));
}

// The session ends while the user is asked: nothing was answered, so nothing is installed or said.
TEST_F(InstallTest, MainWindowThatIsClosedMeanwhileEndsItSilently) {
    scene.screen.answer.reset();
    scene.screen.onConfirmation = [&] {
        scene.screen.open = false;
    };
    InstallMio();
    ExpectHostUntouched();
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    EXPECT_THAT(fake.messages.shown, IsEmpty());
}

TEST_F(InstallTest, ClosingTheWindowByItsFrameGoesOn) {
    scene.screen.answer.reset();
    InstallMio();
    EXPECT_TRUE(InHost(L"mio\\face.bmp"));
    EXPECT_THAT(fake.messages.Texts(), ElementsAre(Done));
}

TEST_F(InstallTest, DamagedArchiveEndsTheInstallAtOnce) {
    scene.AddPackage(L"a.lzh", Ombrel(L"mio"));
    scene.AddPackage(L"b.lzh", {{L"half\\x"}, {L"half.obl"}}, 0x1234);
    scene.AddPackage(L"c.lzh", Ombrel(L"never"));
    Install({L"a.lzh", L"b.lzh", L"c.lzh"});
    EXPECT_THAT(fake.messages.shown, ElementsAre(Box{MessageBoxesFake::Kind::Inform, Failed}));
    EXPECT_THAT(scene.screen.confirmations, IsEmpty());
    EXPECT_EQ(fake.unlha.calls.size(), 2U);
    ExpectHostUntouched();
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
    EXPECT_TRUE(scene.screen.enabled);
    EXPECT_FALSE(model.enabled[Command::Install]); // until the selection rules run again
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
    scene.main.SelectionChanged();
    EXPECT_TRUE(model.enabled[Command::Install]);
}

TEST_F(InstallTest, AnyReturnCodeButZeroIsAFailureToldWhileTheStagingIsStillThere) {
    for (const int code : {1, -1, 0x7FFF, -0x8000}) {
        scene.AddPackage(L"a.lzh", {{L"half\\x"}}, static_cast<std::int16_t>(code));
        bool staged = false;
        fake.messages.onShow = [&](const Box&) {
            staged = files.Exists(L"C:\\TAMTMP\\half\\x");
        };
        Install({L"a.lzh"});
        EXPECT_TRUE(staged);
        EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
        EXPECT_THAT(scene.screen.confirmations, IsEmpty());
        ExpectHostUntouched();
    }
}

// --- The staging folder's surroundings
// ------------------------------------------------------------

// The window has called the character installed: nothing of it may be replaced.
TEST_F(InstallTest, StagedFilesThatCannotBeDeletedEndTheInstallBeforeAnythingIsCopied) {
    using enum ErrorNumber;
    const auto unpack = fake.unlha.onUnpack;
    for (const auto& [held, error] : std::initializer_list<std::pair<const wchar_t*, ErrorNumber>>{
             {L"abc.obl", PermissionDenied},
             {L"abc\\face.bmp", PathFileAccess},
             {L"loose\\x", PathFileAccess}}) {
        AddCharacter(files, L"C:\\Host", L"abc");
        scene.AddPackage(L"p.lzh",
                         Both(Both(Ombrel(L"abc"), Ombrel(L"mio")), {PackedFile{L"loose\\x"}}));
        const std::wstring locked = std::wstring(L"C:\\TAMTMP\\") + held;
        fake.unlha.onUnpack = [this, unpack, locked](const std::wstring& archive) {
            const auto result = unpack(archive);
            files.Lock(locked);
            return result;
        };
        EXPECT_EQ(ErrorOf([&] { Install({L"p.lzh"}); }), error) << held;
        ExpectHostUntouched();
        EXPECT_THAT(scene.screen.confirmations, IsEmpty());
        EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
        EXPECT_EQ(files.HeldFolder(), L"");
        files.Unlock(locked);
        scene.main.PrepareStagingPressed();
    }
}

TEST_F(InstallTest, WhatLiesInTheStagingFolderIsNeitherUsedNorDeleted) {
    constexpr wchar_t refusal[] = L"TAMTMP は作業用フォルダです。";
    scene.AddPackage(L"mio.lzh", Ombrel(L"mio"));
    AddHost(files, L"C:\\TAMTMP\\host");
    files.AddFile(L"C:\\TAMTMP\\left.lzh", "archive");
    const auto before = files.Snapshot();
    scene.Open();
    const auto expectRefused = [&](const std::function<void()>& command) {
        command();
        EXPECT_EQ(files.Snapshot(), before);
        ExpectRefused(refusal);
    };
    const auto install = [&] {
        tamblin::Install(scene.model, scene.state, scene.fake.platform, scene.screen);
    };
    for (const wchar_t* host : {L"C:\\TAMTMP\\host", L"c:/tamtmp", L"C:\\\\TAMTMP\\host\\"}) {
        model.combo.entries = {host};
        model.combo.selected = 0;
        expectRefused(install);
        expectRefused([&] { scene.main.PrepareStagingPressed(); });
    }
    model.combo.entries = {L"C:\\Host"};
    model.browser.ShowFolder(L"C:\\TAMTMP");
    expectRefused([&] { scene.InstallFiles({L"left.lzh"}); });
    model.browser.ShowFolder(L"C:\\Packs");
    fake.platform.programFolder = L"C:\\TAMTMP\\Tamblin";
    expectRefused(install);
}

// A link to the staging folder, or a drive that `subst` has made of it.
TEST_F(InstallTest, WhatIsReachedByAnotherNameOfTheStagingFolderIsNeitherUsedNorDeleted) {
    files.AddFile(L"C:\\TAMTMP\\deep\\left.lzh", "archive");
    files.AddLink(L"C:\\other", L"C:\\TAMTMP\\deep");
    scene.state.ViewFolder = L"C:\\other";
    Install({L"left.lzh"});
    EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\deep\\left.lzh"));
    ExpectRefused(L"TAMTMP は作業用フォルダです。");
}

// The link goes, and what it leads to stays.
TEST_F(InstallTest, WhatALinkInPlaceOfTheStagingFolderLeadsToMayBeUsed) {
    files.AddLink(L"C:\\TAMTMP", scene.state.ViewFolder);
    InstallMio();
    EXPECT_TRUE(files.Exists(L"C:\\Host\\mio.obl"));
}

TEST_F(InstallTest, StagingFolderOfAnotherSessionIsLeftAlone) {
    files.AddFile(L"C:\\TAMTMP\\theirs\\a", "theirs");
    files.HoldElsewhere(L"C:\\TAMTMP");
    InstallMio();
    EXPECT_EQ(files.Contents(L"C:\\TAMTMP\\theirs\\a"), "theirs");
    ExpectHostUntouched();
    ExpectRefused(L"C:\\TAMTMP は、ほかのユーザー");
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
}

TEST_F(InstallTest, InstalledFilesHaveThePermissionsOfTheHostFolder) {
    files.SetPermissions(L"C:\\", L"everybody");
    files.SetPermissions(L"C:\\Host", L"the family");
    InstallMio();
    for (const wchar_t* path : {L"mio.obl", L"mio", L"mio\\face.bmp", L"mio\\dat\\voice.wav"})
        EXPECT_EQ(files.PermissionsOf(std::wstring(L"C:\\Host\\") + path), L"the family") << path;
}

TEST_F(InstallTest, FullDriveIsReportedAndTheMainWindowUsable) {
    scene.AddPackage(L"mio.lzh", Ombrel(L"mio"));
    scene.Open();
    std::uint64_t used = 0;
    for (const auto& [path, bytes] : files.Snapshot())
        used += bytes.size();
    files.SetCapacity(L"C:", used);
    EXPECT_EQ(ErrorOf([&] { scene.InstallFiles({L"mio.lzh"}); }), ErrorNumber::DiskFull);
    EXPECT_TRUE(scene.screen.enabled);
    EXPECT_THAT(scene.screen.confirmations, IsEmpty());
}

TEST_F(InstallTest, TellsHowFarItHasComeWithTheFiles) {
    files.AddFile(L"C:\\TAMTMP\\left\\over");
    scene.AddPackage(L"p.lzh", Both(Ombrel(L"mio"), {{L"readme.txt"}, {L"loose\\x"}}));
    Install({L"p.lzh"});
    const auto& works = scene.fake.progress.works;
    std::vector<std::wstring> seen;
    for (const auto& work : works) {
        seen.push_back(work.text + work.folder);
        EXPECT_TRUE(work.ended);
        EXPECT_FALSE(work.parts.empty());
        EXPECT_TRUE(std::is_sorted(work.parts.begin(), work.parts.end()));
    }
    EXPECT_THAT(seen,
                ElementsAre(L"作業用フォルダを整理しています...C:\\TAMTMP", // the left-over one
                            L"作業用フォルダを整理しています...C:\\TAMTMP",
                            L"ファイルをコピーしています...C:\\Host"));
    // Two files and two folders were staged.
    EXPECT_THAT(works.at(1).parts, ElementsAre(0.0, 0.25, 0.5, 0.75));
    EXPECT_EQ(works.at(2).parts.front(), 0.0);
    EXPECT_EQ(works.at(2).parts.back(), 1.0);
}

TEST_F(InstallTest, WorkThatFailsIsNoLongerUnderWay) {
    scene.AddPackage(L"p.lzh", Ombrel(L"mio"));
    scene.screen.onConfirmation = [&] {
        files.DenyAccess(L"C:\\Host");
    };
    scene.Open();
    EXPECT_TRUE(ErrorOf([&] { scene.InstallFiles({L"p.lzh"}); }));
    EXPECT_TRUE(scene.fake.progress.works.back().ended);
}

TEST_F(InstallTest, HostFolderThatVanishesMeanwhileIsReported) {
    scene.screen.onConfirmation = [&] {
        files.DeleteTree(L"C:\\Host");
    };
    EXPECT_EQ(ErrorOf([&] { InstallMio(); }), ErrorNumber::PathNotFound);
    EXPECT_TRUE(scene.screen.enabled);
    EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\mio\\face.bmp"));
    EXPECT_EQ(files.CurrentFolder(), L"C:\\Tamblin");
    EXPECT_EQ(files.HeldFolder(), L"");
}

TEST_F(InstallTest, WithoutAHostFolderNothingIsStaged) {
    scene.AddPackage(L"mio.lzh", Ombrel(L"mio"));
    scene.Open();
    model.combo.selected.reset();
    EXPECT_EQ(ErrorOf([&] {
                  tamblin::Install(scene.model, scene.state, scene.fake.platform, scene.screen);
              }),
              ErrorNumber::PathNotFound);
    EXPECT_TRUE(scene.screen.enabled);
    EXPECT_THAT(fake.unlha.calls, IsEmpty());
}

} // namespace
} // namespace tamblin
