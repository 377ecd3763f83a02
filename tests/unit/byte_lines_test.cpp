// Text files as lines and as comma-delimited fields.
#include "base/byte_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "unit/case_name.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

template <typename Reader>
std::vector<std::string> All(std::string_view bytes) {
    Reader reader(bytes);
    std::vector<std::string> items;
    while (const auto item = reader.Next())
        items.emplace_back(*item);
    return items;
}

TEST(LineReader, ReadsNothingFromAnEmptyFile) {
    EXPECT_THAT(All<LineReader>(""), IsEmpty());
}

TEST(LineReader, EndsLinesAtCrLfCrAndLf) {
    EXPECT_THAT(All<LineReader>("a\r\nb\rc\nd\r\n"), ElementsAre("a", "b", "c", "d"));
}

TEST(LineReader, KeepsEmptyLines) {
    EXPECT_THAT(All<LineReader>("\r\n\r\na\r\n\r\n"), ElementsAre("", "", "a", ""));
}

TEST(LineReader, ReadsALastLineWithoutEnd) {
    EXPECT_THAT(All<LineReader>("a\r\nb"), ElementsAre("a", "b"));
}

TEST(LineReader, KeepsCommasQuotesBlanksAndNuls) {
    const std::string bytes(" a, \"b\"\0c\r\n", 11);
    EXPECT_THAT(All<LineReader>(bytes), ElementsAre(bytes.substr(0, 9)));
}

struct FieldCase {
    const char* name;
    std::string bytes;
    std::vector<std::string> fields;
};

class FieldReaderTest : public testing::TestWithParam<FieldCase> {};

TEST_P(FieldReaderTest, Splits) {
    EXPECT_THAT(All<FieldReader>(GetParam().bytes), ElementsAreArray(GetParam().fields));
}

INSTANTIATE_TEST_SUITE_P(
    FieldReader, FieldReaderTest,
    testing::Values(FieldCase{"EmptyFile", "", {}},
                    FieldCase{"Lines", "a\r\nb\rc\nd", {"a", "b", "c", "d"}},
                    FieldCase{"AtCommas", "a,b,c\r\n", {"a", "b", "c"}},
                    FieldCase{"EmptyLines", "\r\n\r\na\r\n", {"", "", "a"}},
                    FieldCase{"EmptyFields", ",a,\r\nb", {"", "a", "", "b"}},
                    FieldCase{"LeadingBlanksOff", "  a b ,  c\r\n", {"a b ", "c"}},
                    FieldCase{"BlankLineIsEmpty", "   \r\na", {"", "a"}},
                    FieldCase{"QuotesOff", "\"a, b\",\"c\"\r\nd", {"a, b", "c", "d"}},
                    FieldCase{"QuotesAfterBlanksOff", "  \"a,b\"  ,c", {"a,b", "c"}},
                    FieldCase{"QuotedEmpty", "\"\"\r\na", {"", "a"}},
                    FieldCase{"QuoteWithinKept", "a\"b\r\n", {"a\"b"}},
                    FieldCase{"UnclosedQuoteKept", "\"a\r\nb\"", {"\"a", "b\""}},
                    FieldCase{"QuoteAroundAPartKept", "\"a\"b,c", {"\"a\"b", "c"}},
                    FieldCase{"NulsKept",
                              std::string("a\0b,c\0", 6),
                              {std::string("a\0b", 3), std::string("c\0", 2)}},
                    FieldCase{"NoLastLineEnd", "a,b", {"a", "b"}}),
    CaseName);

// A two-byte character whose second byte is a backslash stays whole; none has a comma or a quote.
TEST(FieldReader, KeepsTwoByteCharacters) {
    EXPECT_THAT(All<FieldReader>("\x95\x5C\x83\x5C\x94\x5C,a"),
                ElementsAre("\x95\x5C\x83\x5C\x94\x5C", "a"));
}

} // namespace
} // namespace tamblin
