// Names that would leave the target folder or end up in something else than they say, in every
// place that a name can come from.
#include <gtest/gtest.h>

#include <functional>

#include "platform/lzh/name_rules.h"
#include "support/lzh_extraction.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

// Puts a hostile text into one of the places of an otherwise sound entry.
struct Place {
    const char* name;
    bool holdsFolder;
    unsigned level;
    std::function<void(LzhEntry&, const std::string&)> put;
};

std::string Utf16Of(const std::string& ascii) {
    return Utf16Bytes(std::u16string(ascii.begin(), ascii.end()));
}

const Place places[] = {
    {"Level0Name", false, 0,
     [](LzhEntry& e, const std::string& s) {
         e.name = s;
     }},
    {"Level0FolderInName", true, 0,
     [](LzhEntry& e, const std::string& s) {
         e.folder = s;
     }},
    {"Level1Name", false, 1,
     [](LzhEntry& e, const std::string& s) {
         e.name = s;
     }},
    {"NameHeaderInLevel1", false, 1,
     [](LzhEntry& e, const std::string& s) {
         e.extended.push_back({0x01, s});
     }},
    {"FolderHeaderInLevel1", true, 1,
     [](LzhEntry& e, const std::string& s) {
         e.folder = s;
     }},
    {"FolderHeaderInLevel1With0xFF", true, 1,
     [](LzhEntry& e, const std::string& s) {
         e.folder = "dir\xFF" + s + "\xFF";
     }},
    {"NameHeaderInLevel2", false, 2,
     [](LzhEntry& e, const std::string& s) {
         e.name = s;
     }},
    {"FolderHeaderInLevel2", true, 2,
     [](LzhEntry& e, const std::string& s) {
         e.folder = s;
     }},
    {"UnicodeNameInLevel2", false, 2,
     [](LzhEntry& e, const std::string& s) {
         e.extended.push_back({0x44, Utf16Of(s)});
     }},
    {"UnicodeFolderInLevel2", true, 2,
     [](LzhEntry& e, const std::string& s) {
         e.extended.push_back({0x45, Utf16Of(s)});
     }},
    {"NameHeaderInLevel3", false, 3,
     [](LzhEntry& e, const std::string& s) {
         e.name = s;
     }},
    {"FolderHeaderInLevel3", true, 3,
     [](LzhEntry& e, const std::string& s) {
         e.folder = s;
     }},
    {"UnicodeNameInLevel1", false, 1,
     [](LzhEntry& e, const std::string& s) {
         e.extended.push_back({0x44, Utf16Of(s)});
     }},
    {"UnicodeFolderInLevel3", true, 3,
     [](LzhEntry& e, const std::string& s) {
         e.extended.push_back({0x45, Utf16Of(s)});
     }},
};

class HostileNames : public testing::TestWithParam<Place> {
  protected:
    Extraction Try(const std::string& text, const std::string& method = "-lh0-") {
        LzhEntry entry = MakeEntry(L"a.txt", "text", method, GetParam().level);
        entry.headerCrc = false;
        GetParam().put(entry, text);
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

TEST_P(HostileNames, ParentFolder) {
    for (const char* name : {"..", "..\\x", "../x", "x\\..", "x\\..\\..\\y", "/../x", "C:\\..\\x",
                             "...", "....\\x", ".. ", ". ", "..\\..\\..\\windows\\win.ini"})
        ExpectForbidden(name);
}

TEST_P(HostileNames, Device) {
    for (const char* name : {"CON", "con", "Prn", "AUX", "NUL", "nul.txt", "NUL.tar.gz", "CON .txt",
                             "COM1", "com9.log", "LPT1", "lpt9.x", "CONIN$", "conout$", "CLOCK$",
                             "aux.", "x\\NUL\\y", "x/con"})
        ExpectForbidden(name);
}

TEST_P(HostileNames, Stream) {
    for (const char* name : {"a:b", "a.txt:stream", "a.txt::$DATA", ":x", "dir:x\\y", "x\\C:\\y",
                             "x\\C:", "C:x", "aa:\\x"})
        ExpectForbidden(name);
}

TEST_P(HostileNames, ChangedByWindows) {
    for (const char* name : {"a.", "a ", "a..", "a. .", "dir.\\x", "dir \\x", "x\\ ", "x\\ \\y"})
        ExpectForbidden(name);
}

TEST_P(HostileNames, NoNameForWindows) {
    for (const char* name : {"a<b", "a>b", "a|b", "a?b", "a*b", "a\"b", "\\\\?\\C:\\x",
                             "\\\\.\\NUL", "a\tb", "a\nb", "a\x01", "\x1F"})
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
    if (GetParam().level > 0) {
        if (!GetParam().holdsFolder && std::string(GetParam().name) == "Level1Name")
            return; // whose names have at most 230 bytes
        ExpectForbidden(std::string(256, 'n'));
        ExpectForbidden(std::string(4000, 'n'));
        ExpectForbidden(std::string(20000, 'n'));
    }
    std::string deep;
    while (deep.size() < 210)
        deep += "folder\\";
    EXPECT_EQ(Try(deep + "x").Failure(), LzhFailure::None);
    if (GetParam().level > 0 && std::string(GetParam().name) != "Level1Name")
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
