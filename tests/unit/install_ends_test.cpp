// The other ends of an install, and the staging folder's surroundings.
#include <algorithm>

#include "unit/install_scene.h"

namespace tamblin {
namespace {

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

// --- The staging folder's surroundings ---------------------------------------------------------

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

// What is left of it is deleted without the shell.
TEST_F(InstallTest, FolderOfAnInstalledCharacterGoesAlsoWhereTheShellKeepsItsDefinition) {
    AddCharacter(files, L"C:\\Host", L"abc");
    scene.AddPackage(L"p.lzh", Both(Ombrel(L"abc"), Ombrel(L"mio")));
    fake.shell.refused = L"C:\\TAMTMP\\abc.obl";
    const auto staged = StagedWhenAsked({L"p.lzh"});
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\abc\\"), 0U);
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\abc.obl"), 0U);
    EXPECT_EQ(staged.count(L"C:\\TAMTMP\\mio.obl"), 1U);
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
    expectRefused([&] { scene.main.PrepareStagingPressed(); });
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

// It would be gone with the link.
TEST_F(InstallTest, HostFolderBehindALinkInPlaceOfTheStagingFolderIsNotUsed) {
    AddHost(files, L"C:\\Real\\host");
    files.AddLink(L"C:\\TAMTMP", L"C:\\Real");
    scene.Open();
    for (const wchar_t* host : {L"C:\\TAMTMP\\host", L"C:/tamtmp/host", L"C:\\\\TAMTMP\\host"}) {
        model.combo.entries = {host};
        scene.main.PrepareStagingPressed();
        EXPECT_TRUE(files.Exists(L"C:\\TAMTMP\\host"));
        ExpectRefused(L"TAMTMP は作業用フォルダです。");
    }
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
