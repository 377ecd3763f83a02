// Names that would leave the target folder or end up in something else than they say, in every
// place that a name can come from.
#include <gtest/gtest.h>

#include "platform/lzh/entry_path.h"
#include "support/lzh_extraction.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

// Where an otherwise sound entry holds the hostile text.
enum class Holder { Name, Folder, MiddleOfFolder, NameHeader, UnicodeName, UnicodeFolder };

struct Place {
    const char* name;
    Holder holder;
    unsigned level;
};

void Put(LzhEntry& entry, Holder holder, const std::string& text) {
    switch (holder) {
        case Holder::Name:
            entry.name = text;
            break;
        case Holder::Folder:
            entry.folder = text;
            break;
        case Holder::MiddleOfFolder:
            entry.folder = "dir\xFF" + text + "\xFF";
            break;
        case Holder::NameHeader:
            entry.extended.push_back({0x01, text});
            break;
        case Holder::UnicodeName:
        case Holder::UnicodeFolder:
            entry.extended.push_back(
                {static_cast<unsigned char>(holder == Holder::UnicodeName ? 0x44 : 0x45),
                 Utf16Bytes(std::u16string(text.begin(), text.end()))});
    }
}

const Place places[] = {
    {"Level0Name", Holder::Name, 0},
    {"Level0FolderInName", Holder::Folder, 0},
    {"Level1Name", Holder::Name, 1},
    {"NameHeaderInLevel1", Holder::NameHeader, 1},
    {"FolderHeaderInLevel1", Holder::Folder, 1},
    {"FolderHeaderInLevel1With0xFF", Holder::MiddleOfFolder, 1},
    {"NameHeaderInLevel2", Holder::Name, 2},
    {"FolderHeaderInLevel2", Holder::Folder, 2},
    {"UnicodeNameInLevel2", Holder::UnicodeName, 2},
    {"UnicodeFolderInLevel2", Holder::UnicodeFolder, 2},
    {"NameHeaderInLevel3", Holder::Name, 3},
    {"FolderHeaderInLevel3", Holder::Folder, 3},
    {"UnicodeNameInLevel1", Holder::UnicodeName, 1},
    {"UnicodeFolderInLevel3", Holder::UnicodeFolder, 3},
};

class HostileNames : public testing::TestWithParam<Place> {
  protected:
    Extraction Try(const std::string& text, const std::string& method = "-lh0-") {
        LzhEntry entry = MakeEntry(L"a.txt", "text", method, GetParam().level);
        entry.headerCrc = false;
        Put(entry, GetParam().holder, text);
        return Extraction(LzhWriter().Add(entry).Finish());
    }

