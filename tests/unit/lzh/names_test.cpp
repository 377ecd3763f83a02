// From stored names to paths: separators, code pages, what is dropped and what is replaced.
#include <gtest/gtest.h>

#include "platform/lzh/entry_path.h"
#include "support/lzh_code_pages_here.h"
#include "support/lzh_extraction.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

std::wstring Joined(const EntryPath& path) {
    std::wstring text;
    for (const std::wstring& name : path)
        text += (text.empty() ? L"" : L"|") + name;
    return text;
}

// The path of an entry with these fields, its components separated by "|".
std::wstring PathOfEntry(const EntryHeader& header) {
    CodePagesHere codePages;
    const auto path = PathOf(header, codePages);
    return path ? Joined(*path) : L"(none)";
}

// Of a file.
EntryHeader Header(const std::string& name, const std::string& folder = {}) {
    EntryHeader header;
    header.method = "-lh5-";
    header.name = name;
    header.folder = folder;
    return header;
}

std::wstring FromName(const std::string& name, unsigned codePage = 932) {
    EntryHeader header = Header(name);
    header.codePage = codePage;
    return PathOfEntry(header);
}

std::wstring FromFolderAndName(const std::string& folder, const std::string& name) {
    return PathOfEntry(Header(name, folder));
}

std::wstring FromUnicode(const std::u16string& folder, const std::u16string& name) {
    EntryHeader header = Header("other name", "other folder\xFF");
    header.unicodeFolder = folder;
    header.unicodeName = name;
    return PathOfEntry(header);
}

std::wstring Shown(const EntryHeader& header) {
    CodePagesHere codePages;
    return DisplayName(header, codePages);
}

TEST(EntryNames, SeparatorsCutThem) {
    EXPECT_EQ(FromName("README.Txt"), L"README.Txt");
    EXPECT_EQ(FromName("dir\\a.txt"), L"dir|a.txt");
    EXPECT_EQ(FromName("dir/a.txt"), L"dir|a.txt");
    EXPECT_EQ(FromName("dir\xFF"
                       "a.txt"),
              L"dir|a.txt");
    EXPECT_EQ(FromName("a\\b/c\xFF"
                       "d"),
              L"a|b|c|d");
    EXPECT_EQ(FromFolderAndName("dir\xFFsub\xFF", "a.txt"), L"dir|sub|a.txt");
    EXPECT_EQ(FromFolderAndName("dir/sub", "a.txt"), L"dir|sub|a.txt");
    EXPECT_EQ(FromFolderAndName("dir\xFF", "sub\\a.txt"), L"dir|sub|a.txt");
}

TEST(EntryNames, BackslashAsSecondByteOfACharacterDoesNotSeparate) {
    // 表, ソ and 能 end in 0x5C; so does the lead byte's pair that no character has.
    EXPECT_EQ(FromName("\x95\x5C\x83\x5C\x94\x5C\\\x83\x5C.txt"), L"表ソ能|ソ.txt");
    EXPECT_EQ(FromName("\x85\x5C.txt"), L"\uFFFD85\uFFFD5C.txt");
}

TEST(EntryNames, SeparatorBehindHalfACharacterSeparates) {
    EXPECT_EQ(FromName("a\x81\xFF"
                       "b"),
              L"a\uFFFD81|b");
    EXPECT_EQ(FromName("a\x81/b"), L"a\uFFFD81|b");
    // Here the first byte belongs to no pair, for the second one already ends a character.
    EXPECT_EQ(FromName("\x83\x81\\b"), L"メ|b");
    EXPECT_EQ(FromName("\x81\x81\\b"), L"＝|b");
}

