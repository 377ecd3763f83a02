// An install from the pressed button to the refreshed list: what is asked, said and copied.
#include "unit/install_scene.h"

namespace tamblin {
namespace {

// --- The road to the end ------------------------------------------------------------------------

TEST_F(InstallTest, PutsTheCharacterIntoTheHostFolderAndTheList) {
    AddCharacter(files, L"C:\\Host", L"abc");
    files.AddFile(L"C:\\TAMTMP\\old.obl"); // left over
    files.AddFile(L"C:\\TAMTMP\\old\\x");
    InstallMio();
    ExpectLists({L"mio （mio.lzh）"}, {None}, {None});
    EXPECT_TRUE(Asked().installNowEnabled);
    EXPECT_THAT(fake.unlha.calls,
                ElementsAre(UnlhaFake::Call{&scene.screen, L"x \"C:\\Packs\\mio.lzh\"",
                                            L"\"C:\\TAMTMP\"", 0}));
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

TEST_F(InstallTest, MainWindowThatFailsToShowItselfDisabledIsEnabledAgain) {
    scene.screen.onDisabled = [] {
        throw std::bad_alloc();
    };
    EXPECT_THROW(InstallMio(), std::bad_alloc);
    EXPECT_TRUE(scene.screen.enabled);
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

class InstallOnAnotherDriveTest : public InstallTest {
  protected:
    // Whose name only begins as the staging folder's.
    InstallOnAnotherDriveTest() : InstallTest(L"D:\\TAMTMP2\\Host") {}
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

TEST_F(InstallTest, WhatIsNoPackageIsListedInTheOrderOfTheFiles) {
    scene.AddPackage(L"a.lzh", {{L"readme.txt"}});
    files.AddFile(L"C:\\Packs\\b.obl");
    scene.AddPackage(L"c.lzh", {{L"folder\\x"}});
    scene.AddPackage(L"d.lzh", {});
    scene.AddPackage(L"e.lzh", Ombrel(L"mio"));
    scene.AddPackage(L"f.lzh", Ombrel(L"mio")); // once more
    scene.AddPackage(L"unselected.lzh", Ombrel(L"no"));
    Install({L"a.lzh", L"b.obl", L"c.lzh", L"d.lzh", L"e.lzh", L"f.lzh"});
    ExpectLists({L"mio （e.lzh）"},
                {L"a.lzh", L"b.obl", L"c.lzh", L"d.lzh （判定不能）", L"f.lzh （判定不能）"},
                {None});
    EXPECT_TRUE(InHost(L"mio\\face.bmp"));
    EXPECT_FALSE(InHost(L"no.obl"));
}

TEST_F(InstallTest, LooseDefinitionsAndInstalledCharactersLeaveNothingToInstall) {
    files.AddFile(L"C:\\Packs\\abc.obl");
    files.AddFile(L"C:\\Packs\\abc\\x");
    scene.screen.answer = AnswerCancel;
    Install({L"abc.obl"});
    ExpectLists({None}, {L"abc.obl"}, {None});
    EXPECT_THAT(fake.unlha.calls, IsEmpty());
    ExpectHostUntouched();
    AddCharacter(files, L"C:\\Host", L"abc");
    scene.AddPackage(L"p.lzh", Ombrel(L"abc"));
    Install({L"p.lzh"});
    const auto& second = scene.screen.confirmations.at(1);
    EXPECT_THAT(second.alreadyInstalled.Entries(), ElementsAre(L"abc （p.lzh）"));
    for (const InstallConfirmation& lists : scene.screen.confirmations) {
        EXPECT_THAT(lists.toInstall.Entries(), ElementsAre(None));
        EXPECT_FALSE(lists.installNowEnabled);
    }
    EXPECT_THAT(second.cannotInstall.Entries(), ElementsAre(None));
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

TEST(InstallConfirmation, NoteIsSeenOnlyWhenSomethingCannotBeInstalled) {
    EXPECT_STREQ(InstallConfirmation::Note,
                 L"tambに対応した形式ではありませんでした。\r\n"
                 L"これらをインストールする場合は手動で行ってください。");
    InstallConfirmation lists;
    lists.cannotInstall.Assign({None});
    EXPECT_FALSE(lists.NoteVisible());
    lists.cannotInstall.Assign({L"a.lzh"});
    EXPECT_TRUE(lists.NoteVisible());
}

} // namespace
} // namespace tamblin
