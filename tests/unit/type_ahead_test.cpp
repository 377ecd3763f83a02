// Going to an entry by typing its name.
#include "base/type_ahead.h"

#include <gtest/gtest.h>

#include <vector>

#include "install/folder_browser.h"

namespace tamblin {
namespace {

class TypeAheadTest : public testing::Test {
  protected:
    // Types the letters one after another; where that leads from row to row.
    size_t Type(const std::wstring& letters) {
        for (const wchar_t letter : letters)
            if (const auto row = typeAhead.Find(letter, now, at, names.size(),
                                                [&](size_t index) { return names[index]; }))
                at = *row;
        return at;
    }
    void Pause() { now += TypeAhead::PauseMilliseconds + 1; }

    TypeAhead typeAhead;
    std::vector<std::wstring> names{L"Alpha", L"Beta", L"bear", L"Program Files", L"表", L"表ソ能"};
    size_t at = 0;
    std::uint64_t now = 5000;
};

TEST_F(TypeAheadTest, GoesByTheLettersTypedInEitherCase) {
    EXPECT_EQ(Type(L"BEA"), 2U);
    Pause();
    EXPECT_EQ(Type(L"表ソ"), 5U);
    Pause();
    names[0] = L"Program Data";
    EXPECT_EQ(Type(L"program f"), 3U);
}

TEST_F(TypeAheadTest, OneLetterAgainAndAgainGoesRound) {
    EXPECT_EQ(Type(L"b"), 1U);
    EXPECT_EQ(Type(L"b"), 2U);
    EXPECT_EQ(Type(L"b"), 1U);
    Pause();
    EXPECT_EQ(Type(L"b"), 2U);
}

TEST_F(TypeAheadTest, StaysWhereItIsWhenNothingBeginsSo) {
    Type(L"p");
    EXPECT_EQ(Type(L"x"), 3U);
    EXPECT_EQ(Type(L"b"), 3U); // "pxb"
    Pause();
    EXPECT_EQ(Type(L"b"), 1U);
}

TEST_F(TypeAheadTest, KeysAreNoLettersNorIsALeadingBlank) {
    names[1] = L" blank";
    EXPECT_EQ(Type(L" \b\r\x01"), 0U);
}

TEST_F(TypeAheadTest, AnEmptyListHasNothingToFind) {
    names.clear();
    EXPECT_EQ(Type(L"a"), 0U);
}

TEST(NameInRow, IsWhatStandsBehindBlanksAndMark) {
    EXPECT_EQ(FolderBrowser::NameInRow(L"    + Program Files"), L"Program Files");
    EXPECT_EQ(FolderBrowser::NameInRow(L"  + + plus"), L"+ plus");
    EXPECT_EQ(FolderBrowser::NameInRow(L"C:"), L"C:");
    EXPECT_EQ(FolderBrowser::NameInRow(L"ﾃﾞｽｸﾄｯﾌﾟ"), L"ﾃﾞｽｸﾄｯﾌﾟ");
    EXPECT_EQ(FolderBrowser::NameInRow(L""), L"");
}

} // namespace
} // namespace tamblin