TEST(EntryNames, CodePage932IsAsWindowsHasIt) {
    EXPECT_EQ(FromName("\x83\x41.TXT"), L"ア.TXT");
    EXPECT_EQ(FromName("\xB1\xB2\xB3.txt"), L"ｱｲｳ.txt");
    EXPECT_EQ(FromName("\x87\x40\x87\x8A.txt"), L"①㈱.txt");
    EXPECT_EQ(FromName("\xFB\xFC.txt"), L"髙.txt");
    EXPECT_EQ(FromName("\xED\x40\xEE\xFC.txt"), L"纊＂.txt");
    EXPECT_EQ(FromName("\x81\x60\x81\x7C\x81\x91"), L"～－￠");
    EXPECT_EQ(FromName("\xF0\x40\xF9\xFC"), L"\uE000\uE757");
    EXPECT_EQ(FromName("a~\x80\xA0"
                       "b\xFD\xFE"),
              L"a~\u0080\u00A0b\uF8F1\uF8F2");
    EXPECT_EQ(FromName("a\x80\x81"), L"a\u0080\uFFFD81");
}

TEST(EntryNames, BytesThatAreNoCharacterAreReplacedEachByItsOwn) {
    EXPECT_EQ(FromName("\x81.txt"), L"\uFFFD81.txt");
    EXPECT_EQ(FromName("a\xFC"), L"a\uFFFDFC");
    EXPECT_EQ(FromName("\x81\x30"),
              L"\uFFFD81"
              L"0");
    EXPECT_EQ(FromName("\xEF\xFC"), L"\uFFFDEF\uFFFDFC");
    EXPECT_EQ(FromName("\xFC\\"), L"\uFFFDFC\uFFFD5C");
}

TEST(EntryNames, DifferentUnreadableNamesStayDifferentFiles) {
    LzhWriter writer;
    for (const char* name : {"\x81.txt", "\x82.txt", "\x81\x30.txt", "\x82\x30.txt"}) {
        LzhEntry entry = MakeEntry(L"", name, "-lh0-", 2);
        entry.name = name;
        writer.Add(entry);
    }
    LzhEntry unicode = MakeEntry(L"x", "unicode", "-lh0-", 2);
    unicode.extended.push_back({0x44, Utf16Bytes(u"\uFFFD81.txt")});
    const Extraction extraction(writer.Add(unicode).Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Files().size(), 5u);
}

TEST(EntryNames, OtherCodePagesAreReadAsTheEntrySays) {
    EXPECT_EQ(FromName("\xE8\xA1\xA8/\xE3\x82\xBD.txt", 65001), L"表|ソ.txt");
    EXPECT_EQ(FromName("\xE8\xA1/b", 65001), L"\uFFFDE8\uFFFDA1|b");
    EXPECT_EQ(FromName("\xE9t\xE9", 1252), L"été");
    EXPECT_EQ(FromName("\x95\x5C\\a", 0), L"表|a");
    EXPECT_EQ(FromName("\x95\x5C\\a", 98765), L"表|a");
    EXPECT_EQ(FromName("\xD6\xD0\\a", 936), L"中|a");
    EXPECT_EQ(FromName("\x81\x5C\\a", 936), L"乗|a");
}

TEST(EntryNames, CodePageOfAnEntryIsItsOwn) {
    LzhEntry utf8 = MakeEntry(L"x", "utf-8", "-lh0-", 2);
    utf8.name = "\xE8\xA1\xA8.txt";
    utf8.extended.push_back({0x46, LittleEndian(65001, 4)});
    const Extraction extraction(LzhWriter().Add(utf8).AddFile(L"ソ.txt", "sjis").Finish());
    EXPECT_EQ(extraction.Bytes(L"表.txt"), "utf-8");
    EXPECT_EQ(extraction.Bytes(L"ソ.txt"), "sjis");
}

TEST(EntryNames, UnicodeNamesCount) {
    EXPECT_EQ(FromUnicode(u"日本\uFFFF語\uFFFF", u"한국.txt"), L"日本|語|한국.txt");
    EXPECT_EQ(FromUnicode(u"a\\b", u"c/d"), L"a|b|c|d");
    EXPECT_EQ(FromUnicode(u"", u"n"), L"other folder|n");
    EXPECT_EQ(FromUnicode(u"f", u""), L"f|other name");
    EXPECT_EQ(FromUnicode(u"f", u"\U0001F600"), L"f|\U0001F600");
    EXPECT_EQ(FromUnicode(u"f", std::u16string(1, char16_t{0xD800}) + u"a"), L"f|\uFFFDuD800a");
}

