// Installing real archives: the whole road from the selected file through the archive reader into
// the host folder.

#include "support/lzh_memory_unlha.h"
#include "support/lzh_writer.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

using lzh::LzhWriter;

class InstallArchiveTest : public testing::Test {
  protected:
    InstallArchiveTest() {
        fake.unlha.onUnpack = [this](const std::wstring& archive) {
            return reader.Run(nullptr, L"x \"" + archive + L"\"", L"\"C:\\TAMTMP\"", 0);
        };
    }
    void Install(const std::string& archive) {
        files.AddFile(L"C:\\Packs\\p.lzh", archive);
        scene.Open();
        before = files.Snapshot();
        scene.InstallFiles({L"p.lzh"});
    }

    MainWindowScene scene;
    PlatformFake& fake = scene.fake;
    MemoryFileSystem& files = scene.files;
    MemoryUnlha reader{files};
    MemoryFileSystem::Tree before;
};

TEST_F(InstallArchiveTest, CharacterOfAnArchiveStandsInTheList) {
    const std::string text(10'000, 'x');
    scene.state.KvaOption = L"ON";
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
    LzhWriter writer;
    writer.AddFile(L"表ソ能.obl", "definition", "-lh0-", 0)
        .AddFolder(L"表ソ能\\")
        .AddFile(L"表ソ能\\ア.TXT", text, "-lh5-", 1)
        .AddFile(L"表ソ能\\dat\\ｶﾅ.bmp", text, "-lh7-", 2)
        .AddFile(L"表ソ能\\Read-X.txt", "note", "-lh6-", 2)
        .AddFile(L"表ソ能\\KVA.DEF", "a,b,2\r\n");
    Install(writer.Finish());
    EXPECT_THAT(scene.screen.confirmations.at(0).toInstall.Entries(),
                ElementsAre(L"表ソ能 （p.lzh）"));
    EXPECT_THAT(scene.model.installed.names.Entries(), ElementsAre(L"表ソ能"));
    EXPECT_EQ(files.Contents(L"C:\\Host\\表ソ能.obl"), "definition");
    EXPECT_EQ(files.Contents(L"C:\\Host\\表ソ能\\ア.TXT"), text);
    EXPECT_EQ(files.Contents(L"C:\\Host\\表ソ能\\dat\\ｶﾅ.bmp"), text);
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.def"), "a,b,2\r\n");
    EXPECT_THAT(fake.starter.shown, ElementsAre(L"C:\\Host\\表ソ能\\Read-X.txt"));
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

// A damaged one, files that are none, and those that reach out of the staging folder.
TEST_F(InstallArchiveTest, ArchiveThatCannotBeUnpackedTouchesNothing) {
    lzh::LzhEntry damaged = lzh::MakeEntry(L"mio\\face.bmp", std::string(1'000, 'x'), "-lh5-", 2);
    damaged.claimedCrc = 0x1234;
    std::vector<std::string> archives = {
        LzhWriter().AddFile(L"mio.obl", "definition").Add(damaged).Finish(), "",
        "MZ no archive at all", "\x20"};
    for (const wchar_t* path : {L"..\\evil.txt", L"mio\\..\\..\\Host\\ombrel.exe", L"mio\\NUL.txt",
                                L"mio\\a:b", L"mio\\a.", L"mio\\a "})
        archives.push_back(LzhWriter().AddFile(L"mio\\x", "x").AddFile(path, "evil").Finish());
    for (const std::string& archive : archives) {
        fake.messages.shown.clear();
        Install(archive);
        EXPECT_THAT(fake.messages.Texts(), ElementsAre(L"パッケージの解凍に失敗しました。"));
        EXPECT_THAT(scene.screen.confirmations, IsEmpty());
        EXPECT_EQ(files.Snapshot(), before);
        EXPECT_TRUE(scene.screen.enabled);
    }
}

TEST_F(InstallArchiveTest, FilesOfAnArchiveAreInstalledReadOnlyAsTheyAreAndVisibly) {
    LzhWriter writer;
    for (const int attributes : {0x21, 0x22, 0x24, 0x26}) {
        const std::wstring name = L"mio\\" + std::to_wstring(attributes);
        lzh::LzhEntry entry = lzh::MakeEntry(name, "x", "-lh0-", 1);
        entry.dosAttributes = static_cast<std::uint8_t>(attributes);
        writer.Add(entry);
    }
    writer.AddFile(L"mio.obl", "definition");
    Install(writer.Finish());
    EXPECT_THAT(scene.model.installed.names.Entries(), ElementsAre(L"mio"));
    for (const wchar_t* name : {L"33", L"34", L"36", L"38"})
        EXPECT_EQ(files.AttributesOf(std::wstring(L"C:\\Host\\mio\\") + name),
                  (FileAttributes{.readOnly = name == std::wstring(L"33"), .archive = true}));
    EXPECT_FALSE(files.Exists(L"C:\\TAMTMP"));
}

} // namespace
} // namespace tamblin
