// The fakes that stand for the program's surroundings in the tests of its rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/platform_fake.h"

namespace tamblin {
namespace {

using Box = MessageBoxesFake::Box;
using Kind = MessageBoxesFake::Kind;
using testing::ElementsAre;

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