TEST(EntryNames, UnicodeNamesStandInTheirOwnHeaders) {
    LzhEntry entry = MakeEntry(L"dir\\x", "text", "-lh0-", 1);
    entry.extended.push_back({0x44, Utf16Bytes(u"한국.txt")});
    entry.extended.push_back({0x45, Utf16Bytes(u"表\uFFFF")});
    EXPECT_EQ(Extraction(LzhWriter().Add(entry).Finish()).Bytes(L"表\\한국.txt"), "text");
}

TEST(EntryNames, AbsoluteOnesLoseDriveAndLeadingSeparators) {
    for (const char* name :
         {"\\tmp\\a", "/tmp/a", "//tmp/a", "\\\\tmp\\a", "C:\\tmp\\a", "c:/tmp/a",
          "\xFFtmp\xFF"
          "a",
          "Z:\xFFtmp\\a", "\\C:\\tmp\\a", "./tmp/./a", "C:\\\\tmp\\\\a"})
        EXPECT_EQ(FromName(name), L"tmp|a") << name;
    EXPECT_EQ(FromFolderAndName("\xFFtmp\xFF", "a"), L"tmp|a");
    EXPECT_EQ(FromFolderAndName("C:\xFFtmp\xFF", "\\a"), L"tmp|a");
    EXPECT_EQ(FromUnicode(u"C:\\tmp", u"a"), L"tmp|a");
    EXPECT_EQ(FromUnicode(u"\uFFFFtmp\uFFFF", u"a"), L"tmp|a");
    EXPECT_EQ(FromName("\\\\server\\share\\a"), L"server|share|a");
}

TEST(EntryNames, EmptyOnesAreSkipped) {
    for (const char* name : {"", "\\", "dir\\", "/", "\xFF", "C:\\"})
        EXPECT_EQ(FromName(name), L"(none)") << name;
    EXPECT_EQ(FromFolderAndName("dir\xFF", ""), L"(none)");
    EntryHeader folder;
    folder.method = "-lhd-";
    EXPECT_EQ(PathOfEntry(folder), L"(none)");
    folder.folder = "dir\xFF";
    EXPECT_EQ(PathOfEntry(folder), L"dir");
    folder.folder = "./";
    EXPECT_EQ(PathOfEntry(folder), L"(none)");

    LzhEntry nameless = MakeEntry(L"", "data of nobody", "-lh5-", 2);
    const Extraction extraction(LzhWriter().Add(nameless).AddFile(L"a", "a").Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Files(), std::vector<std::wstring>{L"a"});
}

TEST(EntryNames, ZerosThatFillThemUpAndCommentsBehindThemAreCut) {
    EXPECT_EQ(FromName(std::string("a.txt\0\0\0", 8)), L"a.txt");
    EntryHeader header = Header(std::string("a.txt\0a comment", 15));
    header.system = 'A';
    EXPECT_EQ(PathOfEntry(header), L"a.txt");
}

TEST(EntryNames, LaterEntryOfTheSameNameReplacesTheEarlier) {
    const Extraction extraction(LzhWriter().AddFile(L"a", "old").AddFile(L"a", "new").Finish());
    EXPECT_EQ(extraction.Failure(), LzhFailure::None);
    EXPECT_EQ(extraction.Bytes(L"a"), "new");
}

TEST(EntryNames, AreReportedWhateverTheyHold) {
    const std::wstring name =
        Shown(Header(std::string("..\\a\nb\x81\0", 8) + std::string(500, 'c')));
    EXPECT_EQ(name.find(L'\n'), std::wstring::npos);
    EXPECT_LE(name.size(), 201u);
    EXPECT_EQ(name.substr(0, 5), L"..\\a?");
}

