// The fakes that stand for the program's surroundings in the tests of its rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/platform_fake.h"

namespace tamblin {
namespace {

using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;
using testing::ElementsAre;

TEST(PlatformFake, StartsInTheProgramFolder) {
    PlatformFake fake;
    EXPECT_EQ(fake.platform.files.CurrentFolder(), L"C:\\Tamblin");
    EXPECT_EQ(fake.files.OperationCount(), 1U);
}

TEST(MessageBoxesFake, RecordsBoxesAndAnswersInOrder) {
    MessageBoxesFake messages;
    messages.answers = {false, true};
    EXPECT_FALSE(messages.AskOkCancel(L"1"));
    EXPECT_TRUE(messages.AskYesNo(L"2"));
    messages.onShow = [&](const Box&) {
        messages.answer = false;
    };
    EXPECT_FALSE(messages.AskRetryCancel(L"3"));
    messages.Inform(L"4", MessageIcon::Stop);
    EXPECT_THAT(messages.shown, ElementsAre(Box{Kind::AskOkCancel, L"1"}, Box{Kind::AskYesNo, L"2"},
                                            Box{Kind::AskRetryCancel, L"3"},
                                            Box{Kind::Inform, L"4", MessageIcon::Stop}));
    EXPECT_THAT(messages.Texts(), ElementsAre(L"1", L"2", L"3", L"4"));
}

TEST(DesktopShellFake, DeletesTreesOnTheDiskUnlessItRefuses) {
    PlatformFake fake;
    fake.files.AddFile(L"C:\\t\\a");
    fake.shell.refuses = true;
    fake.shell.DeleteTree(L"C:\\t");
    fake.shell.MoveToRecycleBin(L"C:\\t");
    EXPECT_TRUE(fake.files.Exists(L"C:\\t\\a"));
    EXPECT_THAT(fake.shell.deleted, ElementsAre(L"C:\\t"));
    fake.shell.refuses = false;
    fake.files.Lock(L"C:\\t\\a");
    fake.shell.MoveToRecycleBin(L"C:\\t");
    EXPECT_TRUE(fake.files.Exists(L"C:\\t\\a"));
    EXPECT_TRUE(fake.shell.Recycled().empty());
    fake.files.Unlock(L"C:\\t\\a");
    fake.files.ForgetOperations();
    fake.shell.DeleteTree(L"C:\\t");
    EXPECT_FALSE(fake.files.Exists(L"C:\\t"));
    EXPECT_THAT(fake.files.Log(), ElementsAre(L"DeleteTree C:\\t"));
}

TEST(DesktopShellFake, DeletesNothingThatIsNotOnePath) {
    PlatformFake fake;
    fake.files.AddFile(L"C:\\t\\a");
    fake.files.SetCurrentFolder(L"C:\\t");
    const auto before = fake.files.Snapshot();
    for (const wchar_t* path : {L"", L"C:\\", L"C:\\t\\*", L"C:\\nosuch", L"Q:\\t"}) {
        fake.shell.DeleteTree(path);
        fake.shell.MoveToRecycleBin(path);
    }
    EXPECT_EQ(fake.files.Snapshot(), before);
}

TEST(DesktopShellFake, RecycledTreesCanBeRestored) {
    PlatformFake fake;
    fake.files.AddFile(L"C:\\t\\a", "1");
    const auto before = fake.files.Snapshot();
    fake.shell.MoveToRecycleBin(L"C:\\t");
    EXPECT_FALSE(fake.files.Exists(L"C:\\t"));
    EXPECT_THAT(fake.shell.Recycled(), ElementsAre(L"C:\\t"));
    EXPECT_TRUE(fake.shell.Restore(L"c:\\T"));
    EXPECT_EQ(fake.files.Snapshot(), before);
    EXPECT_FALSE(fake.shell.Restore(L"C:\\t"));
}

TEST(ProgramStarterFake, ShowsTheDiskAtTheMomentOfTheStart) {
    PlatformFake fake;
    fake.files.AddFile(L"C:\\rc", "temporary");
    std::string seen;
    fake.starter.onStart = [&](const std::wstring&) {
        seen = fake.files.Contents(L"C:\\rc");
    };
    fake.starter.StartMinimised(L"host.exe /x");
    fake.starter.ShowMinimised(L"readme.txt");
    EXPECT_EQ(seen, "temporary");
    EXPECT_THAT(fake.starter.started, ElementsAre(L"host.exe /x"));
    EXPECT_THAT(fake.starter.shown, ElementsAre(L"readme.txt"));
}

TEST(ProgramStarterFake, FailsWhenToldTo) {
    ProgramStarterFake starter;
    starter.failure = ErrorNumber::FileNotFound;
    EXPECT_THROW(starter.StartMinimised(L"x"), RunTimeError);
}

TEST(EventLoopFake, ActsWhenAnOperationGivesWay) {
    EventLoopFake events;
    int acted = 0;
    events.onYield = [&] {
        ++acted;
    };
    events.Yield();
    events.Yield();
    EXPECT_EQ(acted, 2);
    EXPECT_EQ(events.yields, 2U);
}

TEST(UnlhaFake, UnpacksIntoTheCurrentFolder) {
    PlatformFake fake;
    fake.unlha.onUnpack = [&](const std::wstring& archive) {
        EXPECT_EQ(archive, L"C:\\p\\a b.lzh");
        fake.files.AddFile(L"unpacked.obl");
        return std::int16_t{0};
    };
    EXPECT_EQ(fake.unlha.Run(nullptr, L"x \"C:\\p\\a b.lzh\"", L"", 0), 0);
    EXPECT_TRUE(fake.files.Exists(L"C:\\Tamblin\\unpacked.obl"));
    EXPECT_NE(fake.unlha.Run(nullptr, L"l C:\\p", L"", 0), 0);
    EXPECT_EQ(fake.unlha.calls.size(), 2U);
}

TEST(NativeAnsiCodePage, ConvertsJapaneseNamesThereAndBack) {
    NativeAnsiCodePage ansi;
    EXPECT_EQ(ansi.Decode("\x95\x5C\x83\x5C\x94\x5C"), L"表ソ能");
    EXPECT_EQ(ansi.Encode(L"表ソ能"), "\x95\x5C\x83\x5C\x94\x5C");
    EXPECT_EQ(ansi.Decode("C:\\\xB6\xC5~"), L"C:\\ｶﾅ~");
    EXPECT_EQ(ansi.Encode(L"C:\\ｶﾅ~"), "C:\\\xB6\xC5~");
    EXPECT_EQ(ansi.Decode("\x81\x60\x81\x5F\x81\x7C"), L"～＼－");
    EXPECT_EQ(ansi.Decode("\x87\x40\xFA\xB1"), L"①﨑");
}

TEST(NativeAnsiCodePage, EveryTwoByteCharacterThatIsItsOwnOnlyCodeReturns) {
    NativeAnsiCodePage ansi;
    int returned = 0;
    for (int lead = 0x81; lead <= 0x98; ++lead)
        for (int trail = 0x40; trail <= 0xFC; ++trail) {
            const std::string bytes{static_cast<char>(lead), static_cast<char>(trail)};
            const std::wstring text = ansi.Decode(bytes);
            returned += text.size() == 1 && text != L"・" && ansi.Encode(text) == bytes;
        }
    EXPECT_GT(returned, 3500);
}

TEST(NativeAnsiCodePage, HasNoLookAlikes) {
    NativeAnsiCodePage ansi;
    for (const wchar_t* text :
         {L"a\x0E01z", L"caf\x00E9", L"\x00A5", L"\x203E", L"\x301C", L"\x00A6"})
        EXPECT_EQ(ansi.Encode(text), std::nullopt);
}

TEST(NativeAnsiCodePage, ReplacesWhatIsNoCharacter) {
    NativeAnsiCodePage ansi;
    EXPECT_EQ(ansi.Decode("").size(), 0U);
    EXPECT_EQ(ansi.Encode(L""), "");
    const std::string stray = "\x80\xA0\xFD\xFE\xFF";
    EXPECT_EQ(ansi.Encode(ansi.Decode(stray)), stray);
    EXPECT_EQ(ansi.Decode("a\x85").size(), 2U);
}

} // namespace
} // namespace tamblin
