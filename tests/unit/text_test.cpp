// Comparing and cutting names.
#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

namespace tamblin {
namespace {

using namespace std::string_literals;

TEST(UpperCase, CoversTheLettersOfAllScriptsAndNothingAroundThem) {
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"abcxyz.OBL", L"ABCXYZ.OBL"},
        {L"@[`{~_09", L"@[`{~_09"},
        {L"", L""},
        {L"ａｂｚ", L"ＡＢＺ"},
        {L"＠［｀｛０９", L"＠［｀｛０９"},
        {L"αβγρστω", L"ΑΒΓΡΣΤΩ"},
        {L"άέήίόύώ", L"ΆΈΉΊΌΎΏ"},
        {L"абвяёџ", L"АБВЯЁЏ"},
        {L"àéîõüøþ", L"ÀÉÎÕÜØÞ"},
        {L"÷×", L"÷×"},
        {L"āăąčđ", L"ĀĂĄČĐ"},
        {L"ÿ", L"Ÿ"},
        {L"ⅰⅹ", L"ⅠⅩ"},
        {L"ⓐⓩ", L"ⒶⓏ"},
        {L"表ソ能かなカナｶﾅ", L"表ソ能かなカナｶﾅ"},
        {L"ΑБÀＡ", L"ΑБÀＡ"}};
    for (const auto& [text, upper] : texts)
        EXPECT_EQ(UpperCase(text), upper);
}

TEST(UpperCase, CoversLettersThatJapaneseNamesDoNotHave) {
    EXPECT_EQ(UpperCase(L"ƀǆǳɐʞ"), L"ɃǄǱⱯꞰ");
    EXPECT_EQ(UpperCase(L"ἀᾳῥͷӏԯաꙁ"), L"ἈᾼῬͶӀԮԱꙀ");
    EXPECT_EQ(UpperCase(L"აᏸꭰⰰⲁⴀᵹꜣꟁ"), L"ᲐᏰᎠⰀⲀႠꝽꜢꟀ");
}

// As file systems do: a letter whose upper-case form is longer stays what it is.
TEST(UpperCase, KeepsTheLengthAndIsDoneAtOnce) {
    EXPECT_EQ(UpperCase(L"straße"), L"STRAßE");
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto upper = UpperCase(static_cast<wchar_t>(code));
        ASSERT_EQ(UpperCase(upper), upper) << std::hex << code;
    }
}

TEST(UpperCase, KeepsTextsWithNuls) {
    EXPECT_EQ(UpperCase(L"a\0b"s), L"A\0B"s);
}

#ifdef _WIN32

// What its file systems go by, and what it offers for comparing names.
TEST(UpperCase, AgreesWithWindowsOnEveryLetter) {
    using Function = WCHAR(WINAPI*)(WCHAR);
    const auto fileSystemUpperCase = reinterpret_cast<Function>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlUpcaseUnicodeChar")));
    ASSERT_NE(fileSystemUpperCase, nullptr);
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto letter = static_cast<wchar_t>(code);
        const wchar_t upper = UpperCase(letter);
        EXPECT_EQ(upper, fileSystemUpperCase(letter)) << std::hex << code;
        EXPECT_EQ(CompareStringOrdinal(&letter, 1, &upper, 1, TRUE), CSTR_EQUAL)
            << std::hex << code;
    }
}

#endif

TEST(EqualIgnoringCase, ComparesWholeTexts) {
    EXPECT_TRUE(EqualIgnoringCase(L"Ombrel.EXE", L"oMBREL.exe"));
    EXPECT_TRUE(EqualIgnoringCase(L"ａ表", L"Ａ表"));
    EXPECT_TRUE(EqualIgnoringCase(L"", L""));
    EXPECT_FALSE(EqualIgnoringCase(L"a", L"ab"));
    EXPECT_FALSE(EqualIgnoringCase(L"ab", L"a"));
    EXPECT_FALSE(EqualIgnoringCase(L"a", L"ａ"));
    EXPECT_FALSE(EqualIgnoringCase(L"か", L"カ"));
}

TEST(EndsWithIgnoringCase, LooksAtTheEndOnly) {
    EXPECT_TRUE(EndsWithIgnoringCase(L"name.ObL", L".obl"));
    EXPECT_TRUE(EndsWithIgnoringCase(L".obl", L".OBL"));
    EXPECT_TRUE(EndsWithIgnoringCase(L"any", L""));
    EXPECT_FALSE(EndsWithIgnoringCase(L"obl", L".obl"));
    EXPECT_FALSE(EndsWithIgnoringCase(L"name.obl.txt", L".obl"));
}

TEST(WithoutLast, LeavesWhatIsThere) {
    EXPECT_EQ(WithoutLast(L"name.obl", 4), L"name");
    EXPECT_EQ(WithoutLast(L".obl", 4), L"");
    EXPECT_EQ(WithoutLast(L"obl", 4), L"");
    EXPECT_EQ(WithoutLast(L"obl", 0), L"obl");
}

TEST(WithBackslash, AppendsOneWhereNoneIs) {
    EXPECT_EQ(WithBackslash(L"C:\\a"), L"C:\\a\\");
    EXPECT_EQ(WithBackslash(L"C:\\a\\"), L"C:\\a\\");
    EXPECT_EQ(WithBackslash(L"C:\\"), L"C:\\");
    EXPECT_EQ(WithBackslash(L""), L"\\");
}

TEST(WithoutBackslash, TakesOneAwayButForARoot) {
    EXPECT_EQ(WithoutBackslash(L"C:\\a\\"), L"C:\\a");
    EXPECT_EQ(WithoutBackslash(L"C:\\a"), L"C:\\a");
    EXPECT_EQ(WithoutBackslash(L"C:\\"), L"C:\\");
    EXPECT_EQ(WithoutBackslash(L"C:"), L"C:");
    EXPECT_EQ(WithoutBackslash(L"\\\\server\\share\\"), L"\\\\server\\share");
    EXPECT_EQ(WithoutBackslash(L"ab\\"), L"ab");
    EXPECT_EQ(WithoutBackslash(L""), L"");
}

TEST(WithGapFilled, PutsTheFillingWhereTheGapIs) {
    EXPECT_EQ(WithGapFilled(L"{} is gone", L"a{}b"), L"a{}b is gone");
    EXPECT_EQ(WithGapFilled(L"all of {}.", L""), L"all of .");
}

TEST(NameOf, IsWhatFollowsTheLastBackslash) {
    EXPECT_EQ(NameOf(L"C:\\folder\\表.lzh"), L"表.lzh");
    EXPECT_EQ(NameOf(L"name"), L"name");
    EXPECT_EQ(NameOf(L"C:\\folder\\"), L"");
    EXPECT_EQ(NameOf(L""), L"");
}

} // namespace
} // namespace tamblin