TEST(Names, ReplacementCharacterOfACodePageIsNoReplacedByte) {
    EXPECT_NE(FromName("\xEF\xBF\xBD\x38\x31.txt", 65001), FromName("\x81.txt"));
    EXPECT_EQ(FromName("\xEF\xBF\xBD", 65001), L"\uFFFDEF\uFFFDBF\uFFFDBD");
}

TEST(Names, ZerosThatFillUpAFolderAreNoPartOfIt) {
    EXPECT_EQ(FromFolderAndName(std::string("dir\xFF\0\0", 6), "a"), L"dir|a");
    EXPECT_EQ(FromFolderAndName(std::string("dir\0", 4), "a"), L"dir|a");
}

TEST(Names, UnicodeNameOfZerosAloneDoesNotCount) {
    EntryHeader header = Header("a.txt", "dir");
    header.unicodeName = std::u16string(2, u'\0');
    header.unicodeFolder = std::u16string(2, u'\0');
    EXPECT_EQ(PathOfEntry(header), L"dir|a.txt");
}

// A header has room for names that would cost many times their size when taken apart.
TEST(Names, NamesBeyondAllPathsAreRefused) {
    for (const char letter : {'\xFF', 'x'})
        EXPECT_THROW(FromName(std::string(200'000, letter)), LzhError);
}

TEST(Names, DotBehindTheLastSeparatorIsNoName) {
    for (const char* name : {"dir\\.", "dir/.", "."})
        EXPECT_THROW(FromName(name), LzhError) << name;
    EntryHeader folder;
    folder.method = "-lhd-";
    folder.folder = "dir\xFF.";
    EXPECT_EQ(PathOfEntry(folder), L"dir");
}

// Components and the separators between them.
TEST(Names, PathsHaveUpTo259Units) {
    const std::string folder = std::string(100, 'a') + "\\" + std::string(100, 'b') + "\\";
    EXPECT_NO_THROW(FromName(folder + std::string(57, 'c')));
    EXPECT_THROW(FromName(folder + std::string(58, 'c')), LzhError);
    EXPECT_NO_THROW(FromName(std::string(255, 'a') + "\\abc"));
    EXPECT_THROW(FromName(std::string(255, 'a') + "\\abcd"), LzhError);
}

TEST(Names, ShownOnesAreCutAt200Letters) {
    EXPECT_EQ(Shown(Header(std::string(200, 'x'))), std::wstring(200, L'x'));
    for (const std::size_t size : {201u, 8192u})
        EXPECT_EQ(Shown(Header(std::string(size, 'x'))), std::wstring(200, L'x') + L"…") << size;
    EXPECT_LT(Shown(Header(std::string(200'000, 'x'))).size(), 300u);
}

TEST(Names, SurrogatesOfTheLastPlaneAreOneCharacter) {
    EXPECT_EQ(FromUnicode(u"f", u"\U0010FFFF\U00010000"), L"f|\U0010FFFF\U00010000");
    EXPECT_EQ(FromUnicode(u"f", std::u16string{char16_t{0xDC00}, u'a'}), L"f|\uFFFDuDC00a");
    EXPECT_EQ(FromUnicode(u"f", std::u16string{char16_t{0xDBFF}, char16_t{0xE000}}),
              L"f|\uFFFDuDBFF\uE000");
}

TEST(Names, KoreanOfTheOldKindHasBackslashesInItsCharactersToo) {
    CodePagesHere codePages;
    if (!codePages.Knows(1361))
        GTEST_SKIP() << "the system does not know the code page";
    EXPECT_EQ(FromName("\x89\x5C\\a", 1361), L"겦|a");
    EXPECT_EQ(FromName("\x84\x5C/\xD3\x5C/\xD8\x5C/\xDE\x5C/\xE0\x5C/\xF9\x5C", 1361).find(L"||"),
              std::wstring::npos);
}

TEST(Names, NoLetterOfAShownNameEndsTheLine) {
    EntryHeader header = Header("");
    header.unicodeName = u"a\u0085b\u2028c\u2029d\u009Be";
    EXPECT_EQ(Shown(header), L"a?b?c?d?e");
}

} // namespace
} // namespace tamblin::lzh