    void ExpectForbidden(const std::string& text) {
        for (const char* method : {"-lh0-", "-lhd-"}) {
            const Extraction extraction = Try(text, method);
            EXPECT_EQ(extraction.Failure(), LzhFailure::ForbiddenName) << text << " " << method;
            EXPECT_TRUE(extraction.target.files.empty()) << text;
            EXPECT_TRUE(extraction.target.folders.empty()) << text;
            EXPECT_EQ(extraction.target.written, 0u) << text;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Places, HostileNames, testing::ValuesIn(places),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(HostileNames, AreForbidden) {
    const std::initializer_list<const char*> parents = {
        "..",        "..\\x", "../x",    "x\\..", "x\\..\\..\\y", "/../x",
        "C:\\..\\x", "...",   "....\\x", ".. ",   ". ",           "..\\..\\..\\windows\\win.ini"};
    const std::initializer_list<const char*> devices = {
        "CON",        "con",      "Prn",    "AUX",      "NUL",       "nul.txt",
        "NUL.tar.gz", "CON .txt", "COM1",   "com9.log", "LPT1",      "lpt9.x",
        "CONIN$",     "conout$",  "CLOCK$", "aux.",     "x\\NUL\\y", "x/con"};
    const std::initializer_list<const char*> streams = {"a:b",   "a.txt:stream", "a.txt::$DATA",
                                                        ":x",    "dir:x\\y",     "x\\C:\\y",
                                                        "x\\C:", "C:x",          "aa:\\x"};
    const std::initializer_list<const char*> changedByWindows = {
        "a.", "a ", "a..", "a. .", "dir.\\x", "dir \\x", "x\\ ", "x\\ \\y"};
    const std::initializer_list<const char*> noNamesForWindows = {
        "a<b",          "a>b",        "a|b",  "a?b",  "a*b",   "a\"b",
        "\\\\?\\C:\\x", "\\\\.\\NUL", "a\tb", "a\nb", "a\x01", "\x1F"};
    for (const auto& names : {parents, devices, streams, changedByWindows, noNamesForWindows})
        for (const char* name : names)
            ExpectForbidden(name);
}

TEST_P(HostileNames, ZeroInside) {
    if (GetParam().level == 0) { // the name ends there
        EXPECT_EQ(Try(std::string("..\\x\0y", 6)).Failure(), LzhFailure::ForbiddenName);
        EXPECT_EQ(Try(std::string("NUL\0.txt", 8)).Failure(), LzhFailure::ForbiddenName);
        EXPECT_TRUE(Try(std::string("\0..\\x", 5)).target.files.empty());
        return;
    }
    ExpectForbidden(std::string("a.txt\0.exe", 10));
    ExpectForbidden(std::string("\0a", 2));
    ExpectForbidden(std::string("x\\a\0b\\y", 7));
}

TEST_P(HostileNames, OverLong) {
    const bool isLevel1Name = GetParam().level == 1 && GetParam().holder == Holder::Name;
    if (GetParam().level > 0) {
        if (isLevel1Name)
            return; // whose names have at most 230 bytes
        ExpectForbidden(std::string(256, 'n'));
        ExpectForbidden(std::string(4000, 'n'));
        ExpectForbidden(std::string(20000, 'n'));
    }
    std::string deep;
    while (deep.size() < 210)
        deep += "folder\\";
    EXPECT_EQ(Try(deep + "x").Failure(), LzhFailure::None);
    if (GetParam().level > 0)
        ExpectForbidden(deep + deep + "x");
}

TEST(HostileByteNames, TwoByteTricksDoNotHideSeparators) {
    // A lead byte cannot swallow 0xFF or "/", and a swallowed "\" is part of a character.
    for (const char* name : {"\x81\xFF..\xFF"
                             "a",
                             "\x81/../a", "x\\\x95\x5C\\..\\a", "\x81\x81\\..\\a",
                             "\x95\x5C\x5C..\x5C"
                             "a"}) {
        for (unsigned level = 0; level <= 3; ++level) {
            LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", level);
            entry.name = name;
            EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(),
                      LzhFailure::ForbiddenName);
            entry.name = "a";
            entry.folder = name;
            EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(),
                      LzhFailure::ForbiddenName);
        }
    }
}

TEST(HostileByteNames, OverlongUtf8IsNoSeparator) {
    LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", 2);
    entry.name =
        "..\xC0\xAF..\xC0\xAF"
        "a"; // "/" in two bytes, which UTF-8 does not allow
    entry.extended.push_back({0x46, LittleEndian(65001, 4)});
    const Extraction extraction(LzhWriter().Add(entry).Finish());
    EXPECT_EQ(extraction.Files(),
              std::vector<std::wstring>{L"..\uFFFDC0\uFFFDAF..\uFFFDC0\uFFFDAFa"});
}

TEST(HostileByteNames, DriveWithNothingBehindItIsAName) {
    const Extraction extraction(LzhWriter().AddFile(L"C:", "x").Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::ForbiddenName);
}

TEST(HostileUnicodeNames, SuperscriptDevicesAreDevices) {
    for (const char16_t* name : {u"COM\u00B9", u"com\u00B2.txt", u"LPT\u00B3"}) {
        LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", 2);
        entry.extended.push_back({0x44, Utf16Bytes(name)});
        EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(), LzhFailure::ForbiddenName);
    }
}

TEST(HostileUnicodeNames, SurrogatesCountTwiceForTheLengthOfAName) {
    std::u16string name;
    for (int i = 0; i < 128; ++i)
        name += u"\U0001F600";
    LzhEntry entry = MakeEntry(L"a", "x", "-lh0-", 2);
    entry.extended.push_back({0x44, Utf16Bytes(name)});
    EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Failure(), LzhFailure::ForbiddenName);
}

TEST(AllowedNames, LookLikeHostileOnesAndAreNot) {
    for (const wchar_t* name :
         {L"CONSOLE",  L"con1", L"COM10", L"COMA", L"nul-", L"a.b.c",  L" a",
          L".hidden",  L"..a",  L"a..b",  L"COM",  L"LPTX", L"ＣＯＮ", L"表ソ能",
          L"aux_.txt", L"a;b",  L"a'b",   L"100%", L"[x]",  L"CON$",   L"a\u3000"}) {
        EXPECT_TRUE(IsAllowedName(name));
    }
}

TEST(HostileNameInTheMiddle, EndsTheExtraction) {
    const Extraction extraction(LzhWriter()
                                    .AddFile(L"before.txt", "1")
                                    .AddFile(L"x\\..\\..\\evil.txt", "2")
                                    .AddFile(L"after.txt", "3")
                                    .Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::ForbiddenName);
    EXPECT_EQ(extraction.Files(), std::vector<std::wstring>{L"before.txt"});
    EXPECT_EQ(extraction.result.Message(), L"x\\..\\..\\evil.txt: the name is not allowed");
}

} // namespace
} // namespace tamblin::lzh
